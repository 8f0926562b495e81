// Under the leak checker: allocations that Open CASCADE keeps for the life of
// the process after dropping its last pointer to them, the application's
// driver table and the STEP writer's default axis, and the triangle arrays
// of its triangulations, which it loses when it frees a triangulation. They are the library's,
// not this project's. A program that reads or writes exchange files compiles
// this file in (only a program may define the checker's suppressions), and
// makes the exchange controllers with initExchangeControllers.
#if defined(__SANITIZE_ADDRESS__)
// The report of the suppressions used would land on the program's standard
// error, which the tools keep for what matters to their user.
// A program whose leaks lie in the kernel's triangulations unwinds each
// allocation in full (VANTREL_LEAK_FULL_UNWIND), slower but the only way the
// suppressions below can name the kernel's function on its stack.
extern "C" const char* __lsan_default_options() {
#if defined(VANTREL_LEAK_FULL_UNWIND)
    return "print_suppressions=0:fast_unwind_on_malloc=0";
#else
    return "print_suppressions=0";
#endif
}

extern "C" const char* __lsan_default_suppressions() {
    return "leak:GeomToStep_MakeDirection::GeomToStep_MakeDirection\n"
           "leak:TPrsStd_DriverTable::Get\n"
           "leak:Poly_Triangulation::Poly_Triangulation\n"
           "leak:NCollection_Array1<Poly_Triangle>::Resize\n";
}
#endif
