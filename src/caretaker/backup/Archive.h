#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "caretaker/backup/Manifest.h"

struct archive;

namespace lantos {

// A backup is a tar archive, compressed by zstd: the manifest, then the files in its order. "tar --zstd -x" unpacks it
// where there is no program of ours.

// Hears how many bytes of the shop were written or read so far.
using TellBytes = std::function<void(std::uint64_t)>;

// Writes the archive from a folder that holds the files of the manifest. On the disk when it returns. Throws FileError,
// BackupError.
void WriteArchive(const std::filesystem::path& archive, const Manifest& manifest, const std::filesystem::path& from,
                  const TellBytes& tell);

// Reads an archive that anybody may have made: nothing of it is trusted but what fits its manifest.
class ArchiveReader {
 public:
  // Reads the manifest. Throws BackupError.
  explicit ArchiveReader(const std::filesystem::path& archive);
  ~ArchiveReader();
  ArchiveReader(const ArchiveReader&) = delete;

  const Manifest& What() const { return manifest_; }
  // Every file of the archive is read to its end, and held against its length and checksum; those that are wanted go to
  // the folder. Throws BackupError, which names the file, or FileError.
  void Unpack(const std::filesystem::path& into, const std::function<bool(const BackedFile&)>& isWanted,
              const TellBytes& tell);

 private:
  std::string NextEntry(std::uint64_t& length);
  std::size_t ReadData(void* into, std::size_t size);
  void UnpackOne(const BackedFile& file, const std::filesystem::path* into, const TellBytes& tell);
  [[noreturn]] void RefuseDamage(const std::string& why) const;

  std::filesystem::path path_;
  struct Closing {
    void operator()(struct archive* archive) const;
  };
  std::unique_ptr<struct archive, Closing> archive_;
  Manifest manifest_;
  std::uint64_t bytes_ = 0;
};

}  // namespace lantos
