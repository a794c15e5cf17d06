// Files that a conversion can't write: the box names the file and the true cause, and Cancel ends in a told state.
#include <fcntl.h>
#include <unistd.h>

#include "HalfDoneBench.h"
#include "frame/SharingClaim.h"
#include "frame/UpdateTurns.h"

namespace lantos {
namespace {

using test::CallKind;
using test::Fault;
using test::FaultyCalls;
using test::HalfDoneBench;
using testing::HasSubstr;
using ui::Answer;

struct Waiting : HalfDoneBench {
  Waiting() { WillConfirm(); }

  // One box about the file, answered so; Retry finds it mended.
  void WillBeAsked(FaultyCalls& calls, const std::string& file, const std::string& cause, Answer answer) {
    desktop.WillAnswer([this, &calls, file, cause, answer](const ui::Box& box) {
      EXPECT_EQ(box.buttons, ui::Buttons::RetryCancel);
      EXPECT_THAT(box.text, testing::StartsWith(file + " can not be used: " + cause +
                                                ".\rClick Retry to try again, "
                                                "or Cancel to "));
      EXPECT_THAT(box.text, testing::Not(HasSubstr("another user")));
      if (answer == Answer::Retry) calls.Mend();
      ++asked;
      return answer;
    });
  }
  int asked = 0;
};

const std::string kReadOnly = "it is read-only, or closed to you by its permissions";

TEST(WaitingConversion, AsksAboutEachFileThatIsReadOnlyAndGoesOnOnceItIsNot) {
  for (const char* file : {"TQUSEHST.DAT", "TQINVTAG.DAT", "TQINVENT.DAT", "TQOPENWO.DAT", "TQINCTAG.DAT"}) {
    SCOPED_TRACE(file);
    Waiting bench;
    bench.directory.Put("TQOPENWO.DAT", "");
    bench.directory.Put("TQINCTAG.DAT", "");
    FaultyCalls calls(bench.directory.Path());
    calls.FailOn(file, Fault::ReadOnly);
    bench.WillBeAsked(calls, file, kReadOnly, Answer::Retry);
    bench.WillEndQuietly();
    bench.Convert();
    EXPECT_EQ(bench.asked, 1);
    bench.ExpectWhole();
  }
}

TEST(WaitingConversion, SaysThatTheDiskIsFull) {
  for (const char* file : {"TQUSEHST.DAT", "TQOPENWO.DAT", "TQINCTAG.DAT", "W0005001.tqa"}) {
    SCOPED_TRACE(file);
    Waiting bench;
    FaultyCalls calls(bench.directory.Path());
    calls.FailOn(file, CallKind::Write, Fault::DiskFull);
    bench.WillBeAsked(calls, file, "the disk is full", Answer::Retry);
    bench.WillEndQuietly();
    bench.Convert();
    EXPECT_EQ(bench.asked, 1);
    bench.ExpectWhole();
  }
}

TEST(WaitingConversion, CancelAtTheStockIsNamedAtTheEndWithTagAndMasterAlike) {
  for (const char* file : {"TQINVTAG.DAT", "TQINVENT.DAT"}) {
    SCOPED_TRACE(file);
    Waiting bench;
    FaultyCalls calls(bench.directory.Path());
    calls.FailOn(file, CallKind::Open, Fault::ReadOnly);
    bench.WillBeAsked(calls, file, kReadOnly, Answer::Cancel);
    bench.WillBeAsked(calls, file, kReadOnly, Answer::Cancel);
    bench.WillEndQuietly();
    bench.Convert();
    EXPECT_TRUE(
        bench.WasTold("is now Workorder # 005001\r\rThe stock of these parts could not be written and was not "
                      "changed:\r\rOIL-1\rPAD-9"));
    bench.ExpectStock(6, 40);
    EXPECT_EQ(bench.Usages(), 0u) << "of a stock that didn't move";
  }
}

// The history is there for the note, and gone when it is to be taken back.
TEST(WaitingConversion, ANoteThatCanNotBeTakenBackIsNamed) {
  Waiting bench;
  FaultyCalls calls(bench.directory.Path());
  calls.When([opens = 0](const test::FileCall& call, std::size_t) mutable {
    if (call.kind != CallKind::Open) return 0;
    if (call.name == "TQINVTAG.DAT" && call.forWriting) return test::ErrnoOf(call, Fault::ReadOnly);
    // The note and its flush go well.
    if (call.name == "TQUSEHST.DAT" && ++opens > 2) return test::ErrnoOf(call, Fault::ReadOnly);
    return 0;
  });
  bench.desktop.WillAnswer(Answer::Cancel);  // the tag
  bench.desktop.WillAnswer([&](const ui::Box& box) {
    EXPECT_EQ(box.title, "TQUSEHST.DAT");
    calls.Mend();
    return Answer::Cancel;
  });
  bench.WillEndQuietly();
  bench.Convert();
  EXPECT_TRUE(
      bench.WasTold("not changed:\r\rOIL-1\r\rThe usage history tells a use of these parts, whose stock was "
                    "not changed:\r\rOIL-1"));
  EXPECT_EQ(bench.Usages(), 2u);
}

// Of the usage alone the person must not hear that nothing was changed.
TEST(WaitingConversion, CancelAtATurnOfAnUndoingSaysThatItStaysHalfDone) {
  HalfDoneBench bench;
  bench.KillConversionAtWriteOf("TQOPENWO.DAT");
  UpdateTurns other(bench.directory / "TQINVTAG.DAT", bench.clock);
  const UpdateTurns::Turn held(other);
  bench.desktop.failuresExpected = true;
  bench.desktop.WillAnswer(Answer::No);
  bench.desktop.WillAnswer([](const ui::Box& box) {
    EXPECT_THAT(box.text, testing::EndsWith("\rClick Retry to wait for it, or Cancel to stop here."));
    return Answer::Cancel;
  });
  bench.Settle();
  ASSERT_EQ(bench.desktop.failures.size(), 1u);
  EXPECT_THAT(bench.desktop.failures[0],
              testing::EndsWith("Another copy is changing TQINVTAG.DAT. The conversion stays half done."));
}

TEST(WaitingConversion, CancelAtTheUsageMovesTheStockAndSaysSo) {
  Waiting bench;
  FaultyCalls calls(bench.directory.Path());
  calls.FailOn("TQUSEHST.DAT", CallKind::Open, Fault::ReadOnly);
  bench.WillBeAsked(calls, "TQUSEHST.DAT", kReadOnly, Answer::Cancel);
  bench.WillBeAsked(calls, "TQUSEHST.DAT", kReadOnly, Answer::Cancel);
  bench.WillEndQuietly();
  bench.Convert();
  EXPECT_TRUE(bench.WasTold("\r\rThe use of these parts could not be noted in the usage history:\r\rOIL-1\rPAD-9"));
  bench.ExpectStock(4, 35);
  EXPECT_EQ(bench.Usages(), 0u);
}

TEST(WaitingConversion, CancelAtTheFirstTagStopsAndTheJournalStays) {
  Waiting bench;
  FaultyCalls calls(bench.directory.Path());
  calls.FailOn("TQOPENWO.DAT", CallKind::Create, Fault::ReadOnly);
  bench.WillBeAsked(calls, "TQOPENWO.DAT", kReadOnly, Answer::Cancel);
  EXPECT_THAT(bench.Failure(), HasSubstr("stopped here. What was done before stays:"));
  calls.Mend();
  bench.Finish();
  bench.ExpectWhole();
}

// Another copy stands in the middle of a change, its person at a box.
TEST(WaitingConversion, ATurnAtTheStockThatDoesNotComeIsAskedAbout) {
  Waiting bench;
  UpdateTurns other(bench.directory / "TQINVTAG.DAT", bench.clock);
  std::optional<UpdateTurns::Turn> held(other);
  const LocalTime before = bench.clock.Now();
  bench.desktop.WillAnswer([&](const ui::Box& box) {
    EXPECT_EQ(box.text,
              "Another copy of the program is changing TQINVTAG.DAT and doesn't come to its end.\r"
              "Click Retry to wait for it, or Cancel to change nothing.");
    EXPECT_EQ(box.buttons, ui::Buttons::RetryCancel);
    EXPECT_EQ(bench.clock.Now().MillisecondsSince(before), 5000);
    held.reset();
    return Answer::Retry;
  });
  bench.WillEndQuietly();
  bench.Convert();
  bench.ExpectWhole();
}

TEST(WaitingConversion, CancelAtATurnLeavesTheStockAndSaysSo) {
  Waiting bench;
  UpdateTurns other(bench.directory / "TQINVTAG.DAT", bench.clock);
  const UpdateTurns::Turn held(other);
  bench.desktop.WillAnswer({Answer::Cancel, Answer::Cancel});
  bench.WillEndQuietly();
  bench.Convert();
  EXPECT_TRUE(bench.WasTold("could not be written and was not changed:\r\rOIL-1\rPAD-9"));
  bench.ExpectStock(6, 40);
}

// What another copy has for the moment in which it appends a tag.
class TurnAtTheEnd {
 public:
  explicit TurnAtTheEnd(const std::filesystem::path& path) : descriptor_(::open(path.c_str(), O_RDWR)) {
    struct flock turn = {};
    turn.l_type = F_WRLCK;
    turn.l_whence = SEEK_SET;
    turn.l_start = static_cast<off_t>(kAppendTurn);
    turn.l_len = 1;
    EXPECT_EQ(::fcntl(descriptor_, F_OFD_SETLK, &turn), 0);
  }
  ~TurnAtTheEnd() { ::close(descriptor_); }
  TurnAtTheEnd(const TurnAtTheEnd&) = delete;

 private:
  int descriptor_;
};

TEST(WaitingConversion, ATurnAtTheEndOfTheTagsThatDoesNotComeIsAskedAbout) {
  for (const char* file : {"TQOPENWO.DAT", "TQINCTAG.DAT"}) {
    SCOPED_TRACE(file);
    Waiting bench;
    bench.directory.Put(file, "");
    std::optional<TurnAtTheEnd> held(bench.directory / file);
    const LocalTime before = bench.clock.Now();
    bench.desktop.WillAnswer([&](const ui::Box& box) {
      EXPECT_EQ(box.text, "Another copy of the program is writing to " + std::string(file) +
                              " and doesn't come to its end.\rClick Retry to try again, or Cancel to stop here.");
      EXPECT_EQ(bench.clock.Now().MillisecondsSince(before), 5000);
      held.reset();
      return Answer::Retry;
    });
    bench.WillEndQuietly();
    bench.Convert();
    bench.ExpectWhole();
  }
}

}  // namespace
}  // namespace lantos
