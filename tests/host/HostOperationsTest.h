#pragma once
// A fixture for tests that call the host's operations as the plug-in does:
// an active session, and short ways to the handles of its models.
#include <gtest/gtest.h>

#include "host/ops/OperationSupport.h"
#include "host/OperationShims.h"
#include "host/testing/ModelBuilder.h"
#include "host/testing/TestSession.h"

class HostOperations : public testing::Test {
protected:
    static constexpr int context = host::applicationContext;

    host::Session& session() { return active.session; }
    static ProMdl handle(const host::Model& model) { return host::ops::handleOf<ProMdl>(model); }
    static ProSurface handle(const host::Surface& surface) { return host::ops::handleOf<ProSurface>(surface); }
    static ProQuilt handle(const host::Quilt& quilt) { return host::ops::handleOf<ProQuilt>(quilt); }
    const std::vector<std::string>& log() { return session().errors().messages(); }

    host::fixtures::ActiveTestSession active;
};
