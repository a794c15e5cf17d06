#include "frame/UpdateTurns.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "frame/GuardedOpen.h"
#include "frame/SharingClaim.h"
#include "frame/Uninterrupted.h"

namespace lantos {

namespace {

constexpr std::int64_t kPause = 20;  // milliseconds
constexpr int kTries = 250;

}  // namespace

UpdateTurns::UpdateTurns(const std::filesystem::path& path, Clock& clock)
    : clock_(clock), descriptor_(OpenExistingFile(path, O_RDWR)) {}

UpdateTurns::~UpdateTurns() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

bool UpdateTurns::Lock(short type) {
  struct flock turn = {};
  turn.l_type = type;
  turn.l_whence = SEEK_SET;
  turn.l_start = static_cast<off_t>(kUpdateTurn);
  turn.l_len = 1;
  return Uninterrupted([&] { return ::fcntl(descriptor_, F_OFD_SETLK, &turn); }) == 0;
}

bool UpdateTurns::Begin() {
  if (descriptor_ < 0) return true;
  for (int i = 0; i < kTries; ++i) {
    const bool isLocked = Lock(F_WRLCK);
    lacksLocks_ = !isLocked && errno != EAGAIN && errno != EACCES;
    if (isLocked) return true;
    if (lacksLocks_) return false;
    clock_.Wait(kPause);
  }
  return false;
}

void UpdateTurns::End() {
  if (descriptor_ >= 0) Lock(F_UNLCK);
}

}  // namespace lantos
