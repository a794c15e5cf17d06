#pragma once

#include <cstddef>
#include <filesystem>
#include <span>

#include "caretaker/backup/Manifest.h"

namespace lantos {

// A file that nobody else knows of yet: a copy, or an archive in the making. Throws FileError.
class PlainFile {
 public:
  enum class Mode {
    Read,
    Anew,  // in the place of one that may be there
  };

  PlainFile(std::filesystem::path path, Mode mode);
  ~PlainFile();
  PlainFile(const PlainFile&) = delete;

  int Descriptor() const { return descriptor_; }
  void Write(std::span<const std::byte> bytes);
  // 0 at the end.
  std::size_t Read(std::span<std::byte> into) const;
  // To the disk, with a time of change in seconds since 1970.
  void Finish(std::int64_t changedAt);
  void Flush();
  // Length, checksum and time of what it holds, from where it is read; without the name.
  BackedFile Described() const;

 private:
  std::filesystem::path path_;
  int descriptor_;
};

// A directory's names, on the disk when it returns; what can't be pushed there is left to the system.
void FlushDirectory(const std::filesystem::path& directory);

// A folder of this program's own, gone at the end.
class ScratchFolder {
 public:
  // Made under a free name that begins so, for this user alone. Throws FileError.
  explicit ScratchFolder(const std::filesystem::path& beginning);
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace lantos
