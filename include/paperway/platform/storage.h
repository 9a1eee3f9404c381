#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string_view>
#include <vector>

#include "paperway/export.h"

namespace paperway {

/// What a path leads to, as the file itself says.
struct FileStatus {
  enum class Kind {
    none,     // there is no such file; a failure to find out is an error
    regular,  // may be replaced
    folder,
    stream,  // a device, pipe or socket, or something that the process was handed already open
  };

  Kind kind = Kind::none;
  std::uint64_t size = 0;    // bytes, of a regular file
  std::int64_t written = 0;  // when it was last written, in ticks of the storage's own

  bool operator==(const FileStatus&) const = default;
};

/// Who may use a file.
enum class FileAccess {
  usual,      // a new one as the user's other files; a replaced one stays as it was
  owner,      // the user alone
  ownerRuns,  // the user alone, who may also run it
};

/// An open file; it is closed when the object goes.
class PAPERWAY_API StoredFile {
 public:
  virtual ~StoredFile() = default;

  virtual FileStatus status() = 0;
  /// Number of bytes that were read; 0 at the end.
  virtual std::size_t read(char* bytes, std::size_t size) = 0;
  /// Back to the beginning.
  virtual void rewind() = 0;
  /// All of the bytes, or an error.
  virtual void write(std::string_view bytes) = 0;
  /// Gives the file the permissions and the owner of another, as far as the user may; never wider
  /// ones.
  virtual void takeAccessOf(const std::filesystem::path& other) = 0;
  /// Returns when what was written survives a loss of power.
  virtual void sync() = 0;
  /// Raises what only a close would tell; the file stays in use.
  virtual void finish() = 0;
  /// Makes the file the caller's alone until it is closed, among those who ask; false when another
  /// kept it for so long.
  virtual bool lock(std::chrono::milliseconds patience) = 0;
  /// True while the path leads to this file.
  virtual bool isAt(const std::filesystem::path& path) = 0;
};

/// The files of the machine: how they are opened, replaced and made to last. All of the library
/// that reads or writes a file does it by these steps, most of it through InputFile and OutputFile.
/// Each step that fails raises a std::system_error with the reason as its code.
class PAPERWAY_API Storage {
 public:
  using Path = std::filesystem::path;

  virtual ~Storage() = default;

  virtual FileStatus status(const Path& path) = 0;
  /// True when both lead to one file, by whatever name; false when one of them leads to none.
  virtual bool isSame(const Path& one, const Path& other) = 0;
  /// The path without the symbolic link that it may end in. What is behind it need not exist.
  virtual Path behindLinks(const Path& path) = 0;

  /// A folder is refused.
  virtual std::unique_ptr<StoredFile> openToRead(const Path& path) = 0;
  /// To write behind what is there; for streams.
  virtual std::unique_ptr<StoredFile> openToAppend(const Path& path) = 0;
  /// To read, lock and write; an empty file is made where there is none.
  virtual std::unique_ptr<StoredFile> openToChange(const Path& path, FileAccess access) = 0;
  /// A new file, marked as in use until it is closed. An error (file_exists) where there is one.
  virtual std::unique_ptr<StoredFile> create(const Path& path, FileAccess access) = 0;

  /// Puts a file in another's place in one step.
  virtual void rename(const Path& from, const Path& to) = 0;
  virtual void remove(const Path& path) = 0;
  /// Removes a file that create() made, unless its maker still has it open.
  virtual void removeAbandoned(const Path& path) = 0;
  /// Returns when the names in the folder survive a loss of power.
  virtual void syncFolder(const Path& folder) = 0;
  /// The names in a folder, in any order.
  virtual std::vector<Path> names(const Path& folder) = 0;
  /// Clears the read-only mark that the user's own file may have.
  virtual void makeWritable(const Path& path) = 0;
};

}  // namespace paperway
