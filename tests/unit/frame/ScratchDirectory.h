#pragma once

#include "support/ScratchDirectory.h"

#include <sys/wait.h>
#include <unistd.h>

namespace lantos::test {

// Begins work in a child process and tells which. Only for a process without other threads: a child of one that has
// them may wait for ever for a lock that another thread held.
template <class Work>
pid_t BeginInChild(Work work) {
  const pid_t child = ::fork();
  if (child == 0) {
    int code = 99;
    try {
      code = work();
    } catch (...) {
    }
    ::_exit(code);
  }
  return child;
}

// What the child's work returned, 99 when it threw, or minus the signal that ended it.
inline int ResultOf(pid_t child) {
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

// Runs what may do lasting things to a process (dropping rights, limits) in a child.
template <class Work>
int InChild(Work work) {
  return ResultOf(BeginInChild(work));
}

// The same without the rights of the superuser, which tests may run as.
template <class Work>
int AsOrdinaryUser(Work work) {
  constexpr uid_t kNobody = 65534;
  return InChild([&] {
    if (::geteuid() == 0 && (::setgid(kNobody) != 0 || ::setuid(kNobody) != 0)) return 98;
    return work();
  });
}

}  // namespace lantos::test
