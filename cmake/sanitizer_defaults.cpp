// Linked into every program and test of a sanitized build: the defaults the
// sanitizers read at start-up, so that a plain run of any test is strict.
//
// LeakSanitizer: fontconfig keeps its caches until the process ends, by
// design; those are the only leaks let through.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig\n"; }

// UndefinedBehaviorSanitizer: a report ends the run with a stack, so that
// ctest sees it as a failure.
extern "C" const char* __ubsan_default_options() { return "print_stacktrace=1:halt_on_error=1"; }
