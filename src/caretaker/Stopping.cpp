#include "caretaker/Stopping.h"

#include <ctime>

namespace lantos {

namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

bool IsIgnored(int signal) {
  struct sigaction action = {};
  return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

Stopped::Stopped() : WordedError("stopped by a signal", "Stopped, as it was asked to. What was begun is taken back.") {}

Stopping::Stopping() {
  ::sigemptyset(&awaited_);
  for (const int signal : kSignals) {
    if (!IsIgnored(signal)) ::sigaddset(&awaited_, signal);
  }
  ::pthread_sigmask(SIG_BLOCK, &awaited_, &before_);
}

Stopping::~Stopping() {
  const struct timespec atOnce = {};
  while (::sigtimedwait(&awaited_, nullptr, &atOnce) > 0) {
  }
  ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

void Stopping::Look() const {
  sigset_t pending;
  ::sigemptyset(&pending);
  ::sigpending(&pending);
  for (const int signal : kSignals) {
    if (::sigismember(&awaited_, signal) == 1 && ::sigismember(&pending, signal) == 1) throw Stopped();
  }
}

}  // namespace lantos
