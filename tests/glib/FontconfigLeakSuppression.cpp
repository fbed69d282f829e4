// The font library keeps its patterns' element arrays as offsets from the pattern rather than as
// pointers, so the leak checker cannot see that they are still referenced and reports every font
// pattern alive at exit. Those reports are not leaks of ours; they are suppressed for any test
// program that loads fonts.

extern "C" char const* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\n";
}
