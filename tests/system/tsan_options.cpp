// How ThreadSanitizer looks at the tests that are linked with this.

// GLib is not built for it: it sees what GLib does with memory, but not GLib's locks, and so would take much
// for a race that is none. What remains are the races of the library and of the tests.
// NOLINTNEXTLINE(bugprone-reserved-identifier): ThreadSanitizer asks for it by this name.
extern "C" __attribute__((visibility("default"))) const char* __tsan_default_options() {
  return "ignore_noninstrumented_modules=1";
}
