#include "frame/UpdateTurn.h"

#include <fcntl.h>
#include <unistd.h>

#include "frame/SharingClaim.h"

namespace lantos {

namespace {

constexpr std::int64_t kPause = 20;  // milliseconds
constexpr int kTries = 250;

}  // namespace

UpdateTurn::UpdateTurn(const std::filesystem::path& path, Clock& clock)
    : descriptor_(::open(path.c_str(), O_RDWR | O_CLOEXEC)) {
  struct flock turn = {};
  turn.l_type = F_WRLCK;
  turn.l_whence = SEEK_SET;
  turn.l_start = static_cast<off_t>(kUpdateTurn);
  turn.l_len = 1;
  for (int i = 0; descriptor_ >= 0 && i < kTries; ++i) {
    if (::fcntl(descriptor_, F_OFD_SETLK, &turn) == 0) return;
    clock.Wait(kPause);
  }
}

UpdateTurn::~UpdateTurn() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

}  // namespace lantos
