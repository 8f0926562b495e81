// Open CASCADE keeps some allocations for the life of the process after
// dropping its last pointer to them: what its exchange controllers make once,
// the application's driver table, and the STEP writer's default axis. They
// are the library's, not this project's. The last two are passed over by the
// name of the function that allocates them; the controllers' allocations come
// from deep inside the library, whose stacks the quick unwinder can't follow,
// so the controllers are made once, before the tests, with leak checking off.
#include <IGESControl_Controller.hxx>
#include <STEPCAFControl_Controller.hxx>
#include <gtest/gtest.h>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>

extern "C" const char* __lsan_default_suppressions() {
    return "leak:GeomToStep_MakeDirection::GeomToStep_MakeDirection\n"
           "leak:TPrsStd_DriverTable::Get\n";
}
#endif

namespace {

class ExchangeControllers : public ::testing::Environment {
public:
    void SetUp() override {
#if defined(__SANITIZE_ADDRESS__)
        __lsan_disable();
#endif
        STEPCAFControl_Controller::Init();
        IGESControl_Controller::Init();
#if defined(__SANITIZE_ADDRESS__)
        __lsan_enable();
#endif
    }
};

::testing::Environment* const exchangeControllers = ::testing::AddGlobalTestEnvironment(new ExchangeControllers);

}  // namespace
