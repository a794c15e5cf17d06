#include "frame/FileStamp.h"

#include <ctime>

namespace lantos {

namespace {

constexpr std::int64_t kSecond = 1'000'000'000;
// File systems that stamp whole seconds get a wider margin.
constexpr std::int64_t kMargin = 20'000'000;
constexpr std::int64_t kMarginOfWholeSeconds = 2 * kSecond;

std::int64_t Nanoseconds(const timespec& time) { return time.tv_sec * kSecond + time.tv_nsec; }

// Stamps are the kernel's, so they are compared with the kernel's clock; the program's own may stand.
std::int64_t KernelNow() {
  timespec now = {};
  ::clock_gettime(CLOCK_REALTIME_COARSE, &now);
  return Nanoseconds(now);
}

}  // namespace

FileStamp::FileStamp(const struct stat& status)
    : device_(status.st_dev), number_(status.st_ino), changed_(Nanoseconds(status.st_mtim)), length_(status.st_size) {}

FileStamp FileStamp::Of(const std::string& path) {
  struct stat now = {};
  return ::stat(path.c_str(), &now) == 0 ? FileStamp(now) : FileStamp();
}

bool FileStamp::IsSettled() const {
  const std::int64_t margin = changed_ % kSecond == 0 ? kMarginOfWholeSeconds : kMargin;
  return KernelNow() - changed_ > margin;
}

}  // namespace lantos
