#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "frame/FileError.h"

namespace lantos {

enum class Access { Read, Write, ReadWrite };
enum class Deny { None, Write, All };
// What an open does when the file isn't there. Record and byte stream opens make it, empty; a text is only read.
enum class Absent { Create, Fail };

struct Claim;

// The one way to open a shared file. Two opens conflict exactly when the access of one meets what the other denies;
// the order doesn't matter, and the later one fails at once with FileError 70 (PermissionDenied). Closing, and any
// end of the process, frees the claim.
//
// Only those who come through this door are kept out; docs/sharing.md tells what that means on network mounts.
class SharedFile {
 public:
  SharedFile() = default;
  // Throws FileError: 70 when another open is in the way; 75 when the file or its directory allows no such access, or
  // when the file system grants no locks, for nothing is ever done unlocked; 53 or 76 when there is no such file or
  // directory. The file is not cut.
  SharedFile(const std::filesystem::path& path, Access access, Deny deny, Absent absent = Absent::Create);
  ~SharedFile();
  SharedFile(SharedFile&& other) noexcept;
  SharedFile& operator=(SharedFile&& other) noexcept;
  SharedFile(const SharedFile&) = delete;
  SharedFile& operator=(const SharedFile&) = delete;

  bool IsOpen() const { return descriptor_ >= 0; }
  std::uint64_t Length() const;
  // Reads at a 0-based byte offset. What lies past the end of the file becomes zero. Returns the bytes really read.
  std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> into) const;
  // When the disk is full (61), a file that would have grown is cut back to its earlier length: no half record is left
  // behind it.
  void WriteAt(std::uint64_t offset, std::span<const std::byte> bytes);
  // Writes at the end of the file, as it is then, or where its last whole unit ends. Returns the offset. Of several
  // copies that append at the same moment one has its turn, so that none overwrites the other; FileError 70 for the
  // others, which try again.
  std::uint64_t Append(std::span<const std::byte> bytes, std::uint64_t unit = 1);
  void Truncate(std::uint64_t length);
  // Pushes what was written to the disk.
  void Flush();
  // Also throws what the system has kept back from earlier writes; the claim is freed all the same.
  void Close();
  // Since the opening, or tried to.
  bool WasWritten() const { return wasWritten_; }

 private:
  void TakeClaim(const Claim& claim) const;
  bool IsStillAtItsPath();
  void CutBack(std::uint64_t lengthBefore, std::uint64_t endOfWritten) const;
  void RequireWritable() const;
  int Release() noexcept;  // errno of the close, 0 when it went well

  int descriptor_ = -1;
  Access access_ = Access::Read;
  bool wasWritten_ = false;
  bool alone_ = false;             // nobody else changes the length
  std::int64_t aloneLength_ = -1;  // then, as far as it is known
  std::filesystem::path path_;
};

}  // namespace lantos
