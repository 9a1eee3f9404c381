#include "backends/headless/plain_storage.h"
#include "paperway/headless.h"

namespace paperway::headless {
namespace {

/// Notes the steps on an open file.
class NotedFile : public StoredFile {
 public:
  NotedFile(Storage& storage, std::unique_ptr<StoredFile> real)
      : storage_(storage), real_(std::move(real)) {}

  FileStatus status() override { return noted("status").status(); }
  std::size_t read(char* bytes, std::size_t size) override {
    return noted("read").read(bytes, size);
  }
  void rewind() override { noted("rewind").rewind(); }
  void write(std::string_view bytes) override { noted("write").write(bytes); }
  void takeAccessOf(const std::filesystem::path& other) override {
    noted("takeAccessOf").takeAccessOf(other);
  }
  void sync() override { noted("sync").sync(); }
  void finish() override { noted("finish").finish(); }
  bool lock(std::chrono::milliseconds patience) override { return noted("lock").lock(patience); }
  bool isAt(const std::filesystem::path& path) override { return noted("isAt").isAt(path); }

 private:
  StoredFile& noted(const char* step) {
    storage_.note(step);
    return *real_;
  }

  Storage& storage_;
  const std::unique_ptr<StoredFile> real_;
};

}  // namespace

Storage::Storage() : own_(plainStorage()), real_(*own_) {}

void Storage::note(const char* step) {
  if (++steps != failAt) return;
  failed = step;
  throw std::system_error(failure);
}

FileStatus Storage::status(const Path& path) {
  note("status");
  return real_.status(path);
}

bool Storage::isSame(const Path& one, const Path& other) {
  note("isSame");
  return real_.isSame(one, other);
}

Storage::Path Storage::behindLinks(const Path& path) {
  note("behindLinks");
  return real_.behindLinks(path);
}

std::unique_ptr<StoredFile> Storage::openToRead(const Path& path) {
  note("openToRead");
  return std::make_unique<NotedFile>(*this, real_.openToRead(path));
}

std::unique_ptr<StoredFile> Storage::openToAppend(const Path& path) {
  note("openToAppend");
  return std::make_unique<NotedFile>(*this, real_.openToAppend(path));
}

std::unique_ptr<StoredFile> Storage::openToChange(const Path& path, FileAccess access) {
  note("openToChange");
  return std::make_unique<NotedFile>(*this, real_.openToChange(path, access));
}

std::unique_ptr<StoredFile> Storage::create(const Path& path, FileAccess access) {
  note("create");
  return std::make_unique<NotedFile>(*this, real_.create(path, access));
}

void Storage::rename(const Path& from, const Path& to) {
  note("rename");
  real_.rename(from, to);
}

void Storage::remove(const Path& path) {
  note("remove");
  real_.remove(path);
}

void Storage::removeAbandoned(const Path& path) {
  note("removeAbandoned");
  real_.removeAbandoned(path);
}

void Storage::syncFolder(const Path& folder) {
  note("syncFolder");
  real_.syncFolder(folder);
}

std::vector<Storage::Path> Storage::names(const Path& folder) {
  note("names");
  return real_.names(folder);
}

void Storage::makeWritable(const Path& path) {
  note("makeWritable");
  real_.makeWritable(path);
}

}  // namespace paperway::headless
