#include "caretaker/Stopping.h"

#include <gtest/gtest.h>

#include "caretaker/Telling.h"

namespace lantos::test {
namespace {

TEST(Stopping, HoldsASignalBackUntilTheWorkLooks) {
  const Stopping stopping;
  EXPECT_NO_THROW(stopping.Look());
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    ::raise(signal);
    EXPECT_THROW(stopping.Look(), Stopped);
  }
}

// The process would end here.
TEST(Stopping, ForgetsWhatCameTooLate) {
  {
    const Stopping stopping;
    ::raise(SIGINT);
    ::raise(SIGTERM);
  }
  const Stopping stopping;
  EXPECT_NO_THROW(stopping.Look());
}

TEST(Stopping, LeavesIgnoredWhatIsIgnored) {
  const auto before = std::signal(SIGHUP, SIG_IGN);
  {
    const Stopping stopping;
    ::raise(SIGHUP);
    EXPECT_NO_THROW(stopping.Look());
  }
  (void)std::signal(SIGHUP, before);
}

TEST(Stopping, IsLookedAtWhereverABarIsShown) {
  ProgressBar bar;
  bar.Show("copying", 1, 2);
  ::raise(SIGINT);
  EXPECT_THROW(bar.Show("copying", 2, 2), Stopped);
}

}  // namespace
}  // namespace lantos::test
