#include "frame/LockedText.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <thread>

#include "frame/UnfitFile.h"

namespace lantos {

namespace {

constexpr int kLockTries = 50;
constexpr std::chrono::milliseconds kBetweenTries{5};
// One byte far beyond the text.
constexpr off_t kLockedByte = off_t{1} << 62;

// An existing file is opened without asking for creation, which guarded directories refuse for other owners' files.
int Open(const std::filesystem::path& path, LockedText::Purpose purpose, Links links) {
  if (purpose == LockedText::Purpose::Reading) return OpenExistingFile(path, O_RDONLY, links);
  const int existing = OpenExistingFile(path, O_RDWR, links);
  if (existing >= 0 || errno != ENOENT) return existing;
  const int made = MakeFile(path, O_RDWR);
  return made >= 0 || errno != EEXIST ? made : OpenExistingFile(path, O_RDWR, links);
}

void Lock(int descriptor, LockedText::Purpose purpose) {
  struct flock claim = {};
  claim.l_type = purpose == LockedText::Purpose::Reading ? F_RDLCK : F_WRLCK;
  claim.l_whence = SEEK_SET;
  claim.l_start = kLockedByte;
  claim.l_len = 1;
  for (int i = 0; i < kLockTries; ++i) {
    if (::fcntl(descriptor, F_OFD_SETLK, &claim) == 0 || (errno != EAGAIN && errno != EACCES)) return;
    std::this_thread::sleep_for(kBetweenTries);
  }
}

}  // namespace

LockedText::LockedText(const std::filesystem::path& path, Purpose purpose, Links links)
    : descriptor_(Open(path, purpose, links)) {
  if (descriptor_ >= 0) Lock(descriptor_, purpose);
}

LockedText::~LockedText() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

std::optional<std::string> LockedText::Read() const {
  struct stat status = {};
  if (descriptor_ < 0 || ::fstat(descriptor_, &status) != 0) return std::nullopt;
  if (static_cast<std::uint64_t>(status.st_size) > kLongestTextFile) return std::nullopt;
  std::string text;
  std::array<char, 4096> block;
  for (;;) {
    const ssize_t count = ::pread(descriptor_, block.data(), block.size(), static_cast<off_t>(text.size()));
    if (count < 0) return std::nullopt;
    if (count == 0) return text;
    text.append(block.data(), static_cast<std::size_t>(count));
  }
}

bool LockedText::Replace(std::string_view text) {
  struct stat before = {};
  if (descriptor_ < 0 || ::fstat(descriptor_, &before) != 0) return false;
  if (!MakeRoom(text.size(), static_cast<std::size_t>(before.st_size))) return false;
  for (std::size_t written = 0; written < text.size();) {
    const std::string_view rest = text.substr(written);
    const ssize_t count = ::pwrite(descriptor_, rest.data(), rest.size(), static_cast<off_t>(written));
    if (count <= 0) return false;
    written += static_cast<std::size_t>(count);
  }
  return ::ftruncate(descriptor_, static_cast<off_t>(text.size())) == 0;
}

// The room is taken before the first byte changes, so that a full disk is told while nothing is lost yet.
bool LockedText::MakeRoom(std::size_t length, std::size_t lengthBefore) {
  if (length <= lengthBefore) return true;
  const auto more = static_cast<off_t>(length - lengthBefore);
  if (::posix_fallocate(descriptor_, static_cast<off_t>(lengthBefore), more) == 0) return true;
  [[maybe_unused]] const int cutBack = ::ftruncate(descriptor_, static_cast<off_t>(lengthBefore));
  return false;
}

}  // namespace lantos
