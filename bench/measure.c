/* Runs a command and prints what it took, as "wall cpu peak": seconds, seconds of user and system
 * time, KiB of memory at most.
 *
 *   measure COMMAND [ARGUMENT...]
 */
#include <spawn.h>
#include <stdio.h>
#include <string.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <time.h>

extern char** environ;

static double seconds(struct timeval t) {
  return (double)t.tv_sec + (double)t.tv_usec / 1e6;
}

static double now(void) {
  struct timespec t;
  clock_gettime(CLOCK_MONOTONIC, &t);
  return (double)t.tv_sec + (double)t.tv_nsec / 1e9;
}

int main(int argc, char** argv) {
  struct rusage used;
  pid_t child;
  int status = 0;
  const double start = now();
  const int error = argc < 2 ? 0 : posix_spawnp(&child, argv[1], NULL, NULL, argv + 1, environ);
  if (argc < 2 || error != 0) {
    fprintf(stderr, "measure: %s\n", argc < 2 ? "no command" : strerror(error));
    return 2;
  }
  if (wait4(child, &status, 0, &used) < 0 || status != 0) return 1;
  printf("%.3f %.3f %ld\n", now() - start, seconds(used.ru_utime) + seconds(used.ru_stime),
         used.ru_maxrss);
  return 0;
}
