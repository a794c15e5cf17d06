// The three files that a new work order makes.
#include "WorkordersBench.h"
#include "records/Customers.h"
#include "records/GivenUp.h"
#include "records/Vehicles.h"

namespace lantos::test {
namespace {

using ui::Answer;
using ui::Buttons;
using ui::Icon;

class TagWriting : public WorkordersTest {
 protected:
  TagWriting() { workorders.Current = Sample(); }
  std::string ActiveTag() const { return BytesOf(kActiveTagFile).substr(0, 302); }
};

TEST_F(TagWriting, AnActiveTagHoldsWhatTheWorkOrderHas) {
  workorders.WriteActiveWoTag();
  const Image expected = Image(302)
                             .Long(0, 4711)
                             .Text(4, "Bj\xF8rnson,Ann")
                             .Long(36, 1002)
                             .Text(40, "2FAFP71W0WX100001")
                             .Text(61, "CAB 1")
                             .Text(74, "\1")
                             .Text(286, "W0004711.tqa");
  const std::string bytes = BytesOf(kActiveTagFile);
  ASSERT_EQ(bytes.size(), 302u);
  EXPECT_EQ(bytes.substr(0, 75), std::string(expected).substr(0, 75));
  EXPECT_EQ(bytes.substr(75, 211), std::string(reinterpret_cast<const char*>(Sample().Totals.Bytes().data()), 211));
  EXPECT_EQ(bytes.substr(286), std::string(expected).substr(286));
}

TEST_F(TagWriting, TextsOfATagKeepTheirNul) {
  Workorder& current = workorders.Current;
  current.Customer.Put(customer::Lastname, std::string(21, 'L'));
  current.Customer.Put(customer::Firstname, std::string(21, 'F'));
  current.Vehicle.Put(vehicle::VIN, std::string(21, 'V'));
  current.Vehicle.Put(vehicle::LicenseNumber, std::string(11, 'P'));
  workorders.WriteActiveWoTag();
  EXPECT_EQ(ActiveTag().substr(4, 32), std::string(21, 'L') + "," + std::string(9, 'F') + '\0');
  EXPECT_EQ(ActiveTag().substr(40, 21), std::string(20, 'V') + '\0');
  EXPECT_EQ(ActiveTag().substr(61, 11), std::string(10, 'P') + '\0');
}

TEST_F(TagWriting, TheCustomersNameIsTrimmedAndNoBlankStandsBehindTheComma) {
  workorders.Current.Customer.Put(customer::Lastname, " Adams ");
  workorders.Current.Customer.Put(customer::Firstname, " John ");
  workorders.WriteActiveWoTag();
  EXPECT_EQ(workorders.CurrentActiveTag.Get(wotag::CustomerName), "Adams,John");
  workorders.Current.Customer.Put(customer::Firstname, "");
  workorders.WriteActiveWoTag();
  EXPECT_EQ(workorders.CurrentActiveTag.Get(wotag::CustomerName), "Adams,");
}

TEST_F(TagWriting, NothingOfAnEarlierTagIsLeft) {
  for (std::byte& byte : workorders.CurrentActiveTag.Bytes()) byte = std::byte{0x5A};
  for (std::byte& byte : workorders.CurrentArchivedTag.Bytes()) byte = std::byte{0x5A};
  workorders.WriteActiveWoTag();
  workorders.WriteArchivedWoTag();
  EXPECT_EQ(BytesOf(kActiveTagFile).find(0x5A, 73), std::string::npos);
  EXPECT_EQ(BytesOf(kArchivedTagFile).find(0x5A, 73), std::string::npos);
}

TEST_F(TagWriting, EachStatusAndTypeHasItsCode) {
  const std::pair<const char*, int> statuses[] = {{"OPEN", 0}, {"CLOSED", 1}, {"PAID", 2}, {"VOID", 3}, {"ON ACCT", 4}};
  for (const auto& [text, code] : statuses) {
    EXPECT_EQ(WoStatusCode(text, 99), code);
    EXPECT_EQ(WoStatusCode(ToLower(text), 99), 99) << "compared exactly";
    EXPECT_EQ(WoStatusCode(std::string(text) + " ", 99), 99);
  }
  const std::pair<const char*, int> types[] = {{"repair", 0},  {"sales", 1},   {"estimate", 2}, {"warranty", 3},
                                               {"sales 2", 4}, {"sales 3", 5}, {"sales 4", 6}};
  for (const auto& [text, code] : types) {
    EXPECT_EQ(WoTypeCode(text), code);
    EXPECT_EQ(WoTypeCode("  " + ToUpper(text) + " "), code);
  }
  EXPECT_EQ(WoTypeCode("sales  2"), 0);
  EXPECT_EQ(WoTypeCode(""), 0);
}

TEST_F(TagWriting, AStatusThatIsNotInTheTableLeavesTheByteAsItWas) {
  workorders.CurrentActiveTag.Put(wotag::Status, 3);
  workorders.Current.Status = "open";
  workorders.WriteActiveWoTag();
  EXPECT_EQ(ActiveTag()[72], 3);
}

TEST_F(TagWriting, ACustomerWithoutATaxNumberIsNotExempt) {
  workorders.Current.Customer.Put(customer::tax_id_number, "   ");
  workorders.WriteActiveWoTag();
  EXPECT_EQ(ActiveTag()[74], 0);
}

TEST_F(TagWriting, TheFileIsNamedByTheNumber) {
  EXPECT_EQ(Workorders::FileNameOf(1234), "W0001234.tqa");
  EXPECT_EQ(Workorders::FileNameOf(2147483647), "W2147483647.tqa");
}

TEST_F(TagWriting, AnActiveTagGoesBehindTheLastWholeOne) {
  Put(kActiveTagFile, std::string(302, 'a') + std::string(302, 'b') + std::string(301, 'c'));
  workorders.WriteActiveWoTag();
  const std::string bytes = BytesOf(kActiveTagFile);
  ASSERT_EQ(bytes.size(), 3 * 302u) << "over the piece of a record";
  EXPECT_EQ(bytes.substr(0, 604), std::string(302, 'a') + std::string(302, 'b'));
  EXPECT_EQ(LongAt(bytes, 604), 4711);
}

TEST_F(TagWriting, AnActiveTagFileHeldByAnotherIsAskedAboutUntilThePersonGivesItUp) {
  const SharedFile held = HeldByAnother(kActiveTagFile);
  desktop.WillAnswer({ui::Answer::Retry, ui::Answer::Cancel});
  EXPECT_THROW(workorders.WriteActiveWoTag(), GivenUp);
  EXPECT_EQ(desktop.boxes.at(1).text,
            "TQOPENWO.DAT is locked by another user.\rClick Retry to try again, or Cancel to stop here.");
}

TEST_F(TagWriting, AnArchivedTagIsTheActiveOneWithoutAPlaceInTheArchive) {
  workorders.WriteActiveWoTag();
  workorders.CurrentArchivedTag.Put(wotag::MasterOffset, 77);
  EXPECT_TRUE(workorders.WriteArchivedWoTag());
  EXPECT_EQ(BytesOf(kArchivedTagFile), ActiveTag().substr(0, 286) + "\xFF\xFF\xFF\xFF");
  EXPECT_TRUE(desktop.boxes.empty());
  EXPECT_THAT(Log(), testing::HasSubstr("Archived WO Tag File Pointer = 2 requested by Workorders.WriteArchivedWoTag\n"
                                        "WriteArchivedWoTag: Opened TQINCTAG.DAT (update,fp=2)\n"
                                        "Archived Wo Tag File pointer = 2 Closed.\n"));
}

TEST_F(TagWriting, AnArchivedTagFileOfInvalidSizeIsToldAndWrittenAtItsTrueEnd) {
  const std::string before = std::string(290, 'a') + std::string(13, 'b');
  Put(kArchivedTagFile, before);
  workorders.WriteActiveWoTag();
  desktop.WillAnswer(Answer::Ok);
  EXPECT_TRUE(workorders.WriteArchivedWoTag());
  ASSERT_EQ(desktop.boxes.size(), 1u);
  EXPECT_EQ(desktop.boxes[0].text, "Archived WO Tag File has invalid size");
  EXPECT_EQ(desktop.boxes[0].buttons, Buttons::Ok);
  const std::string bytes = BytesOf(kArchivedTagFile);
  ASSERT_EQ(bytes.size(), before.size() + 290);
  EXPECT_EQ(bytes.substr(0, before.size()), before);
  EXPECT_EQ(LongAt(bytes, before.size()), 4711);
}

TEST_F(TagWriting, AHeldArchivedTagFileIsAskedForAndGivenUpSilently) {
  workorders.WriteActiveWoTag();
  const SharedFile held = HeldByAnother(kArchivedTagFile);
  desktop.WillAnswer({Answer::Retry, Answer::Cancel});
  EXPECT_FALSE(workorders.WriteArchivedWoTag());
  ASSERT_EQ(desktop.boxes.size(), 2u);
  for (const ui::Box& box : desktop.boxes) {
    ExpectBox(box, "WriteArchivedWoTag(TQINCTAG.DAT)",
              "Tag file locked by another user.\rClick Retry to try again, or Cancel to exit.", Buttons::RetryCancel,
              Icon::None);
  }
  EXPECT_EQ(BytesOf(kArchivedTagFile), "");
  EXPECT_EQ(BytesOf(kActiveTagFile).size(), 302u) << "the active tag stays";
}

TEST_F(TagWriting, AHeldArchivedTagFileThatIsFreedIsWrittenOnceAtRetry) {
  workorders.WriteActiveWoTag();
  SharedFile held = HeldByAnother(kArchivedTagFile);
  desktop.WillAnswer([&held](const ui::Box&) {
    held.Close();
    return Answer::Retry;
  });
  EXPECT_TRUE(workorders.WriteArchivedWoTag());
  EXPECT_EQ(BytesOf(kArchivedTagFile).size(), 290u);
}

TEST_F(TagWriting, AReaderThatHasTheTagsOpenIsNotInTheWay) {
  FileHandle active = workorders.OpenActiveWOForReading();
  const SharedFile archived = HeldByAnother(kArchivedTagFile, Access::Read, Deny::None);
  workorders.WriteActiveWoTag();
  EXPECT_TRUE(workorders.WriteArchivedWoTag());
  ActiveWoTag tag;
  EXPECT_FALSE(workorders.ReadActiveWO(active, 0, tag));
  EXPECT_EQ(tag, workorders.CurrentActiveTag);
  environment.openFiles.CloseFile(active);
}

// The text file

TEST_F(TagWriting, TheTextEndsInOneNul) {
  workorders.WriteWorkorderFile();
  Workorder sample = Sample();
  EXPECT_EQ(BytesOf(kFile), Crlf(Written(sample)) + '\0');
}

TEST_F(TagWriting, ALongerTextOfTheSameNameIsGone) {
  Put(kFile, std::string(100000, 'x'));
  workorders.WriteWorkorderFile();
  Workorder sample = Sample();
  EXPECT_EQ(BytesOf(kFile), Crlf(Written(sample)) + '\0');
}

TEST_F(TagWriting, ATextThatSomebodyReadsIsAskedAboutAndStaysAsItWas) {
  Put(kFile, "before");
  const SharedFile held = HeldByAnother(kFile, Access::Read, Deny::None);
  desktop.WillAnswer(ui::Answer::Cancel);
  EXPECT_THROW(workorders.WriteWorkorderFile(), GivenUp);
  EXPECT_EQ(desktop.boxes.at(0).title, kFile);
  EXPECT_EQ(BytesOf(kFile), "before");
}

// What ended in the middle is looked at.
TEST_F(TagWriting, AHeldTextThatIsLookedAtIsAskedAbout) {
  Put("W0005001.tqa", std::string("whole\0", 6));
  std::optional<SharedFile> held = HeldByAnother("W0005001.tqa");
  desktop.WillAnswer([&](const ui::Box& box) {
    EXPECT_EQ(box.text, "W0005001.tqa is locked by another user.\rClick Retry to try again, or Cancel to stop here.");
    held.reset();
    return ui::Answer::Retry;
  });
  EXPECT_TRUE(workorders.FilesOf(5001).text);
  const SharedFile again = HeldByAnother("W0005001.tqa");
  desktop.WillAnswer(ui::Answer::Cancel);
  EXPECT_THROW(workorders.FilesOf(5001), GivenUp);
}

// The newest one stands at the true end, behind half a tag that somebody has left.
TEST_F(TagWriting, ATagBehindHalfATagIsFound) {
  Put(kArchivedTagFile, std::string(290, 'a') + std::string(13, 'b'));
  workorders.WriteActiveWoTag();
  desktop.WillAnswer(Answer::Ok);
  EXPECT_TRUE(workorders.WriteArchivedWoTag());
  EXPECT_TRUE(workorders.FilesOf(4711).archivedTag);
  EXPECT_FALSE(workorders.FilesOf(4712).archivedTag);
}

}  // namespace
}  // namespace lantos::test
