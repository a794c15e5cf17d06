#pragma once

#include <csignal>
#include <string>

#include "frame/PlainWords.h"

namespace lantos {

// The person has asked for the end of work that was under way; what it had begun is taken back by whoever throws it on.
class Stopped : public WordedError {
 public:
  Stopped();
};

// While one of these lives, Ctrl+C and the signals of a closed terminal or of a system that goes down don't end the
// process: they wait until the work comes to a place where it can be left. What is ignored stays so. One at a time.
class Stopping {
 public:
  Stopping();
  // Who asked behind the last place has come too late.
  ~Stopping();
  Stopping(const Stopping&) = delete;
  Stopping& operator=(const Stopping&) = delete;

  // Throws Stopped when it was asked for.
  void Look() const;

 private:
  sigset_t awaited_{};
  sigset_t before_{};
};

}  // namespace lantos
