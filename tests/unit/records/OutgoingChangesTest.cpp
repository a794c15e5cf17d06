// This copy's changes on their way into the update files of the others.
#include "BroadcastFixture.h"
#include "records/inventory/OutgoingChanges.h"

namespace lantos::test {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using ui::Answer;

class OutgoingChangesTest : public BroadcastTest {
 protected:
  OutgoingChangesTest() { Put(kPeer, ""); }

  void Change(const std::string& number, std::int16_t stock = 0) {
    changes.AddAuditRecord(TagWith({number, "PART " + number, {100, 200, 300, 400}, stock}, 344));
  }
  static std::string Sent(const std::string& number, std::int16_t stock = 0) {
    return TagImage({number, "PART " + number, {100, 200, 300, 400}, stock}, 344);
  }

  OutgoingChanges changes{world, desktop};
};

TEST_F(OutgoingChangesTest, AChangeGoesToEachOtherCopyOfTheDayAsItsTag) {
  Put("AU93017.$$$", Sent("OLD"));
  Put("au9302.$$$", "");
  Change("A", 3);
  Change("B");
  PassSeconds(1);
  changes.SendDue();
  EXPECT_EQ(BytesOf(kPeer), Sent("A", 3) + Sent("B"));
  EXPECT_EQ(BytesOf("au9302.$$$"), Sent("A", 3) + Sent("B"));
  EXPECT_EQ(BytesOf("AU93017.$$$"), Sent("OLD") + Sent("A", 3) + Sent("B"));
  EXPECT_EQ(BytesOf(kMine), "") << "its own stays as it was";
}

TEST_F(OutgoingChangesTest, FilesOfOtherDaysAndOtherNamesAreLeftAlone) {
  for (const char* name : {"AU9290.$$$", "AUa010.$$$", "AU9301.TMP", "BU9301.$$$"}) Put(name, "");
  Change("A");
  PassSeconds(1);
  changes.SendDue();
  for (const char* name : {"AU9290.$$$", "AUa010.$$$", "AU9301.TMP", "BU9301.$$$"})
    EXPECT_EQ(BytesOf(name), "") << name;
  EXPECT_EQ(BytesOf(kPeer), Sent("A"));
}

TEST_F(OutgoingChangesTest, PastMidnightTheFilesOfTheFirstDayAreWrittenTo) {
  Put("AUa010.$$$", "");
  PassSeconds(16 * 3600);
  ASSERT_EQ(patience.Today(), 37895);
  Change("A");
  PassSeconds(1);
  changes.SendDue();
  EXPECT_EQ(BytesOf(kPeer), Sent("A"));
  EXPECT_EQ(BytesOf("AUa010.$$$"), "");
}

TEST_F(OutgoingChangesTest, ARowOfThisSecondWaitsForTheNextTick) {
  patience.MoveOn(400);
  Change("A");
  patience.MoveOn(599);
  changes.SendDue();
  EXPECT_EQ(BytesOf(kPeer), "") << "the same second, if only just";
  patience.MoveOn(1);
  Change("B");
  changes.SendDue();
  EXPECT_EQ(BytesOf(kPeer), Sent("A"));
  EXPECT_EQ(changes.Count(), 1U);
  PassSeconds(1);
  changes.SendDue();
  EXPECT_EQ(BytesOf(kPeer), Sent("A") + Sent("B"));
}

TEST_F(OutgoingChangesTest, ARowIsSentOnceAndForgotten) {
  Change("A");
  PassSeconds(5);
  changes.SendDue();
  EXPECT_EQ(changes.Count(), 0U);
  PassSeconds(5);
  changes.SendDue();
  EXPECT_EQ(BytesOf(kPeer), Sent("A"));
}

TEST_F(OutgoingChangesTest, AClockThatIsSetBackHoldsNothingUp) {
  Change("A");
  PassSeconds(-3600);
  changes.SendDue();
  EXPECT_EQ(BytesOf(kPeer), Sent("A"));
}

TEST_F(OutgoingChangesTest, AtTheEndEvenTheRowsOfThisSecondGoOut) {
  Change("A");
  PassSeconds(2);
  Change("B");
  changes.SendAll();
  EXPECT_EQ(BytesOf(kPeer), Sent("A") + Sent("B"));
  EXPECT_LE(patience.waits.size(), 1000U);
}

TEST_F(OutgoingChangesTest, TheEndWaitsForNothingWhenNothingIsOfThisSecond) {
  Change("A");
  PassSeconds(1);
  changes.SendAll();
  changes.SendAll();
  EXPECT_EQ(BytesOf(kPeer), Sent("A"));
  EXPECT_THAT(patience.waits, IsEmpty());
}

TEST_F(OutgoingChangesTest, AHeldFileIsTriedTenTimesASecondApartAndThenAskedAbout) {
  const SharedFile held = HeldByAnother(kPeer, Access::Read, Deny::Write);
  Change("A");
  PassSeconds(1);
  desktop.WillAnswer([&](const ui::Box& box) {
    ExpectBox(box, "BroadcastUpdate",
              "Inventory Update file AU9301.$$$ could not be opened.\rError 70: Permission denied\r"
              "Click RETRY to try again, or CANCEL to skip this file.",
              ui::Buttons::RetryCancel, ui::Icon::Exclamation);
    EXPECT_EQ(patience.Now().millisecondOfDay, 8 * 3600'000 + 15 * 60'000 + 10'000) << "nine waits after the first try";
    return Answer::Retry;
  });
  desktop.WillAnswer([&](const ui::Box&) {
    EXPECT_EQ(patience.Now().millisecondOfDay, 8 * 3600'000 + 15 * 60'000 + 19'000) << "ten tries more";
    return Answer::Cancel;
  });
  changes.SendDue();
  EXPECT_EQ(BytesOf(kPeer), "");
}

TEST_F(OutgoingChangesTest, AFileThatIsFreeInTimeIsNotAskedAbout) {
  std::optional<SharedFile> held = HeldByAnother(kPeer);
  patience.onWait = [&] {
    if (patience.Now().millisecondOfDay >= 8 * 3600'000 + 15 * 60'000 + 10'000) held.reset();
  };
  Change("A");
  PassSeconds(1);
  changes.SendDue();
  EXPECT_EQ(BytesOf(kPeer), Sent("A"));
}

TEST_F(OutgoingChangesTest, ACopyThatIsSkippedMissesThisRoundAlone) {
  Put("AU9302.$$$", "");
  std::optional<SharedFile> held = HeldByAnother(kPeer);
  Change("A");
  PassSeconds(1);
  desktop.WillAnswer(Answer::Cancel);
  changes.SendDue();
  held.reset();
  EXPECT_EQ(BytesOf("AU9302.$$$"), Sent("A"));
  Change("B");
  PassSeconds(1);
  changes.SendDue();
  EXPECT_EQ(BytesOf(kPeer), Sent("B")) << "the first change is lost to it";
  EXPECT_EQ(BytesOf("AU9302.$$$"), Sent("A") + Sent("B"));
}

TEST_F(OutgoingChangesTest, RetryReachesAFileThatWasLetGoMeanwhile) {
  std::optional<SharedFile> held = HeldByAnother(kPeer);
  Change("A");
  PassSeconds(1);
  desktop.WillAnswer([&](const ui::Box&) {
    held.reset();
    return Answer::Retry;
  });
  changes.SendDue();
  EXPECT_EQ(BytesOf(kPeer), Sent("A"));
}

TEST_F(OutgoingChangesTest, AFileWhoseOwnerEndsMeanwhileIsNotMadeAnew) {
  std::optional<SharedFile> held = HeldByAnother(kPeer);
  patience.onWait = [&] {
    held.reset();
    std::filesystem::remove(PathOf(kPeer));
  };
  Change("A");
  PassSeconds(1);
  changes.SendDue();
  EXPECT_FALSE(IsThere(kPeer));
}

TEST_F(OutgoingChangesTest, ADirectoryOfSuchANameIsNoCopy) {
  std::filesystem::create_directory(PathOf("AU9305.$$$"));
  Change("A");
  PassSeconds(1);
  changes.SendDue();
  EXPECT_EQ(BytesOf(kPeer), Sent("A"));
}

TEST_F(OutgoingChangesTest, BeginsAtTheFilesLengthWhateverThatIs) {
  const std::string before = Sent("OLD") + Sent("TORN").substr(0, 100);
  Put(kPeer, before);
  Change("A");
  PassSeconds(1);
  changes.SendDue();
  EXPECT_EQ(BytesOf(kPeer), before + Sent("A"));
}

TEST_F(OutgoingChangesTest, BeforeTheRunHasAFileOfItsOwnNothingIsSent) {
  world.updateFileName.clear();
  Change("A");
  PassSeconds(1);
  changes.SendDue();
  EXPECT_EQ(BytesOf(kPeer), "");
}

TEST_F(OutgoingChangesTest, NoFileStaysOpen) {
  Change("A");
  PassSeconds(1);
  changes.SendDue();
  EXPECT_NO_THROW(HeldByAnother(kPeer));
  EXPECT_THAT(InventoryLog(), HasSubstr("CloseFile: Closed file with pointer = "));
}

}  // namespace
}  // namespace lantos::test
