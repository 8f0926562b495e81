// The exchange controllers are made once, before the tests, so that what they
// keep for the life of the process is not taken for a leak of a test.
#include <gtest/gtest.h>

#include "host/cad/ExchangeControllers.h"

namespace {

class ExchangeControllers : public ::testing::Environment {
public:
    void SetUp() override { host::cad::initExchangeControllers(); }
};

::testing::Environment* const exchangeControllers = ::testing::AddGlobalTestEnvironment(new ExchangeControllers);

}  // namespace
