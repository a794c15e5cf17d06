#include "records/CheckList.h"

#include "records/Fixture.h"
#include "records/OpenedFile.h"
#include "records/TextLines.h"

namespace lantos {
namespace {

using Texts = std::vector<std::string>;

class CheckListTest : public test::ShopTest {
 protected:
  Texts Load(const std::string& text) {
    Put("CHECKLST.TXT", text);
    table.LoadChecklistFile();
    Texts names;
    for (const ChecklistItem& item : table.items) names.push_back(item.Name);
    return names;
  }
  CheckListTable& table = records.checkList;
};

TEST_F(CheckListTest, BlankLinesAreSkippedAndTextBehindACommaIsIgnored) {
  EXPECT_EQ(Load("  [Engine] , x\r\n\r\n   \r\nOil, the stick, twice\r\n Belts \nPads"),
            (Texts{"[Engine]", "Oil", "Belts", "Pads"}));
  EXPECT_TRUE(table.items[0].IsCategory());
  EXPECT_FALSE(table.items[1].IsCategory());
}

TEST_F(CheckListTest, IsReadOnce) {
  Load("[Engine]\r\nOil\r\n");
  EXPECT_EQ(Load("[Other]\r\n"), (Texts{"[Engine]", "Oil"}));
}

TEST_F(CheckListTest, AnAbsentOrEmptyFileIsAnEmptyList) {
  table.LoadChecklistFile();
  EXPECT_TRUE(table.items.empty());
  EXPECT_TRUE(Load("").empty());
  EXPECT_FALSE(table.ChecklistLoaded);
}

TEST_F(CheckListTest, AFileThatSomebodyHoldsSurfaces) {
  Put("CHECKLST.TXT", "Oil\r\n");
  const SharedFile holder = HeldByAnother("CHECKLST.TXT", Access::Read, Deny::None);
  EXPECT_THROW(table.LoadChecklistFile(), FileError);
}

TEST_F(CheckListTest, ClearingUnticksAndEmptiesEveryItem) {
  Load("[Engine]\r\nOil\r\n");
  table.items[1] = {true, "Oil", "Leaks", "3000"};
  table.ChecklistLoaded = true;
  table.ClearCheckListValues();
  EXPECT_FALSE(table.items[1].Used);
  EXPECT_EQ(table.items[1].Service + table.items[1].DueBackMiles, "");
  EXPECT_FALSE(table.ChecklistLoaded);
  EXPECT_EQ(table.Find("Oil"), 1);
  EXPECT_EQ(table.Find("oil"), -1);
}

TEST_F(CheckListTest, TextLinesAreWrittenWholeAndReadBack) {
  Put("LINES.TXT", "a much longer text than what follows\r\nand more\r\n");
  PutTextLines(*OpenedFile(environment.openFiles, "LINES.TXT", Access::ReadWrite, Deny::All), {"one", "", "three"});
  EXPECT_EQ(BytesOf("LINES.TXT"), "one\r\n\r\nthree\r\n");
  EXPECT_EQ(ReadTextLines(environment, "lines.txt"), (Texts{"one", "", "three"}));
  EXPECT_EQ(ReadTextLines(environment, "absent.txt"), std::nullopt);
  Put("nuls.txt", std::string("one\0\0\r\n", 7));
  EXPECT_EQ(ReadTextLines(environment, "nuls.txt"), (Texts{std::string("one\0\0", 5)})) << "they are the line's own";
}

TEST_F(CheckListTest, TextLinesEndAtAnyLineEnd) {
  Put("LINES.TXT", "a\rb\nc\r\nd");
  EXPECT_EQ(ReadTextLines(environment, "LINES.TXT"), (Texts{"a", "b", "c", "d"}));
}

}  // namespace
}  // namespace lantos
