#include "apps/paperway/standard_output.h"

#include <cerrno>
#include <fcntl.h>
#include <iostream>
#include <unistd.h>

#include "platform/file_error.h"

namespace paperway::command {

StandardOutput::StandardOutput() : before_(std::cout.rdbuf(this)) {
  setp(buffer_.data(), buffer_.data() + buffer_.size());
}

StandardOutput::~StandardOutput() {
  sync();
  std::cout.rdbuf(before_);
}

int StandardOutput::sync() {
  const char* at = pbase();
  while (at < pptr() && error_ == 0) {
    const ssize_t size = write(STDOUT_FILENO, at, static_cast<std::size_t>(pptr() - at));
    if (size >= 0) {
      at += size;
    } else if (errno != EINTR) {
      error_ = errno;
    }
  }
  setp(buffer_.data(), buffer_.data() + buffer_.size());
  return error_ == 0 ? 0 : -1;
}

StandardOutput::int_type StandardOutput::overflow(int_type character) {
  if (sync() != 0) return traits_type::eof();
  if (!traits_type::eq_int_type(character, traits_type::eof())) {
    sputc(traits_type::to_char_type(character));
  }
  return traits_type::not_eof(character);
}

void StandardOutput::finish() {
  if (sync() != 0)
    raiseFileError("write", "standard output", {error_, std::generic_category()}, "paperway");
}

void holdStandardDescriptors() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(descriptor, F_GETFD) >= 0) continue;
    open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

}  // namespace paperway::command
