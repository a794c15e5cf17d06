// Work orders read from the archive, and the prompts when it isn't to be had.
#include "WorkordersBench.h"

namespace lantos::test {
namespace {

using ui::Answer;
using ui::Buttons;
using ui::Icon;

class GetArchWoTest : public WorkordersTest {
 protected:
  // Three work orders of the archive, and where each begins.
  FileLink PutArchive(const std::vector<std::vector<std::string>>& texts, std::size_t wanted) {
    std::string all;
    std::vector<FileLink> offsets;
    for (const auto& text : texts) {
      offsets.push_back(static_cast<FileLink>(all.size()));
      all += Crlf(text);
    }
    Put(kArchiveFile, all);
    return offsets.at(wanted);
  }
  void ExpectCorrupted(const char* what) {
    ASSERT_EQ(desktop.boxes.size(), 1u);
    ExpectBox(desktop.boxes[0], "GetArchWo()", "Possible corrupted " + std::string(what) + " file - run KRVLCLEN",
              Buttons::Ok, Icon::Critical);
    EXPECT_NO_THROW(HeldByAnother(kArchiveFile)) << "closed";
  }
};

TEST_F(GetArchWoTest, ANegativeOffsetOrNumberZeroIsFalseAtOnce) {
  workorders.Current = Sample();
  EXPECT_FALSE(workorders.GetArchWo(4711, -1));
  EXPECT_FALSE(workorders.GetArchWo(0, 0));
  EXPECT_TRUE(desktop.boxes.empty());
  EXPECT_EQ(Told(Current()), Told(Sample())) << "nothing is cleared";
}

TEST_F(GetArchWoTest, ReadsTheWorkOrderAtTheOffsetAndNoFurther) {
  const FileLink offset = PutArchive({Short("004709", "A"), Short("004710", "B"), Short("004711", "C")}, 1);
  workorders.Current = Sample();
  LoadChecks();
  ASSERT_TRUE(workorders.GetArchWo(4710, offset));
  EXPECT_EQ(Current().WorkorderNumber, 4710);
  EXPECT_EQ(Current().Status, "OPEN");
  ASSERT_EQ(Current().Parts.Size(), 2u);
  EXPECT_EQ(Current().Parts[0].PartNumber, "B");
  EXPECT_EQ(Current().Notes[0][0], "") << "cleared";
  EXPECT_FALSE(Checks().ChecklistLoaded);
  EXPECT_NO_THROW(HeldByAnother(kArchiveFile)) << "closed";
}

TEST_F(GetArchWoTest, TheNextLineMayStandBehindTheHeading) {
  const std::vector<std::string> joined = {"[Workorder]WorkorderNumber=004710", "Status=PAID", "", "[Parts]", "B", ""};
  const FileLink offset = PutArchive({Short("004709", "A"), joined, joined}, 1);
  ASSERT_TRUE(workorders.GetArchWo(4710, offset));
  EXPECT_EQ(Current().Status, "PAID");
  EXPECT_EQ(Current().Parts.Size(), 2u);
}

TEST_F(GetArchWoTest, TheNumberNeedNotBeTheFirstKey) {
  const FileLink offset = PutArchive(
      {{"[Workorder]Type=Sales", "Status=PAID", "WorkorderNumber=004710", "Pricing=Cost", "", "[Parts]", "A", ""}}, 0);
  ASSERT_TRUE(workorders.GetArchWo(4710, offset));
  EXPECT_EQ(Current().Pricing, "Cost");
  EXPECT_EQ(Current().Status, "") << "what stands ahead of the number was walked over";
  EXPECT_EQ(Current().Parts.Size(), 2u);
}

TEST_F(GetArchWoTest, AnOffsetThatIsNoHeadingIsACorruptedTag) {
  PutArchive({Short("004709", "A")}, 0);
  desktop.WillAnswer(Answer::Ok);
  EXPECT_FALSE(workorders.GetArchWo(4709, 1));
  ExpectCorrupted("tag");
}

TEST_F(GetArchWoTest, AnOffsetBeyondTheEndIsACorruptedTag) {
  PutArchive({Short("004709", "A")}, 0);
  desktop.WillAnswer(Answer::Ok);
  EXPECT_FALSE(workorders.GetArchWo(4709, 2147483647));
  ExpectCorrupted("tag");
}

TEST_F(GetArchWoTest, AnotherNumberAtTheOffsetIsACorruptedArchive) {
  const FileLink offset = PutArchive({Short("004709", "A"), Short("004710", "B")}, 1);
  workorders.Current = Sample();
  desktop.WillAnswer(Answer::Ok);
  EXPECT_FALSE(workorders.GetArchWo(4709, offset));
  ExpectCorrupted("archive");
  EXPECT_EQ(Told(Current()), Told(Cleared()));
}

TEST_F(GetArchWoTest, TheNextHeadingEndsTheWalkEvenIfTheNumberStandsBehindIt) {
  const FileLink offset = PutArchive({Short("004709", "A"), Short("004710", "B")}, 0);
  desktop.WillAnswer(Answer::Ok);
  EXPECT_FALSE(workorders.GetArchWo(4710, offset));
  ExpectCorrupted("archive");
}

TEST_F(GetArchWoTest, AHeadingAloneIsACorruptedArchive) {
  Put(kArchiveFile, "[Workorder]");
  desktop.WillAnswer(Answer::Ok);
  EXPECT_FALSE(workorders.GetArchWo(4710, 0));
  ExpectCorrupted("archive");
}

TEST_F(GetArchWoTest, ANumberWiderThanSixDigitsIsComparedByItsFirstSix) {
  PutArchive({Short("1234567", "A")}, 0);
  ASSERT_TRUE(workorders.GetArchWo(1234567, 0));
  EXPECT_EQ(Current().WorkorderNumber, 1234567);
  ASSERT_TRUE(workorders.GetArchWo(1234569, 0));
  EXPECT_EQ(Current().WorkorderNumber, 1234569) << "the number that was asked for is stored";
  ASSERT_TRUE(workorders.GetArchWo(123456, 0));
  EXPECT_EQ(Current().WorkorderNumber, 123456);
}

TEST_F(GetArchWoTest, AHeldArchiveIsAskedForUntilThePersonLeaves) {
  PutArchive({Short("004709", "A")}, 0);
  const SharedFile held = HeldByAnother(kArchiveFile);
  desktop.WillAnswer({Answer::Retry, Answer::Cancel});
  EXPECT_FALSE(workorders.GetArchWo(4709, 0));
  ASSERT_EQ(desktop.boxes.size(), 2u);
  for (const ui::Box& box : desktop.boxes) {
    ExpectBox(box, "GetArchWo(TQINVOIC.DAT)",
              "File locked by another user.\rClick Retry to try again, or Cancel to exit.", Buttons::RetryCancel,
              Icon::None);
  }
}

TEST_F(GetArchWoTest, AHeldArchiveThatIsFreedIsReadAtRetry) {
  PutArchive({Short("004709", "A")}, 0);
  SharedFile held = HeldByAnother(kArchiveFile);
  desktop.WillAnswer([&held](const ui::Box&) {
    held.Close();
    return Answer::Retry;
  });
  EXPECT_TRUE(workorders.GetArchWo(4709, 0));
  EXPECT_EQ(Current().WorkorderNumber, 4709);
}

TEST_F(GetArchWoTest, AnArchiveThatIsNotThereIsAskedForAndNotMade) {
  desktop.WillAnswer(Answer::Cancel);
  EXPECT_FALSE(workorders.GetArchWo(4709, 0));
  EXPECT_EQ(desktop.boxes.at(0).title, "GetArchWo(TQINVOIC.DAT)");
  EXPECT_FALSE(std::filesystem::exists(PathOf(kArchiveFile)));
}

TEST_F(GetArchWoTest, ACheckListEndsAtTheNextWorkOrder) {
  Checks().items = {Item("Oil"), Item("Belts")};
  auto first = Short("004709", "A");
  first.insert(first.end() - 1, "Oil,changed,3000");
  auto second = Short("004710", "B");
  second.insert(second.end() - 1, "Belts,changed,3000");
  const FileLink offset = PutArchive({first, second}, 0);
  ASSERT_TRUE(workorders.GetArchWo(4709, offset));
  EXPECT_TRUE(Checks().items[0].Used);
  EXPECT_FALSE(Checks().items[1].Used);
  EXPECT_EQ(Current().WorkorderNumber, 4709);
  EXPECT_EQ(Current().Parts[0].PartNumber, "A");
}

}  // namespace
}  // namespace lantos::test
