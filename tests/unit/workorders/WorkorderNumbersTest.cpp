#include "records/GivenUp.h"
#include "records/InventoryFixture.h"
#include "support/FaultyCalls.h"
#include "workorders/ConversionJournal.h"
#include "workorders/WorkorderNumbers.h"
#include "workorders/WorkorderTags.h"

namespace lantos::test {
namespace {

class WorkorderNumbersTest : public ShopTest {
 protected:
  WorkorderNumbersTest() { environment.log.Open(); }
  template <class Tag>
  void PutTags(std::string_view file, std::initializer_list<std::int32_t> numbers) {
    std::string bytes;
    for (const std::int32_t number : numbers) {
      Tag tag;
      tag.Put(wotag::WorkorderNumber, number);
      tag.Put(wotag::CustomerName, "Adams,Beth");
      bytes += std::string(reinterpret_cast<const char*>(tag.Bytes().data()), Tag::kLength);
    }
    Put(file, bytes);
  }
  bool IsTaken(std::int32_t number) { return WorkorderNumbers(environment, desktop).IsTaken(number); }
  std::int32_t Highest() { return WorkorderNumbers(environment, desktop).Highest(); }
};

TEST_F(WorkorderNumbersTest, AShopWithoutWorkOrdersHasAllNumbersFree) {
  EXPECT_FALSE(IsTaken(1));
  EXPECT_FALSE(std::filesystem::exists(PathOf(kActiveTagFile))) << "looking makes no file";
}

TEST_F(WorkorderNumbersTest, ATextOfThatNumberTakesItInAnyCase) {
  Put("w0000012.TQA", "");
  EXPECT_TRUE(IsTaken(12));
  EXPECT_FALSE(IsTaken(13));
}

TEST_F(WorkorderNumbersTest, ANumberOfEitherTagFileIsTaken) {
  PutTags<ActiveWoTag>(kActiveTagFile, {10, 12});
  PutTags<ArchivedWoTag>(kArchivedTagFile, {7, 9, 11});
  for (const std::int32_t number : {7, 9, 10, 11, 12}) EXPECT_TRUE(IsTaken(number)) << number;
  for (const std::int32_t number : {6, 8, 13}) EXPECT_FALSE(IsTaken(number)) << number;
}

TEST_F(WorkorderNumbersTest, ANumberAheadOfTheLastTagsIsTakenAsWell) {
  PutTags<ActiveWoTag>(kActiveTagFile, {30, 12});
  EXPECT_TRUE(IsTaken(30));
  EXPECT_FALSE(IsTaken(31));
}

TEST_F(WorkorderNumbersTest, TheHighestIsThatOfBothFilesAndNoDamagedTags) {
  EXPECT_EQ(Highest(), 0);
  PutTags<ActiveWoTag>(kActiveTagFile, {30, 12});
  PutTags<ArchivedWoTag>(kArchivedTagFile, {7, 2000000000, 41, -5, 11});
  EXPECT_EQ(Highest(), 41);
  EXPECT_TRUE(IsTaken(2000000000));
}

TEST_F(WorkorderNumbersTest, ManyTagsAreReadToTheFirst) {
  std::string bytes;
  for (std::int32_t number = 1; number <= 1000; ++number) {
    ArchivedWoTag tag;
    tag.Put(wotag::WorkorderNumber, number);
    bytes += std::string(reinterpret_cast<const char*>(tag.Bytes().data()), ArchivedWoTag::kLength);
  }
  Put(kArchivedTagFile, bytes);
  const WorkorderNumbers numbers(environment, desktop);
  for (const std::int32_t number : {1, 2, 500, 999, 1000}) EXPECT_TRUE(numbers.IsTaken(number)) << number;
  EXPECT_FALSE(numbers.IsTaken(1001));
}

TEST_F(WorkorderNumbersTest, ThatOfAConversionThatIsHalfDoneIsTaken) {
  ConversionJournal pending(environment, desktop, 1001, 5001);
  EXPECT_FALSE(IsTaken(5001)) << "not before it is the conversion's own";
  pending.TakesNumber();
  EXPECT_TRUE(IsTaken(5001));
  EXPECT_EQ(Highest(), 5001);
  pending.IsUndone();
  EXPECT_FALSE(IsTaken(5001));
}

// Any number may be in it.
TEST_F(WorkorderNumbersTest, AHeldFileIsWaitedForAndAskedAbout) {
  PutTags<ActiveWoTag>(kActiveTagFile, {12});
  std::optional<SharedFile> held = HeldByAnother(kActiveTagFile);
  desktop.WillAnswer([&](const ui::Box& box) {
    EXPECT_EQ(box.title, kActiveTagFile);
    EXPECT_EQ(box.text, "TQOPENWO.DAT is locked by another user.\rClick Retry to try again, or Cancel to stop here.");
    EXPECT_EQ(box.buttons, ui::Buttons::RetryCancel);
    held.reset();
    return ui::Answer::Retry;
  });
  EXPECT_TRUE(IsTaken(12));
  const SharedFile again = HeldByAnother(kActiveTagFile);
  desktop.WillAnswer(ui::Answer::Cancel);
  EXPECT_THROW(IsTaken(12), GivenUp);
}

// Ahead of the highest open work order the counter is behind anyway.
TEST_F(WorkorderNumbersTest, HeldArchivedTagsLeaveOnlyNumbersBehindAllOthersAndAreAskedAboutForTheHighest) {
  PutTags<ActiveWoTag>(kActiveTagFile, {12});
  PutTags<ArchivedWoTag>(kArchivedTagFile, {7, 15});
  std::optional<SharedFile> held = HeldByAnother(kArchivedTagFile);
  WorkorderNumbers numbers(environment, desktop);
  EXPECT_FALSE(numbers.IsTaken(13));
  EXPECT_TRUE(numbers.IsTaken(11));
  desktop.WillAnswer(ui::Answer::Cancel);
  EXPECT_THROW(numbers.Highest(), GivenUp);
  desktop.WillAnswer([&](const ui::Box& box) {
    EXPECT_EQ(box.title, kArchivedTagFile);
    held.reset();
    return ui::Answer::Retry;
  });
  EXPECT_EQ(numbers.Highest(), 15);
  EXPECT_FALSE(numbers.IsTaken(11));
  EXPECT_TRUE(numbers.IsTaken(15));
}

TEST_F(WorkorderNumbersTest, AFileThatCanNotBeReadIsAskedAboutWithItsCause) {
  for (const std::string_view file : {kActiveTagFile, kArchivedTagFile}) {
    std::filesystem::create_directory(PathOf(file));
    desktop.WillAnswer(ui::Answer::Cancel);
    EXPECT_THROW(IsTaken(12), GivenUp);
    EXPECT_EQ(desktop.boxes.back().buttons, ui::Buttons::RetryCancel);
    EXPECT_EQ(desktop.boxes.back().text.find("locked by another user"), std::string::npos);
    EXPECT_NE(desktop.boxes.back().text.find(file), std::string::npos);
    std::filesystem::remove(PathOf(file));
  }
}

// A number that only they have would be given twice.
TEST_F(WorkorderNumbersTest, ArchivedTagsThatAreHeldForAMomentAreWaitedFor) {
  PutTags<ActiveWoTag>(kActiveTagFile, {12});
  PutTags<ArchivedWoTag>(kArchivedTagFile, {7, 15});
  std::optional<SharedFile> held = HeldByAnother(kArchivedTagFile);
  PatientClock patient(clock.Now());
  patient.onWait = [&] { held.reset(); };
  Environment world(patient, settings);
  world.files.SetDataDir(environment.files.DataDir());
  EXPECT_TRUE(WorkorderNumbers(world, desktop).IsTaken(15));
}

// Behind half a tag the others stand as they did from the beginning, and new ones as they lie at the end.
TEST_F(WorkorderNumbersTest, HalfATagHidesNoNumber) {
  PutTags<ActiveWoTag>(kActiveTagFile, {30, 12});
  PutTags<ArchivedWoTag>(kArchivedTagFile, {7, 41});
  const std::string active = BytesOf(kActiveTagFile), archived = BytesOf(kArchivedTagFile);
  for (const std::size_t half : {1, 100, 151, 289}) {
    SCOPED_TRACE(half);
    Put(kActiveTagFile, active + std::string(half, 'x'));
    Put(kArchivedTagFile, archived.substr(0, 290) + std::string(half, 'x') + archived.substr(290));
    for (const std::int32_t number : {7, 12, 30, 41}) EXPECT_TRUE(IsTaken(number)) << number;
    EXPECT_EQ(Highest(), 41);
  }
}

TEST_F(WorkorderNumbersTest, ATagFileThatFailsWhileItIsReadIsAskedAbout) {
  PutTags<ActiveWoTag>(kActiveTagFile, {12});
  FaultyCalls calls(PathOf(""));
  calls.FailOn(std::string(kActiveTagFile), CallKind::Read, Fault::DeviceIo);
  desktop.WillAnswer([&](const ui::Box& box) {
    EXPECT_EQ(box.title, kActiveTagFile);
    calls.Mend();
    return ui::Answer::Retry;
  });
  EXPECT_TRUE(IsTaken(12));
}

}  // namespace
}  // namespace lantos::test
