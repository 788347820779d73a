/// The stacks of allocations, and memory that is never used again, were a third of the time that all tests take. Both
/// come back with ASAN_OPTIONS=malloc_context_size=30:quarantine_size_mb=256 in the environment.
extern "C" const char* __asan_default_options() { // NOLINT: the sanitizer's own name
    return "malloc_context_size=2:quarantine_size_mb=16";
}
