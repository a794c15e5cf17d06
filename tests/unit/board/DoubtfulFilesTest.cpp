#include <gmock/gmock.h>

#include "board/BoardBench.h"
#include "support/FaultyCalls.h"

// What a close tells too late for the routine that has written.
namespace lantos {
namespace {

using test::BoardBench;
using test::CallKind;
using test::Fault;
using ui::Answer;

struct Doubtful : BoardBench {
  Doubtful() {
    Start();
    calls.FailOn("TQSYSTEM.DAT", CallKind::Close, Fault::DiskFull);
  }
  void Store() {
    records.system.Update([](SystemRecord& record) { record.Put(sysrec::shop_rate, 7100); });
  }
  // A file has a box, which the person reads.
  void WillBeTold() {
    desktop.WillAnswer([](const ui::Box& box) {
      EXPECT_EQ(box.text, "What was just stored in TQSYSTEM.DAT may be lost: the disk is full.\rLook at it again.");
      EXPECT_EQ(box.title, "TQSYSTEM.DAT");
      EXPECT_EQ(box.icon, ui::Icon::Exclamation);
      return Answer::Ok;
    });
  }
  test::FaultyCalls calls{directory.Path()};
};

TEST(DoubtfulFiles, AreToldBetweenTwoActionsOncePerFile) {
  Doubtful bench;
  EXPECT_EQ(bench.board.DoubtTimer.Interval(), 0);
  bench.Store();
  bench.Store();
  EXPECT_TRUE(bench.desktop.boxes.empty()) << "nobody is asked in the middle of a routine";
  EXPECT_GT(bench.board.DoubtTimer.Interval(), 0);
  bench.WillBeTold();
  bench.board.DoubtTimer.DoTick();
  EXPECT_EQ(bench.board.DoubtTimer.Interval(), 0);
  bench.Store();
  bench.WillBeTold();
  bench.board.DoubtTimer.DoTick();
}

TEST(DoubtfulFiles, AreNotToldOnTopOfAnotherBox) {
  Doubtful bench;
  bench.Store();
  bench.desktop.WillAnswer([&](const ui::Box&) {
    bench.board.DoubtTimer.DoTick();
    EXPECT_EQ(bench.desktop.boxes.size(), 1U);
    return Answer::Ok;
  });
  bench.desktop.Tell("A routine's own.", "Elsewhere");
  EXPECT_GT(bench.board.DoubtTimer.Interval(), 0) << "they come behind it";
  bench.WillBeTold();
  bench.board.DoubtTimer.DoTick();
}

TEST(DoubtfulFiles, AreNoneWhereTheWriteItselfWasRefusedAndTold) {
  Doubtful bench;
  bench.calls.Mend();
  bench.calls.FailOn("TQSYSTEM.DAT", CallKind::Write, Fault::DiskFull);
  bench.desktop.otherwise = [](const ui::Box& box) {
    return box.buttons == ui::Buttons::RetryCancel ? Answer::Cancel : Answer::Ok;
  };
  bench.desktop.failuresExpected = true;
  try {
    bench.Store();
  } catch (const std::exception&) {  // as the screens show it
  }
  EXPECT_GE(bench.calls.Failed(), 1U);
  EXPECT_EQ(bench.board.DoubtTimer.Interval(), 0);
}

TEST(DoubtfulFiles, AreNoMailboxes) {
  Doubtful bench;
  bench.environment.openFiles.whenDoubtful("AU9300.$$$", FileFailure(FileErrorNumber::DiskFull));
  EXPECT_EQ(bench.board.DoubtTimer.Interval(), 0);
}

TEST(DoubtfulFiles, AreToldAtTheEndOfTheProgram) {
  Doubtful bench;
  bench.Store();
  bench.WillBeTold();
  bench.board.Unload();
  EXPECT_EQ(bench.desktop.boxes.size(), 1U);
}

}  // namespace
}  // namespace lantos
