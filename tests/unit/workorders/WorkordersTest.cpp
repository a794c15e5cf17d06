// The files of work orders: reading, the prompts when one isn't to be had, and the three that a new one makes.
#include "WorkorderBench.h"
#include "records/Customers.h"
#include "records/Vehicles.h"

namespace lantos::test {
namespace {

using testing::ElementsAre;
using ui::Answer;
using ui::Buttons;
using ui::Icon;

constexpr std::string_view kFile = "W0004711.tqa";

class WorkordersTest : public WorkorderBench {
 protected:
  WorkordersTest() { environment.log.Open(); }
  static std::string Crlf(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    return text;
  }
  void PutText(std::string_view name, const std::vector<std::string>& lines) const { Put(name, Crlf(lines)); }
  static std::vector<std::string> Short(const std::string& number, const std::string& part) {
    return {"[Workorder]", "WorkorderNumber=" + number, "Status=OPEN", "", "[Parts]", part, "", "[Check List]", ""};
  }
  void MakeTag(std::string_view fileName) { workorders.CurrentActiveTag.Put(wotag::FileName, fileName); }
  const Workorder& Current() const { return workorders.Current; }

  Workorders workorders{environment, desktop, records};
};

// GetCurrWoRec

class GetCurrWoRecTest : public WorkordersTest {
 protected:
  GetCurrWoRecTest() { MakeTag(kFile); }
};

TEST_F(GetCurrWoRecTest, ReadsTheWorkOrderOfTheCurrentTag) {
  workorders.Current = Sample();
  workorders.WriteWorkorderFile();
  workorders.Current = Cleared();
  workorders.Current.Notes[7][7] = "of another";
  LoadChecks();
  EXPECT_TRUE(workorders.GetCurrWoRec());
  EXPECT_EQ(Told(Current()), Told(Sample()));
  EXPECT_FALSE(Checks().ChecklistLoaded);
  EXPECT_FALSE(Checks().items[1].Used) << "the values of another are cleared";
  EXPECT_NO_THROW(HeldByAnother(kFile)) << "closed";
  EXPECT_THAT(Log(), testing::HasSubstr("CloseFile: Closed file with pointer = 2"));
}

TEST_F(GetCurrWoRecTest, TheFileMayStayOpenWithAllSharingDenied) {
  PutText(kFile, Short("004711", "A"));
  FileHandle file = kNoHandle;
  ASSERT_TRUE(workorders.GetCurrWoRec(true, &file));
  ASSERT_NE(file, kNoHandle);
  for (const Access access : {Access::Read, Access::Write}) {
    EXPECT_THROW(SharedFile(PathOf(kFile), access, Deny::None), FileError);
  }
  environment.openFiles.CloseFile(file);
  EXPECT_NO_THROW(HeldByAnother(kFile));
}

TEST_F(GetCurrWoRecTest, AMissingFileIsAskedForUntilTheOperatorSkipsIt) {
  workorders.Current = Sample();
  LoadChecks();
  desktop.WillAnswer({Answer::Retry, Answer::Cancel});
  EXPECT_FALSE(workorders.GetCurrWoRec());
  ASSERT_EQ(desktop.boxes.size(), 2u);
  for (const ui::Box& box : desktop.boxes) {
    ExpectBox(box, "GetCurrWoRec(W0004711.tqa)", "File not found: \rClick Retry to try again, or Cancel to skip.",
              Buttons::RetryCancel, Icon::None);
  }
  EXPECT_EQ(Told(Current()), Told(Cleared())) << "cleared before it is looked for";
  EXPECT_FALSE(Checks().ChecklistLoaded);
  EXPECT_FALSE(std::filesystem::exists(PathOf(kFile)));
}

TEST_F(GetCurrWoRecTest, AMissingFileThatAppearsIsReadAtRetry) {
  desktop.WillAnswer([this](const ui::Box&) {
    PutText(kFile, Short("004711", "A"));
    return Answer::Retry;
  });
  EXPECT_TRUE(workorders.GetCurrWoRec());
  EXPECT_EQ(Current().WorkorderNumber, 4711);
}

TEST_F(GetCurrWoRecTest, AHeldFileIsAskedForUntilTheOperatorSkipsIt) {
  PutText(kFile, Short("004711", "A"));
  const SharedFile held = HeldByAnother(kFile, Access::Read, Deny::None);
  desktop.WillAnswer({Answer::Retry, Answer::Cancel});
  EXPECT_FALSE(workorders.GetCurrWoRec());
  ASSERT_EQ(desktop.boxes.size(), 2u);
  for (const ui::Box& box : desktop.boxes) {
    ExpectBox(box, "GetCurrWoRec(W0004711.tqa)",
              "File locked by another user.\rClick Retry to try again, or Cancel to skip.", Buttons::RetryCancel,
              Icon::None);
  }
  EXPECT_EQ(Told(Current()), Told(Cleared()));
}

TEST_F(GetCurrWoRecTest, AHeldFileThatIsFreedIsReadAtRetry) {
  PutText(kFile, Short("004711", "A"));
  SharedFile held = HeldByAnother(kFile);
  desktop.WillAnswer([&held](const ui::Box&) {
    held.Close();
    return Answer::Retry;
  });
  EXPECT_TRUE(workorders.GetCurrWoRec());
  EXPECT_EQ(Current().WorkorderNumber, 4711);
}

TEST_F(GetCurrWoRecTest, TheFileNameIsCutAtItsFirstNul) {
  PutText(kFile, Short("004711", "A"));
  MakeTag(std::string_view("W0004711.tqa\0old", 16));
  EXPECT_TRUE(workorders.GetCurrWoRec());
  MakeTag("");
  desktop.WillAnswer(Answer::Cancel);
  EXPECT_FALSE(workorders.GetCurrWoRec()) << "a blank name is no file";
  EXPECT_EQ(desktop.boxes.back().title, "GetCurrWoRec()");
}

TEST_F(GetCurrWoRecTest, AHeadingBehindTheCheckListIsReadToo) {
  Checks().items = {Item("Oil")};
  PutText(kFile, {"[Parts]", "A", "", "[Check List]", "Oil,,", "", "[Workorder]WorkorderNumber=004711", "Status=VOID",
                  "", "[Labor]", "1", ""});
  EXPECT_TRUE(workorders.GetCurrWoRec());
  EXPECT_EQ(Current().WorkorderNumber, 4711);
  EXPECT_EQ(Current().Status, "VOID");
  EXPECT_EQ(Current().Parts.Size(), 2u);
  EXPECT_EQ(Current().Labor.Size(), 2u);
  EXPECT_TRUE(Checks().items[0].Used);
}

class WorkordersLiveCustomer : public GetCurrWoRecTest {
 protected:
  WorkordersLiveCustomer() {
    Image tags, masters;
    tags.Append(CustomerTagImage(1001, "Adams", 0)).Append(CustomerTagImage(1002, "Live", 317));
    masters.Append(CustomerImage(1001, "Adams")).Append(Image(CustomerImage(1002, "Live")).Text(121, "Dayton"));
    Put(kCustomerTagFile, tags);
    Put(kCustomerFile, masters);
  }
  void PutWithCustomer(const std::string& number) {
    PutText(kFile, {"[Customer]", "CustomerNumber=" + number, "Lastname=Then", ""});
  }
};

TEST_F(WorkordersLiveCustomer, FillsWhatTheTextDoesNotHave) {
  PutWithCustomer("1002");
  ASSERT_TRUE(workorders.GetCurrWoRec());
  EXPECT_EQ(Current().Customer.Get(customer::Lastname), "Then");
  EXPECT_EQ(Current().Customer.Get(customer::City), "Dayton");
}

TEST_F(WorkordersLiveCustomer, LeavesTheCustomerOfTheScreensAlone) {
  Customers& customers = records.customers;
  customers.LoadCustomerTags();
  customers.FindCustomerTag(1001);
  customers.ReadCustomer();
  const CustomerRecord record = customers.CurrentCustomer;
  const CustomerTag tag = customers.CurrentTag;
  PutWithCustomer("1002");
  ASSERT_TRUE(workorders.GetCurrWoRec());
  EXPECT_EQ(customers.CurrentCustomer, record);
  EXPECT_EQ(customers.CurrentTag, tag);
}

TEST_F(WorkordersLiveCustomer, AnUnknownNumberIsNotAnError) {
  for (const char* number : {"7", "0", "", "-5"}) {
    PutWithCustomer(number);
    ASSERT_TRUE(workorders.GetCurrWoRec());
    EXPECT_EQ(Current().Customer.Get(customer::Lastname), "Then");
    EXPECT_EQ(Current().Customer.Get(customer::City), "") << number;
    EXPECT_EQ(Current().Customer.Get(customer::salesperson), "None");
  }
}

// GetArchWo

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

TEST_F(GetArchWoTest, AHeldArchiveIsAskedForUntilTheOperatorLeaves) {
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

// Tags

template <class Tag>
struct Reading;
template <>
struct Reading<ActiveWoTag> {
  static constexpr std::string_view kName = kActiveTagFile;
  static constexpr const char* kRoutine = "ReadActiveWO";
  static FileHandle Open(Workorders& workorders) { return workorders.OpenActiveWOForReading(); }
  static bool Read(Workorders& workorders, FileHandle file, std::int64_t at, ActiveWoTag& tag) {
    return workorders.ReadActiveWO(file, at, tag);
  }
};
template <>
struct Reading<ArchivedWoTag> {
  static constexpr std::string_view kName = kArchivedTagFile;
  static constexpr const char* kRoutine = "ReadArchWO";
  static FileHandle Open(Workorders& workorders) { return workorders.OpenArchWOForReading(""); }
  static bool Read(Workorders& workorders, FileHandle file, std::int64_t at, ArchivedWoTag& tag) {
    return workorders.ReadArchWO(file, at, tag);
  }
};

template <class Tag>
class TagReading : public WorkordersTest {};
using Tags = testing::Types<ActiveWoTag, ArchivedWoTag>;
TYPED_TEST_SUITE(TagReading, Tags);

TYPED_TEST(TagReading, EachPosition) {
  using Of = Reading<TypeParam>;
  constexpr auto kLength = static_cast<std::int64_t>(TypeParam::kLength);
  this->Put(Of::kName, Image(2 * TypeParam::kLength).Long(0, 1).Long(TypeParam::kLength, 2));
  FileHandle file = Of::Open(this->workorders);
  TypeParam tag;
  tag.Put(wotag::WorkorderNumber, 77);
  EXPECT_TRUE(Of::Read(this->workorders, file, -1, tag));
  EXPECT_TRUE(Of::Read(this->workorders, file, -kLength, tag));
  EXPECT_EQ(tag.Get(wotag::WorkorderNumber), 77) << "nothing is read";
  EXPECT_FALSE(Of::Read(this->workorders, file, 0, tag));
  EXPECT_EQ(tag.Get(wotag::WorkorderNumber), 1);
  EXPECT_FALSE(Of::Read(this->workorders, file, kLength, tag));
  EXPECT_EQ(tag.Get(wotag::WorkorderNumber), 2);
  EXPECT_TRUE(this->desktop.boxes.empty());
  EXPECT_TRUE(Of::Read(this->workorders, file, kLength + 1, tag)) << "a byte is missing";
  EXPECT_TRUE(Of::Read(this->workorders, file, 2 * kLength, tag));
  EXPECT_EQ(tag, TypeParam());
  EXPECT_TRUE(this->desktop.boxes.empty());
  this->environment.openFiles.CloseFile(file);
}

TYPED_TEST(TagReading, APositionWithinTheFirstTagIsToldAndStillRead) {
  using Of = Reading<TypeParam>;
  this->Put(Of::kName, Image(2 * TypeParam::kLength).Long(4, 4711));
  FileHandle file = Of::Open(this->workorders);
  for (std::int64_t at = 1; at < static_cast<std::int64_t>(TypeParam::kLength); ++at) {
    this->desktop.WillAnswer(Answer::Ok);
    TypeParam tag;
    EXPECT_FALSE(Of::Read(this->workorders, file, at, tag));
    EXPECT_EQ(this->desktop.boxes.back().text,
              "Invalid offset supplied to " + std::string(Of::kRoutine) + " = " + std::to_string(at));
    EXPECT_EQ(tag.Get(wotag::WorkorderNumber) == 4711, at == 4);
  }
  EXPECT_EQ(this->desktop.boxes.size(), TypeParam::kLength - 1);
  this->environment.openFiles.CloseFile(file);
}

TEST_F(WorkordersTest, AFileOfActiveTagsOfLengthZeroEndsAtTheFirstStep) {
  Put(kActiveTagFile, "");
  FileHandle file = workorders.OpenActiveWOForReading();
  ActiveWoTag tag;
  EXPECT_TRUE(workorders.ReadActiveWO(file, -302, tag));
  EXPECT_EQ(environment.openFiles[file].Length(), 0u);
  EXPECT_TRUE(desktop.boxes.empty());
  environment.openFiles.CloseFile(file);
}

TEST_F(WorkordersTest, AFileOfArchivedTagsOfLengthZeroEndsAtTheFirstStep) {
  Put(kArchivedTagFile, "");
  FileHandle file = workorders.OpenArchWOForReading("");
  ArchivedWoTag tag;
  EXPECT_TRUE(workorders.ReadArchWO(file, -290, tag));
  EXPECT_EQ(environment.openFiles[file].Length(), 0u);
  EXPECT_TRUE(desktop.boxes.empty());
  environment.openFiles.CloseFile(file);
}

TYPED_TEST(TagReading, ReadersShareTheFile) {
  using Of = Reading<TypeParam>;
  const SharedFile other = this->HeldByAnother(Of::kName, Access::ReadWrite, Deny::None);
  FileHandle file = Of::Open(this->workorders);
  EXPECT_NO_THROW(SharedFile(this->PathOf(Of::kName), Access::Write, Deny::None));
  this->environment.openFiles.CloseFile(file);
}

TEST_F(WorkordersTest, TheArchivedTagFileIsOpenedThroughItsBookkeeping) {
  FileHandle file = workorders.OpenArchWOForReading("");
  FileHandle again = workorders.OpenArchWOForReading("History");
  environment.openFiles.CloseFile(again);
  EXPECT_THAT(Log(),
              testing::HasSubstr("Archived WO Tag File Pointer = 2 requested by Workorders.OpenArchWOForReading\n"
                                 "History: TQINCTAG already open\n"
                                 "Archived Wo Tag File pointer = 2 Closed.\n"
                                 "Archived WO Tag File Pointer = 2 requested by History\n"
                                 "Archived Wo Tag File pointer = 2 Closed.\n"));
  EXPECT_EQ(file, 2);
}

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

TEST_F(TagWriting, AnActiveTagFileHeldByAnotherIsAnError) {
  const SharedFile held = HeldByAnother(kActiveTagFile);
  EXPECT_THROW(workorders.WriteActiveWoTag(), FileError);
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

TEST_F(TagWriting, ATextThatSomebodyReadsIsAnErrorAndStaysAsItWas) {
  Put(kFile, "before");
  const SharedFile held = HeldByAnother(kFile, Access::Read, Deny::None);
  EXPECT_THROW(workorders.WriteWorkorderFile(), FileError);
  EXPECT_EQ(BytesOf(kFile), "before");
}

}  // namespace
}  // namespace lantos::test
