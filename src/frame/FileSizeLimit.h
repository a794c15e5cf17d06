#pragma once

#include <csignal>

namespace lantos {

// A limit on the length of files (ulimit -f) then fails a write like a full disk; otherwise the system ends the
// process in the middle of its work.
inline void TakeFileSizeLimitAsError() { std::signal(SIGXFSZ, SIG_IGN); }

}  // namespace lantos
