// Under the leak checker: allocations that Open CASCADE keeps for the life of
// the process after dropping its last pointer to them, the application's
// driver table and the STEP writer's default axis. They are the library's,
// not this project's. A program that reads or writes exchange files compiles
// this file in (only a program may define the checker's suppressions), and
// makes the exchange controllers with initExchangeControllers.
#if defined(__SANITIZE_ADDRESS__)
// The report of the suppressions used would land on the program's standard
// error, which the tools keep for what matters to their user.
extern "C" const char* __lsan_default_options() { return "print_suppressions=0"; }

extern "C" const char* __lsan_default_suppressions() {
    return "leak:GeomToStep_MakeDirection::GeomToStep_MakeDirection\n"
           "leak:TPrsStd_DriverTable::Get\n";
}
#endif
