// LeakSanitizer's built-in suppressions for programs that talk to the office.
//
// UNO's C++ runtime keeps the type descriptions of every interface it has marshalled, and the
// texts they name, in process-wide caches that it never frees. LeakSanitizer reports them at
// exit as leaks inside the URE libraries. Only allocations made inside those libraries are
// suppressed, so a leak in our own code (whose stack starts in our code) is still reported.

#if defined(__SANITIZE_ADDRESS__)
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libuno_cppu.so\n"
         "leak:libuno_sal.so\n"
         "leak:libuno_cppuhelpergcc3.so\n"
         "leak:libgcc3_uno.so\n"
         "leak:libbinaryurplo.so\n";
}

// The report of the suppressions used would end up on the program's standard error at every
// exit, among the program's own messages.
extern "C" const char* __lsan_default_options() { return "print_suppressions=0"; }
#endif
