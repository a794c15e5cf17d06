#include "frame/GuardedOpen.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "frame/UnfitFile.h"
#include "frame/Uninterrupted.h"

namespace lantos {

namespace fs = std::filesystem;

namespace {

constexpr mode_t kNewFileMode = 0666;  // the umask takes from it
constexpr mode_t kOwnersMode = 0600;
constexpr mode_t kModeOfOthers = 0066;  // group and others, reading and writing
constexpr int kGuards = O_CLOEXEC | O_NOFOLLOW | O_NOCTTY;

// A pipe or a device must not be waited for before it is seen what it is. A file that a file server has lent to one of
// its clients isn't given to who doesn't wait: that is a moment's matter, and regular files alone are lent.
int OpenGuarded(const fs::path& path, int flags) {
  const int descriptor = Uninterrupted([&] { return ::open(path.c_str(), flags | kGuards | O_NONBLOCK); });
  struct stat status = {};
  if (descriptor >= 0 || errno != EAGAIN) return descriptor;
  if (::lstat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return descriptor;
  return Uninterrupted([&] { return ::open(path.c_str(), flags | kGuards); });
}

fs::path DirectoryOf(const fs::path& path) { return path.has_parent_path() ? path.parent_path() : fs::path("."); }

bool IsBelow(const fs::path& path, const fs::path& directory) {
  const fs::path relative = path.lexically_relative(directory);
  return !relative.empty() && *relative.begin() != "..";
}

// Where a link leads, empty when it may not be followed.
fs::path TargetOf(const fs::path& link, Links links) {
  std::error_code failed;
  const fs::path target = fs::canonical(link, failed);
  if (failed) return {};
  if (links == Links::Followed) return target;
  const fs::path directory = fs::canonical(DirectoryOf(link), failed);
  return !failed && IsBelow(target, directory) ? target : fs::path();
}

int Refuse(int descriptor, int errorNumber) {
  if (descriptor >= 0) ::close(descriptor);
  errno = errorNumber;
  return -1;
}

void TakeModeOfDirectory(int descriptor, const fs::path& path) {
  struct stat directory = {};
  if (::stat(DirectoryOf(path).c_str(), &directory) != 0 || (directory.st_mode & S_ISGID) == 0) return;
  // Where it isn't granted, the mode that the umask left is the one to live with.
  [[maybe_unused]] const int granted = ::fchmod(descriptor, kOwnersMode | (directory.st_mode & kModeOfOthers));
}

}  // namespace

int OpenExistingFile(const fs::path& path, int flags, Links links) noexcept try {
  int descriptor = OpenGuarded(path, flags);
  if (descriptor < 0 && errno == ELOOP) {
    const fs::path target = TargetOf(path, links);
    if (target.empty()) return Refuse(-1, ELOOP);
    descriptor = OpenGuarded(target, flags);
  }
  struct stat status = {};
  if (descriptor < 0 || ::fstat(descriptor, &status) != 0) return Refuse(descriptor, errno);
  return S_ISREG(status.st_mode) ? descriptor : Refuse(descriptor, ENODEV);
} catch (...) {
  return Refuse(-1, ENOMEM);
}

int MakeFile(const fs::path& path, int flags) noexcept try {
  const int descriptor = Uninterrupted(
      [&] { return ::open(path.c_str(), flags | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kNewFileMode); });
  if (descriptor >= 0) TakeModeOfDirectory(descriptor, path);
  return descriptor;
} catch (...) {
  return Refuse(-1, ENOMEM);
}

bool LeadsOut(const fs::path& link) {
  std::error_code failed;
  return fs::is_symlink(link, failed) && TargetOf(link, Links::KeptInside).empty();
}

void RefuseUnfit(int errorNumber, const fs::path& path) {
  if (errorNumber == ELOOP) throw UnfitFile(path, UnfitFile::Why::LeadsAway);
  if (errorNumber == ENODEV || errorNumber == ENXIO || errorNumber == EISDIR) {
    throw UnfitFile(path, UnfitFile::Why::NotRegular);
  }
}

}  // namespace lantos
