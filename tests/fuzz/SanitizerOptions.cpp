// Defaults of the sanitizers, where the environment says nothing else. An exception leaves
// half-made objects behind, and the platform's parsers what they have read: leaks are for other
// tests to find. What asks for too much memory is to be told so, as without sanitizers.

extern "C" const char *__asan_default_options();  // NOLINT(bugprone-reserved-identifier)

extern "C" const char *__asan_default_options() {
  return "detect_leaks=0:allocator_may_return_null=1:malloc_context_size=8";
}
