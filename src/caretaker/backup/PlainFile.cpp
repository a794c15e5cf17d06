#include "caretaker/backup/PlainFile.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <vector>

#include "caretaker/backup/Checksum.h"
#include "frame/FileError.h"
#include "frame/GuardedOpen.h"
#include "frame/PathText.h"

namespace lantos {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kBlock = std::size_t{1} << 20;

[[noreturn]] void Fail(std::string_view doing, const fs::path& path) {
  ThrowFileError(errno, fmt::format("{} \"{}\"", doing, TextOfPath(path)));
}

int OpenAs(const fs::path& path, PlainFile::Mode mode) {
  if (mode == PlainFile::Mode::Read) return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
  ::unlink(path.c_str());
  return MakeFile(path, O_WRONLY | O_CLOEXEC);
}

}  // namespace

PlainFile::PlainFile(fs::path path, Mode mode) : path_(std::move(path)), descriptor_(OpenAs(path_, mode)) {
  if (descriptor_ < 0) Fail("opening", path_);
}

PlainFile::~PlainFile() { ::close(descriptor_); }

void PlainFile::Write(std::span<const std::byte> bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor_, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) Fail("writing", path_);
    bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
}

std::size_t PlainFile::Read(std::span<std::byte> into) const {
  for (;;) {
    const ssize_t count = ::read(descriptor_, into.data(), into.size());
    if (count >= 0) return static_cast<std::size_t>(count);
    if (errno != EINTR) Fail("reading", path_);
  }
}

void PlainFile::Finish(std::int64_t changedAt) {
  const std::array<struct timespec, 2> times = {{{changedAt, 0}, {changedAt, 0}}};
  ::futimens(descriptor_, times.data());
  Flush();
}

void PlainFile::Flush() {
  if (::fsync(descriptor_) != 0) Fail("writing", path_);
}

BackedFile PlainFile::Described() const {
  BackedFile file;
  Checksum checksum;
  std::vector<std::byte> block(kBlock);
  while (const std::size_t count = Read(block)) {
    checksum.Add(std::span<const std::byte>(block.data(), count));
    file.length += count;
  }
  struct stat stamp = {};
  if (::fstat(descriptor_, &stamp) != 0) Fail("reading", path_);
  file.changedAt = stamp.st_mtim.tv_sec;
  file.checksum = checksum.Take();
  return file;
}

namespace {

// -1 where it can't be opened.
int OpenFolder(const fs::path& folder) {
  return ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW);
}

bool IsStillNamed(int descriptor, const fs::path& folder) {
  struct stat opened = {}, named = {};
  return ::fstat(descriptor, &opened) == 0 && ::lstat(folder.c_str(), &named) == 0 && opened.st_dev == named.st_dev &&
         opened.st_ino == named.st_ino;
}

}  // namespace

// Between the making and the lock somebody may take it for a dead one's: then another is made.
ScratchFolder::ScratchFolder(const fs::path& beginning) {
  for (;;) {
    std::string name = beginning.string() + "-XXXXXX";
    if (::mkdtemp(name.data()) == nullptr) Fail("making a folder beside", beginning);
    path_ = name;
    lock_ = OpenFolder(path_);
    const bool isTaken = lock_ >= 0 && ::flock(lock_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    if (!isTaken && lock_ >= 0 && IsStillNamed(lock_, path_)) return;
    if (lock_ < 0 && errno != ENOENT) return;
    if (lock_ >= 0) ::close(lock_);
  }
}

ScratchFolder::~ScratchFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
  if (lock_ >= 0) ::close(lock_);
}

bool RemoveIfDead(const fs::path& folder) {
  const int lock = OpenFolder(folder);
  if (lock < 0) return false;
  std::error_code error;
  const bool isDead = ::flock(lock, LOCK_EX | LOCK_NB) == 0 && IsStillNamed(lock, folder);
  const bool isRemoved = isDead && fs::remove_all(folder, error) > 0 && !error;
  ::close(lock);
  return isRemoved;
}

}  // namespace lantos
