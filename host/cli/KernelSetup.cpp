#include "host/cli/KernelSetup.h"

#include "host/cad/ExchangeControllers.h"
#include "host/cad/XdeDocument.h"

namespace host::cli {

void prepareKernel() {
    host::cad::quietKernelMessages();
    host::cad::initExchangeControllers();
}

}  // namespace host::cli
