#include "backends/headless/plain_storage.h"

#include <cerrno>
#include <cstdio>
#include <system_error>

namespace paperway::headless {
namespace {

namespace fs = std::filesystem;
using Kind = FileStatus::Kind;

[[noreturn]] void raise(std::errc error) {
  throw std::system_error(std::make_error_code(error));
}

[[noreturn]] void raiseLast() {
  throw std::system_error(errno, std::generic_category());
}

/// A path that names no file, or lies below one, leads to none.
FileStatus statusAt(const fs::path& path) {
  const fs::file_type type = fs::status(path).type();
  if (type == fs::file_type::not_found) return {};
  if (type == fs::file_type::directory) return {Kind::folder};
  if (type != fs::file_type::regular) return {Kind::stream};
  return {Kind::regular, fs::file_size(path), fs::last_write_time(path).time_since_epoch().count()};
}

void setAccess(const fs::path& path, FileAccess access) {
  if (access == FileAccess::usual) return;
  constexpr fs::perms kOwner = fs::perms::owner_read | fs::perms::owner_write;
  fs::permissions(path, access == FileAccess::owner ? kOwner : fs::perms::owner_all);
}

class PlainFile : public StoredFile {
 public:
  PlainFile(fs::path path, const char* mode)
      : path_(std::move(path)), file_(std::fopen(path_.string().c_str(), mode)) {
    if (!file_) raiseLast();
    std::setvbuf(file_.get(), nullptr, _IONBF, 0);
  }

  FileStatus status() override { return statusAt(path_); }
  std::size_t read(char* bytes, std::size_t size) override {
    const std::size_t got = std::fread(bytes, 1, size, file_.get());
    if (std::ferror(file_.get()) != 0) raiseLast();
    return got;
  }
  void rewind() override {
    if (std::fseek(file_.get(), 0, SEEK_SET) != 0) raiseLast();
  }
  void write(std::string_view bytes) override {
    if (std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size()) raiseLast();
  }
  void takeAccessOf(const fs::path& other) override {
    fs::permissions(path_, fs::status(other).permissions() & fs::perms::all);
  }
  void sync() override {}
  void finish() override {
    if (std::fflush(file_.get()) != 0) raiseLast();
  }
  bool lock(std::chrono::milliseconds /*patience*/) override { return true; }
  bool isAt(const fs::path& path) override { return path == path_; }

 private:
  struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  const fs::path path_;
  std::unique_ptr<std::FILE, Closer> file_;
};

class PlainStorage : public paperway::Storage {
 public:
  FileStatus status(const Path& path) override { return statusAt(path); }

  bool isSame(const Path& one, const Path& other) override {
    return fs::exists(one) && fs::exists(other) && fs::equivalent(one, other);
  }

  Path behindLinks(const Path& path) override {
    return fs::is_symlink(fs::symlink_status(path)) ? fs::weakly_canonical(path) : path;
  }

  std::unique_ptr<StoredFile> openToRead(const Path& path) override {
    if (fs::is_directory(path)) raise(std::errc::is_a_directory);
    return std::make_unique<PlainFile>(path, "rb");
  }

  std::unique_ptr<StoredFile> openToAppend(const Path& path) override {
    return std::make_unique<PlainFile>(path, "ab");
  }

  std::unique_ptr<StoredFile> openToChange(const Path& path, FileAccess access) override {
    const bool isNew = !fs::exists(path);
    auto file = std::make_unique<PlainFile>(path, "a+b");
    if (isNew) setAccess(path, access);
    return file;
  }

  std::unique_ptr<StoredFile> create(const Path& path, FileAccess access) override {
    auto file = std::make_unique<PlainFile>(path, "wbx");
    setAccess(path, access);
    return file;
  }

  void rename(const Path& from, const Path& to) override { fs::rename(from, to); }

  void remove(const Path& path) override { fs::remove(path); }

  /// Whether its maker is still there cannot be told.
  void removeAbandoned(const Path& /*path*/) override {}

  void syncFolder(const Path& /*folder*/) override {}

  std::vector<Path> names(const Path& folder) override {
    std::vector<Path> names;
    for (const auto& entry : fs::directory_iterator(folder))
      names.push_back(entry.path().filename());
    return names;
  }

  void makeWritable(const Path& path) override {
    std::error_code ignored;  // the user may write to a file without owning it
    fs::permissions(path, fs::perms::owner_write, fs::perm_options::add, ignored);
  }
};

}  // namespace

std::unique_ptr<paperway::Storage> plainStorage() {
  return std::make_unique<PlainStorage>();
}

}  // namespace paperway::headless
