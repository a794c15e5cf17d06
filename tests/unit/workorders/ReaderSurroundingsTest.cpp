// What a text is read against: the check list, and the customer as the files have them now.
#include "WorkorderReaderBench.h"
#include "records/CheckList.h"
#include "records/Customers.h"

namespace lantos::test {
namespace {

using testing::ElementsAre;

class CheckListReader : public WorkorderReaderTest {
 protected:
  CheckListReader() {
    Checks().items = {Item("[Engine]"), Item("Oil"), Item("Belts"), Item("[Brakes]"), Item("Pads, front")};
  }
  Text Marked() const {
    Text marked;
    for (const ChecklistItem& item : records.checkList.items) {
      if (item.Used) marked.push_back(item.Name + "=" + item.Service + "|" + item.DueBackMiles);
    }
    return marked;
  }
};

TEST_F(CheckListReader, MarksAndFillsItems) {
  ReadSection("[Check List]", {"[Engine],", "Oil,changed,3000", "Belts, , ", "[Brakes] x"});
  EXPECT_THAT(Marked(), ElementsAre("[Engine]=|", "Oil=changed|3000", "Belts=|", "[Brakes]=|"));
  EXPECT_TRUE(Checks().ChecklistLoaded);
}

TEST_F(CheckListReader, WithoutLinesNothingIsLoaded) {
  ReadSection("[Check List]", {});
  EXPECT_FALSE(Checks().ChecklistLoaded);
  ReadBack({"[Check List]", "", std::string(1, '\0')});
  EXPECT_FALSE(Checks().ChecklistLoaded) << "the NUL that ends a file is no line";
}

TEST_F(CheckListReader, ANameThatIsNotThereIsToldAndSkipped) {
  desktop.WillAnswer({ui::Answer::Ok, ui::Answer::Ok, ui::Answer::Ok});
  ReadSection("[Check List]", {"Tires,worn,", "oil,changed,", "[Trim],", "Oil,changed"});
  ASSERT_EQ(desktop.boxes.size(), 3u);
  ExpectBox(desktop.boxes[0], "LoadCheckListValues", "Couldn't locate Tires in checklist.  Item skipped.",
            ui::Buttons::Ok, ui::Icon::None);
  EXPECT_EQ(desktop.boxes[1].text, "Couldn't locate oil in checklist.  Item skipped.");
  EXPECT_EQ(desktop.boxes[2].text, "Couldn't locate [Trim] in checklist.  Item skipped.");
  EXPECT_THAT(Marked(), ElementsAre("Oil=changed|"));
  EXPECT_TRUE(Checks().ChecklistLoaded);
}

TEST_F(CheckListReader, RunsOverEmptyLinesToTheEndOrTheNextWorkOrder) {
  const Workorder workorder =
      ReadBack({"[Check List]", "Oil,a,", "", "Belts,b,", "[Workorder]", "WorkorderNumber=7", "", "[Parts]", "A", ""});
  EXPECT_THAT(Marked(), ElementsAre("Oil=a|", "Belts=b|"));
  EXPECT_EQ(workorder.WorkorderNumber, 7);
  EXPECT_EQ(workorder.Parts.Size(), 2u);
}

class LiveCustomer : public WorkorderReaderTest {
 protected:
  Workorder Read(Text rows) {
    Workorder workorder = Cleared();
    rows.insert(rows.begin(), "[Customer]");
    Lines source(std::move(rows));
    const TextSurroundings around = Around();
    WorkorderReader reader(workorder, around, desktop, source);
    reader.liveCustomer = [this](std::int32_t number, CustomerRecord& record) {
      asked.push_back(number);
      if (number != 1002) return false;
      record.Put(customer::Number, 1002);
      record.Put(customer::Lastname, "Live");
      record.Put(customer::City, "Dayton");
      record.Put(customer::salesperson, "Bob");
      return true;
    };
    std::string line;
    source.Next(line);
    reader.ParseWoSection(line);
    return workorder;
  }
  std::vector<std::int32_t> asked;
};

TEST_F(LiveCustomer, TheTextStoredWithTheWorkOrderWinsAndAFieldWithoutAKeyKeepsTheLiveOne) {
  const Workorder workorder = Read({"CustomerNumber=1002", "Lastname=Then", ""});
  EXPECT_EQ(workorder.Customer.Get(customer::Lastname), "Then");
  EXPECT_EQ(workorder.Customer.Get(customer::City), "Dayton");
  EXPECT_EQ(workorder.Customer.Get(customer::salesperson), "Bob");
  EXPECT_EQ(asked, std::vector<std::int32_t>{1002});
}

TEST_F(LiveCustomer, OneWhoIsGoneIsWhatTheTextHas) {
  const Workorder workorder = Read({"CustomerNumber=7", "Lastname=Then", ""});
  EXPECT_EQ(workorder.Customer.Get(customer::Number), 7);
  EXPECT_EQ(workorder.Customer.Get(customer::Lastname), "Then");
  EXPECT_EQ(workorder.Customer.Get(customer::salesperson), "None");
  EXPECT_EQ(asked, std::vector<std::int32_t>{7});
}

TEST_F(LiveCustomer, WithoutTheKeyNobodyIsAskedFor) {
  Read({"Lastname=Then", ""});
  EXPECT_TRUE(asked.empty());
}

}  // namespace
}  // namespace lantos::test
