// PostgreSQL's driver forgets a few bytes of each statement that is described and never runs.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
  return "leak:psqlodbc";
}
