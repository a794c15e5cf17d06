#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <string_view>

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

// What stands behind an archive's name in those of the files that come and go beside it.
inline constexpr std::string_view kCopiesMark = ".copies";
inline constexpr std::string_view kVerifyMark = ".verify";
inline constexpr const char* kBegunEnding = ".part";

// A folder of this program's own, gone at the end. A lock on it, which ends with the process, says that it is in use.
class ScratchFolder {
 public:
  // Made under a free name that begins so, for this user alone. Throws FileError.
  explicit ScratchFolder(const std::filesystem::path& beginning);
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
  int lock_ = -1;
};

// A scratch folder whose owner lives no more is removed. False of any other, and where no such lock can be had.
bool RemoveIfDead(const std::filesystem::path& folder);

}  // namespace lantos
