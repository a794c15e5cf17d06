#include "frame/SharedFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <utility>

#include "frame/GuardedOpen.h"
#include "frame/SharingClaim.h"
#include "frame/UnfitFile.h"
#include "frame/Uninterrupted.h"

#ifndef F_OFD_SETLK
#error "SharedFile is built on the open-file-description locks of Linux"
#endif

namespace lantos {

namespace {

constexpr int kSlotTries = 4;
constexpr int kReplacedTries = 100;
constexpr std::uint64_t kLargestOffset = static_cast<std::uint64_t>(std::numeric_limits<off_t>::max());

// The lock calls want a descriptor that may write for an exclusive claim, so a read that denies all opens for both.
int FlagsOf(Access access, Deny deny) {
  if (deny == Deny::All || access == Access::ReadWrite) return O_RDWR;
  return access == Access::Read ? O_RDONLY : O_WRONLY;
}

[[noreturn]] void ThrowNotOpened(int errorNumber, const std::filesystem::path& path) {
  std::error_code ignored;
  if (errorNumber == ENOENT && !std::filesystem::is_directory(path.parent_path(), ignored) && path.has_parent_path()) {
    throw FileError(FileErrorNumber::PathNotFound, "opening " + path.string());
  }
  RefuseUnfit(errorNumber, path);
  ThrowFileError(errorNumber, "opening " + path.string());
}

// An existing file is opened without asking for creation: systems that guard shared directories refuse such a request
// for files of other owners.
int OpenDescriptor(const std::filesystem::path& path, int flags, Absent absent) {
  int descriptor = OpenExistingFile(path, flags);
  // Another copy may make the file in between, and delete it again.
  for (int i = 0; descriptor < 0 && errno == ENOENT && absent == Absent::Create && i < kReplacedTries; ++i) {
    descriptor = MakeFile(path, flags);
    if (descriptor < 0 && errno == EEXIST) descriptor = OpenExistingFile(path, flags);
  }
  if (descriptor < 0) ThrowNotOpened(errno, path);
  return descriptor;
}

struct flock RangeOf(const Claim& claim) {
  struct flock range = {};
  range.l_type = claim.exclusive ? F_WRLCK : F_RDLCK;
  range.l_whence = SEEK_SET;
  range.l_start = static_cast<off_t>(claim.first);
  range.l_len = static_cast<off_t>(claim.count);
  return range;
}

// Any other error of the lock call means that there are no locks.
bool IsTaken(int errorNumber) { return errorNumber == EAGAIN || errorNumber == EACCES; }

off_t RandomSlot(const Claim& claim) {
  return static_cast<off_t>(claim.first + ::arc4random_uniform(static_cast<std::uint32_t>(claim.count)));
}

}  // namespace

// The delegation makes the object complete, so that a throw below runs the destructor, which closes.
SharedFile::SharedFile(const std::filesystem::path& path, Access access, Deny deny, Absent absent) : SharedFile() {
  path_ = path;
  access_ = access;
  alone_ = deny == Deny::All || (deny == Deny::Write && access != Access::Read);
  const Claim claim = ClaimOf(access, deny);
  for (int i = 0; i < kReplacedTries; ++i) {
    descriptor_ = OpenDescriptor(path_, FlagsOf(access, deny), absent);
    TakeClaim(claim);
    if (IsStillAtItsPath()) return;
    Release();
  }
  throw FileError(FileErrorNumber::PermissionDenied, "opening " + path_.string() + ": replaced again and again");
}

SharedFile::~SharedFile() { Release(); }

SharedFile::SharedFile(SharedFile&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)),
      access_(other.access_),
      wasWritten_(other.wasWritten_),
      alone_(other.alone_),
      aloneLength_(other.aloneLength_),
      path_(std::move(other.path_)) {}

SharedFile& SharedFile::operator=(SharedFile&& other) noexcept {
  if (this != &other) {
    Release();
    descriptor_ = std::exchange(other.descriptor_, -1);
    access_ = other.access_;
    wasWritten_ = other.wasWritten_;
    alone_ = other.alone_;
    aloneLength_ = other.aloneLength_;
    path_ = std::move(other.path_);
  }
  return *this;
}

// The claim is the check: there is no looking before it, and it never waits.
void SharedFile::TakeClaim(const Claim& claim) const {
  struct flock range = RangeOf(claim);
  for (int i = 0; i < (claim.oneSlot ? kSlotTries : 1); ++i) {
    if (claim.oneSlot) {
      range.l_start = RandomSlot(claim);
      range.l_len = 1;
    }
    if (Uninterrupted([&] { return ::fcntl(descriptor_, F_OFD_SETLK, &range); }) == 0) return;
    if (!IsTaken(errno)) {
      throw UnfitFile(path_, UnfitFile::Why::NoLocks, std::strerror(errno));
    }
  }
  throw FileError(FileErrorNumber::PermissionDenied, "opening " + path_.string() + ": in use");
}

// A claim on a file that was deleted or replaced in the meantime would keep nobody out.
bool SharedFile::IsStillAtItsPath() {
  struct stat mine = {};
  struct stat there = {};
  if (::fstat(descriptor_, &mine) != 0) ThrowFileError(errno, "looking at " + path_.string());
  aloneLength_ = static_cast<std::int64_t>(mine.st_size);
  return ::stat(path_.c_str(), &there) == 0 && mine.st_dev == there.st_dev && mine.st_ino == there.st_ino;
}

std::uint64_t SharedFile::Length() const {
  struct stat status = {};
  if (::fstat(descriptor_, &status) != 0) ThrowFileError(errno, "measuring " + path_.string());
  return static_cast<std::uint64_t>(status.st_size);
}

std::size_t SharedFile::ReadAt(std::uint64_t offset, std::span<std::byte> into) const {
  if (access_ == Access::Write) ThrowFileError(EBADF, "reading " + path_.string() + ", opened for writing only");
  std::size_t done = 0;
  // A damaged link may point anywhere: what no file can hold is past its end.
  const bool possible = offset <= kLargestOffset && into.size() <= kLargestOffset - offset;
  while (possible && done < into.size()) {
    const ssize_t count = Uninterrupted([&] {
      return ::pread(descriptor_, into.data() + done, into.size() - done, static_cast<off_t>(offset + done));
    });
    if (count < 0) ThrowFileError(errno, "reading " + path_.string() + " at " + std::to_string(offset));
    if (count == 0) break;
    done += static_cast<std::size_t>(count);
  }
  std::fill(into.begin() + static_cast<std::ptrdiff_t>(done), into.end(), std::byte{0});
  return done;
}

void SharedFile::WriteAt(std::uint64_t offset, std::span<const std::byte> bytes) {
  RequireWritable();
  const auto what = [&] { return "writing " + path_.string() + " at " + std::to_string(offset); };
  if (offset > kLargestOffset || bytes.size() > kLargestOffset - offset) ThrowFileError(EINVAL, what());
  const std::uint64_t lengthBefore = alone_ && aloneLength_ >= 0 ? static_cast<std::uint64_t>(aloneLength_) : Length();
  aloneLength_ = -1;
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t count = Uninterrupted([&] {
      return ::pwrite(descriptor_, bytes.data() + done, bytes.size() - done, static_cast<off_t>(offset + done));
    });
    if (count <= 0) {
      const int errorNumber = count == 0 ? ENOSPC : errno;
      CutBack(lengthBefore, offset + done);
      ThrowFileError(errorNumber, what());
    }
    wasWritten_ = true;
    done += static_cast<std::size_t>(count);
  }
  aloneLength_ = static_cast<std::int64_t>(std::max(lengthBefore, offset + bytes.size()));
}

std::uint64_t SharedFile::Append(std::span<const std::byte> bytes, std::uint64_t unit) {
  RequireWritable();
  struct flock turn = {};
  turn.l_type = F_WRLCK;
  turn.l_whence = SEEK_SET;
  turn.l_start = static_cast<off_t>(kAppendTurn);
  turn.l_len = 1;
  if (Uninterrupted([&] { return ::fcntl(descriptor_, F_OFD_SETLK, &turn); }) != 0) {
    if (!IsTaken(errno)) throw UnfitFile(path_, UnfitFile::Why::NoLocks, std::strerror(errno));
    ThrowFileError(EAGAIN, "waiting to append to " + path_.string());
  }
  const auto release = [&] {
    turn.l_type = F_UNLCK;
    Uninterrupted([&] { return ::fcntl(descriptor_, F_OFD_SETLK, &turn); });
  };
  const std::uint64_t length = Length();
  const std::uint64_t offset = length - length % unit;
  try {
    WriteAt(offset, bytes);
  } catch (...) {
    release();
    throw;
  }
  release();
  return offset;
}

// Only when the file ends where this write broke off: what another writer appended in the meantime is never cut.
void SharedFile::CutBack(std::uint64_t lengthBefore, std::uint64_t endOfWritten) const {
  struct stat status = {};
  if (endOfWritten <= lengthBefore || ::fstat(descriptor_, &status) != 0) return;
  if (static_cast<std::uint64_t>(status.st_size) != endOfWritten) return;
  // When even this fails, the error of the write is the one to tell.
  [[maybe_unused]] const int result = ::ftruncate(descriptor_, static_cast<off_t>(lengthBefore));
}

void SharedFile::Truncate(std::uint64_t length) {
  RequireWritable();
  aloneLength_ = -1;
  // A length beyond the system's offsets turns negative here, and is refused by the call.
  const int result = Uninterrupted([&] { return ::ftruncate(descriptor_, static_cast<off_t>(length)); });
  if (result != 0) ThrowFileError(errno, "cutting " + path_.string() + " to " + std::to_string(length));
  wasWritten_ = true;
}

void SharedFile::RequireWritable() const {
  if (access_ == Access::Read) ThrowFileError(EBADF, "writing " + path_.string() + ", opened for reading only");
}

void SharedFile::Flush() {
  if (Uninterrupted([&] { return ::fsync(descriptor_); }) != 0) ThrowFileError(errno, "flushing " + path_.string());
}

void SharedFile::Close() {
  const int errorNumber = Release();
  if (errorNumber != 0 && errorNumber != EINTR) ThrowFileError(errorNumber, "closing " + path_.string());
}

// Nothing is buffered here, so there is nothing to write first. The unlocking is explicit, since a forked child may
// still hold the descriptor, and with it the lock.
int SharedFile::Release() noexcept {
  if (descriptor_ < 0) return 0;
  struct flock all = {};
  all.l_type = F_UNLCK;
  all.l_whence = SEEK_SET;
  Uninterrupted([&] { return ::fcntl(descriptor_, F_OFD_SETLK, &all); });
  return ::close(std::exchange(descriptor_, -1)) == 0 ? 0 : errno;
}

}  // namespace lantos
