#include "host/cad/ExchangeControllers.h"

#include <IGESControl_Controller.hxx>
#include <STEPCAFControl_Controller.hxx>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace host::cad {

void initExchangeControllers() {
#if defined(__SANITIZE_ADDRESS__)
    __lsan_disable();
#endif
    STEPCAFControl_Controller::Init();
    IGESControl_Controller::Init();
#if defined(__SANITIZE_ADDRESS__)
    __lsan_enable();
#endif
}

}  // namespace host::cad
