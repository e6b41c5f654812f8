// Defaults the sanitizer runtimes read at start-up, linked into every test
// program of a sanitized build.

extern "C" {

// fontconfig fills font and pattern caches the first time Qt lays out text
// and frees them only at an exit LeakSanitizer never sees; they are not
// leaks of ours.
const char* __lsan_default_suppressions();
const char* __lsan_default_suppressions() { return "leak:libfontconfig.so\n"; }

// A report of undefined behaviour is only useful with the stack that led
// to it.
const char* __ubsan_default_options();
const char* __ubsan_default_options() { return "print_stacktrace=1"; }

}
