// PostgreSQL's driver forgets a few bytes of each statement that is described and never runs.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions();
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions() {
  return "leak:psqlodbc";
}
