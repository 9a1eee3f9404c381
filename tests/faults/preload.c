// Preloaded into a program, lets one of its calls fail. The environment says which:
//   FAULT_CALL    open, read, write, sync, close, rename, chmod, stat, lock, mkdir, list or malloc;
//                 full: a write takes half, and no later one takes anything;
//                 any: each of those that concern files
//   FAULT_AT      the number of the call, from 1, counted from main() on
//   FAULT_ERROR   the errno that it leaves; 0: the program is killed in its place
//   FAULT_STAYS   the later ones fail too, if set
//   FAULT_BELOW   the folder, in which the program runs, whose files count
//   FAULT_REPORT  gets the path that the call was about, when it fails
#define _GNU_SOURCE
#include <dirent.h>
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <signal.h>
#include <stdarg.h>
#include <stdatomic.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

enum { kPatience = 60 };  // seconds, after which a program counts as one that hangs

static const char* call_;
static const char* below_;
static const char* report_;
static long at_;
static int error_;
static int stays_;
static int begun_;
static atomic_long count_;

static void report(const char* path) {
  const long file = syscall(SYS_openat, AT_FDCWD, report_, O_WRONLY | O_CREAT | O_TRUNC, 0600);
  syscall(SYS_write, file, path, strlen(path));
  syscall(SYS_close, file);
}

/// Counts a call; true when it is to fail.
static int strikes(const char* path) {
  const long number = atomic_fetch_add(&count_, 1) + 1;
  if (number < at_ || (number > at_ && !stays_)) return 0;
  if (number == at_) report(path);
  if (error_ == 0) kill(getpid(), SIGKILL);
  errno = error_;
  return 1;
}

static int isBelow(const char* path) {
  return path[0] != '/' || strncmp(path, below_, strlen(below_)) == 0;
}

static int fails(const char* call, const char* path) {
  if (!begun_ || (strcmp(call_, call) != 0 && strcmp(call_, "any") != 0)) return 0;
  return isBelow(path) && strikes(path);
}

static int failsOn(const char* call, int descriptor) {
  char link[64];
  char path[PATH_MAX];
  if (!begun_) return 0;
  snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
  const ssize_t size = syscall(SYS_readlinkat, AT_FDCWD, link, path, sizeof path - 1);
  if (size <= 0 || path[0] != '/') return 0;
  path[size] = '\0';
  return fails(call, path);
}

#define REAL(name) ((__typeof__(&name))dlsym(RTLD_NEXT, #name))
// A function that fails in the first place or does what it always did.
#define FAIL_BY_PATH(kind, result, failure, name, path, arguments, values) \
  result name arguments {                                                  \
    if (fails(kind, path)) return failure;                                 \
    return REAL(name) values;                                              \
  }
#define FAIL_BY_FILE(kind, result, failure, name, file, arguments, values) \
  result name arguments {                                                  \
    if (failsOn(kind, file)) return failure;                               \
    return REAL(name) values;                                              \
  }

static mode_t modeBehind(int flags, va_list rest) {
  return (flags & (O_CREAT | __O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
}

#define FAIL_OPEN(name)                          \
  int name(const char* path, int flags, ...) {   \
    va_list rest;                                \
    va_start(rest, flags);                       \
    const mode_t mode = modeBehind(flags, rest); \
    va_end(rest);                                \
    if (fails("open", path)) return -1;          \
    return REAL(name)(path, flags, mode);        \
  }
#define FAIL_OPENAT(name)                                  \
  int name(int folder, const char* path, int flags, ...) { \
    va_list rest;                                          \
    va_start(rest, flags);                                 \
    const mode_t mode = modeBehind(flags, rest);           \
    va_end(rest);                                          \
    if (fails("open", path)) return -1;                    \
    return REAL(name)(folder, path, flags, mode);          \
  }
FAIL_OPEN(open)
FAIL_OPEN(open64)
FAIL_OPENAT(openat)
FAIL_OPENAT(openat64)
FAIL_BY_PATH("open", FILE*, NULL, fopen, path, (const char* path, const char* mode), (path, mode))
FAIL_BY_PATH("open", FILE*, NULL, fopen64, path, (const char* path, const char* mode), (path, mode))
FAIL_BY_PATH("open", DIR*, NULL, opendir, path, (const char* path), (path))

FAIL_BY_FILE("read", ssize_t, -1, read, file, (int file, void* to, size_t size), (file, to, size))
FAIL_BY_FILE("read", ssize_t, -1, pread, file, (int file, void* to, size_t size, off_t at),
             (file, to, size, at))
FAIL_BY_FILE("read", ssize_t, -1, pread64, file, (int file, void* to, size_t size, off_t at),
             (file, to, size, at))
FAIL_BY_FILE("list", struct dirent*, NULL, readdir, dirfd(folder), (DIR * folder), (folder))
FAIL_BY_FILE("list", struct dirent64*, NULL, readdir64, dirfd(folder), (DIR * folder), (folder))

ssize_t write(int file, const void* bytes, size_t size) {
  const long before = count_;
  if (failsOn("write", file)) return -1;
  if (failsOn("full", file)) {
    return before + 1 == at_ && size > 1 ? REAL(write)(file, bytes, size / 2) : -1;
  }
  return REAL(write)(file, bytes, size);
}
FAIL_BY_FILE("write", ssize_t, -1, writev, file, (int file, const struct iovec* parts, int count),
             (file, parts, count))

// Nobody loses power here.
int fsync(int file) {
  return failsOn("sync", file) ? -1 : 0;
}
int fdatasync(int file) {
  return failsOn("sync", file) ? -1 : 0;
}

int close(int file) {
  const int failed = failsOn("close", file);
  const int error = errno;
  const int result = REAL(close)(file);
  errno = failed ? error : errno;
  return failed ? -1 : result;
}
int fclose(FILE* file) {
  const int failed = failsOn("close", fileno(file));
  const int error = errno;
  const int result = REAL(fclose)(file);
  errno = failed ? error : errno;
  return failed ? EOF : result;
}

FAIL_BY_PATH("rename", int, -1, rename, from, (const char* from, const char* to), (from, to))
FAIL_BY_PATH("chmod", int, -1, chmod, path, (const char* path, mode_t mode), (path, mode))
FAIL_BY_FILE("chmod", int, -1, fchmod, file, (int file, mode_t mode), (file, mode))
FAIL_BY_PATH("mkdir", int, -1, mkdir, path, (const char* path, mode_t mode), (path, mode))
FAIL_BY_FILE("lock", int, -1, flock, file, (int file, int operation), (file, operation))
FAIL_BY_PATH("stat", int, -1, stat, path, (const char* path, struct stat* to), (path, to))
FAIL_BY_PATH("stat", int, -1, stat64, path, (const char* path, struct stat64* to), (path, to))
FAIL_BY_PATH("stat", int, -1, lstat, path, (const char* path, struct stat* to), (path, to))
FAIL_BY_PATH("stat", int, -1, lstat64, path, (const char* path, struct stat64* to), (path, to))
FAIL_BY_FILE("stat", int, -1, fstat, file, (int file, struct stat* to), (file, to))
FAIL_BY_FILE("stat", int, -1, fstat64, file, (int file, struct stat64* to), (file, to))

// The allocator of the C library, which may be asked before anything can be looked up.
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* memory, size_t size);

/// The allocations of C++ and of SQLite; the name service and others of the system's libraries end
/// the process when theirs fail.
static int lacksMemory(const void* caller) {
  if (!begun_ || strcmp(call_, "malloc") != 0) return 0;
  Dl_info from;
  if (dladdr(caller, &from) == 0 || from.dli_fname == NULL) return 0;
  const int counts = strstr(from.dli_fname, "paperway") != NULL ||
                     strstr(from.dli_fname, "stdc++") != NULL ||
                     strstr(from.dli_fname, "sqlite") != NULL;
  return counts && strikes("memory");
}
void* malloc(size_t size) {
  return lacksMemory(__builtin_return_address(0)) ? NULL : __libc_malloc(size);
}
void* calloc(size_t count, size_t size) {
  return lacksMemory(__builtin_return_address(0)) ? NULL : __libc_calloc(count, size);
}
void* realloc(void* memory, size_t size) {
  return lacksMemory(__builtin_return_address(0)) ? NULL : __libc_realloc(memory, size);
}

typedef int Main(int, char**, char**);
static Main* main_;

static int faultyMain(int count, char** words, char** environment) {
  const char* at = getenv("FAULT_AT");
  const char* error = getenv("FAULT_ERROR");
  call_ = getenv("FAULT_CALL");
  below_ = getenv("FAULT_BELOW");
  report_ = getenv("FAULT_REPORT");
  stays_ = getenv("FAULT_STAYS") != NULL;
  alarm(kPatience);
  if (call_ != NULL && at != NULL && error != NULL && below_ != NULL && report_ != NULL) {
    at_ = atol(at);
    error_ = atoi(error);
    begun_ = 1;
  }
  return main_(count, words, environment);
}

int __libc_start_main(Main* entry, int count, char** words, void (*before)(void),
                      void (*after)(void), void (*unload)(void), void* stackEnd) {
  main_ = entry;
  return REAL(__libc_start_main)(faultyMain, count, words, before, after, unload, stackEnd);
}
