// The file of an active work order: reading, and the prompts when it isn't to be had.
#include "WorkordersBench.h"
#include "frame/UnfitFile.h"
#include "records/Customers.h"

namespace lantos::test {
namespace {

using ui::Answer;
using ui::Buttons;
using ui::Icon;

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
  ASSERT_TRUE(workorders.GetCurrWoRec(&file));
  ASSERT_NE(file, kNoHandle);
  for (const Access access : {Access::Read, Access::Write}) {
    EXPECT_THROW(SharedFile(PathOf(kFile), access, Deny::None), FileError);
  }
  environment.openFiles.CloseFile(file);
  EXPECT_NO_THROW(HeldByAnother(kFile));
}

TEST_F(GetCurrWoRecTest, AMissingFileIsAskedForUntilThePersonSkipsIt) {
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

TEST_F(GetCurrWoRecTest, ATagThatNamesAPathNamesNoFile) {
  std::filesystem::create_directory(PathOf("sub"));
  for (const char* place : {"../wo.txt", "sub/wo.txt"}) PutText(place, Short("004711", "A"));
  for (const std::string name : {"../wo.txt", "..\\wo.txt", "sub/wo.txt", "sub\\wo.txt"}) {
    MakeTag(name);
    desktop.boxes.clear();
    desktop.WillAnswer(Answer::Cancel);
    EXPECT_FALSE(workorders.GetCurrWoRec()) << name;
    ASSERT_EQ(desktop.boxes.size(), 1u) << name;
    EXPECT_EQ(desktop.boxes[0].title, "GetCurrWoRec(" + name + ")");
    EXPECT_TRUE(desktop.boxes[0].text.starts_with("File not found"));
  }
  std::filesystem::remove(PathOf("../wo.txt"));
}

TEST_F(GetCurrWoRecTest, ATextLongerThanAnyIsNotRead) {
  PutText(kFile, Short("004711", "A"));
  std::filesystem::resize_file(PathOf(kFile), kLongestTextFile + 1);
  EXPECT_THROW(workorders.GetCurrWoRec(), UnfitFile);
}

TEST_F(GetCurrWoRecTest, ALineLongerThanAnyIsNotRead) {
  PutText(kFile, {std::string(kLongestLine + 8192, 'x')});
  EXPECT_THROW(workorders.GetCurrWoRec(), UnfitFile);
}

TEST_F(GetCurrWoRecTest, AMissingFileThatAppearsIsReadAtRetry) {
  desktop.WillAnswer([this](const ui::Box&) {
    PutText(kFile, Short("004711", "A"));
    return Answer::Retry;
  });
  EXPECT_TRUE(workorders.GetCurrWoRec());
  EXPECT_EQ(Current().WorkorderNumber, 4711);
}

TEST_F(GetCurrWoRecTest, AHeldFileIsAskedForUntilThePersonSkipsIt) {
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

}  // namespace
}  // namespace lantos::test
