#include "frame/DirectoryWatch.h"

#ifdef __linux__
#include <sys/inotify.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "frame/Uninterrupted.h"
#endif

#include <utility>

namespace lantos {

DirectoryWatch::DirectoryWatch(DirectoryWatch&& other) noexcept
    : queue_(std::exchange(other.queue_, -1)), watch_(std::exchange(other.watch_, -1)) {}

DirectoryWatch& DirectoryWatch::operator=(DirectoryWatch&& other) noexcept {
  std::swap(queue_, other.queue_);
  std::swap(watch_, other.watch_);
  return *this;
}

#ifdef __linux__

namespace {

constexpr std::uint32_t kComing = IN_CREATE | IN_MOVED_TO;
constexpr std::uint32_t kGoing = IN_DELETE | IN_MOVED_FROM;
constexpr std::uint32_t kDirectoryItself = IN_DELETE_SELF | IN_MOVE_SELF;
constexpr std::uint32_t kMissed = kDirectoryItself | IN_UNMOUNT | IN_IGNORED;

// The kernel's marks of file systems on disks of this machine, and in its memory: <linux/magic.h>.
constexpr std::uint32_t kFileSystemsHere[] = {
    0xEF53,      // ext2 to ext4
    0x58465342,  // XFS
    0x9123683E,  // Btrfs
    0x01021994,  // tmpfs
};

bool IsOnDiskHere(const char* directory) {
  struct statfs status {};
  if (::statfs(directory, &status) != 0) return false;
  const auto mark = static_cast<std::uint32_t>(status.f_type);
  return std::find(std::begin(kFileSystemsHere), std::end(kFileSystemsHere), mark) != std::end(kFileSystemsHere);
}

}  // namespace

DirectoryWatch::~DirectoryWatch() {
  if (queue_ >= 0) ::close(queue_);
}

bool DirectoryWatch::Begin(const std::string& directory) {
  End();
  const char* path = directory.empty() ? "." : directory.c_str();
  if (!IsOnDiskHere(path)) return false;
  if (queue_ < 0) queue_ = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
  if (queue_ < 0) return false;
  Drain();
  watch_ = ::inotify_add_watch(queue_, path, kComing | kGoing | kDirectoryItself | IN_ONLYDIR);
  return Stands();
}

// The queue stays, since to close one takes the kernel milliseconds.
void DirectoryWatch::End() {
  if (Stands()) ::inotify_rm_watch(queue_, watch_);
  watch_ = -1;
}

DirectoryWatch::Told DirectoryWatch::Lost() {
  End();
  return Told::Lost;
}

void DirectoryWatch::Drain() {
  std::array<char, 4096> events;
  while (::read(queue_, events.data(), events.size()) > 0) {
  }
}

DirectoryWatch::Told DirectoryWatch::Take(const std::function<void(std::string_view name, bool isThere)>& tell) {
  if (!Stands()) return Told::Lost;
  alignas(inotify_event) std::array<char, 4096> events;
  for (Told told = Told::Nothing;;) {
    const ssize_t length = Uninterrupted([&] { return ::read(queue_, events.data(), events.size()); });
    if (length < 0 && errno == EAGAIN) return told;
    if (length <= 0) return Lost();
    for (ssize_t at = 0; at < length;) {
      inotify_event event = {};
      std::memcpy(&event, &events[at], sizeof event);
      const char* name = &events[at + sizeof event];
      at += static_cast<ssize_t>(sizeof event + event.len);
      if ((event.mask & IN_Q_OVERFLOW) != 0) return Lost();
      if (event.wd != watch_) continue;  // of a watch that ended
      if ((event.mask & kMissed) != 0 || event.len == 0) return Lost();
      tell(name, (event.mask & kComing) != 0);
      told = Told::Something;
    }
  }
}

#else

DirectoryWatch::~DirectoryWatch() = default;
bool DirectoryWatch::Begin(const std::string&) { return false; }
void DirectoryWatch::End() {}
DirectoryWatch::Told DirectoryWatch::Take(const std::function<void(std::string_view, bool)>&) { return Told::Lost; }

#endif

}  // namespace lantos
