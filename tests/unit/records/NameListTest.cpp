// Departments and manufacturers.
#include "Fixture.h"
#include "records/inventory/InventoryLayout.h"
#include "records/inventory/NameList.h"

namespace lantos::test {
namespace {

using Names = std::vector<std::string>;

class NameLists : public ShopTest {
 protected:
  static std::string Column(std::string name) {
    name.resize(20, ' ');
    return name;
  }
};

TEST_F(NameLists, TheLineIsCutIntoColumnsOfTwentyTrimmedInOrder) {
  Put(kDepartmentFile, Column("TIRES") + Column("  OIL ") + "BELTS\r\n");
  Put(kManufacturerFile, Column("WAGNER") + Column("A NAME OF TWENTY CHR") + "\r\n");
  records.departments.Load();
  records.manufacturers.Load();
  EXPECT_EQ(records.departments.Names(), (Names{"TIRES", "OIL", "BELTS"}));
  EXPECT_EQ(records.manufacturers.Names(), (Names{"WAGNER", "A NAME OF TWENTY CHR"}));
}

TEST_F(NameLists, AMissingOrEmptyFileIsAnEmptyListAndIsNotMade) {
  records.departments.Load();
  EXPECT_EQ(records.departments.Names(), Names{});
  EXPECT_EQ(Everything().size(), 0U);
  for (const char* content : {"", "\r\n", "\r\nTIRES"}) {
    Put(kDepartmentFile, content);
    records.departments.Load();
    EXPECT_EQ(records.departments.Names(), Names{});
  }
}

TEST_F(NameLists, OnlyTheFirstLineCountsAndABlankColumnKeepsItsPlace) {
  Put(kDepartmentFile, Column("TIRES") + Column("") + Column("OIL") + "\nSECOND LINE");
  records.departments.Load();
  EXPECT_EQ(records.departments.Names(), (Names{"TIRES", "", "OIL"}));
}

TEST_F(NameLists, LoadingAnewForgetsTheNames) {
  Put(kDepartmentFile, "TIRES");
  records.departments.Load();
  records.departments.Load();
  EXPECT_EQ(records.departments.Names(), Names{"TIRES"});
}

TEST_F(NameLists, ANewNameGoesToTheEndAndTheWholeLineIsWritten) {
  Put(kDepartmentFile, "TIRES");
  records.departments.Load();
  records.departments.Add("  OIL ");
  EXPECT_EQ(records.departments.Names(), (Names{"TIRES", "OIL"}));
  EXPECT_EQ(BytesOf(kDepartmentFile), Column("TIRES") + Column("OIL") + "\r\n");
  records.manufacturers.Add("WAGNER");
  EXPECT_EQ(BytesOf(kManufacturerFile), Column("WAGNER") + "\r\n");
}

TEST_F(NameLists, ANameLongerThanTwentyCharactersIsCutByTheColumn) {
  records.departments.Add("A NAME OF TWENTY-THREE!");
  records.departments.Add("OIL");
  EXPECT_EQ(BytesOf(kDepartmentFile), "A NAME OF TWENTY-THR" + Column("OIL") + "\r\n");
  records.departments.Load();
  EXPECT_EQ(records.departments.Names(), (Names{"A NAME OF TWENTY-THR", "OIL"}));
}

TEST_F(NameLists, ALongerLineLeavesNothingBehindAShorterOne) {
  Put(kDepartmentFile, Column("TIRES") + "\r\n" + std::string(500, 'x'));
  records.departments.Load();
  records.departments.Add("OIL");
  EXPECT_EQ(BytesOf(kDepartmentFile), Column("TIRES") + Column("OIL") + "\r\n");
}

TEST_F(NameLists, AnyOtherOpenIsInTheWayAndANameThatCanNotBeWrittenIsNotKept) {
  Put(kDepartmentFile, "TIRES");
  records.departments.Load();
  for (const Deny deny : {Deny::None, Deny::All}) {
    const SharedFile held = HeldByAnother(kDepartmentFile, Access::Read, deny);
    EXPECT_THROW(records.departments.Load(), FileError);
    EXPECT_THROW(records.departments.Add("OIL"), FileError);
  }
  EXPECT_EQ(BytesOf(kDepartmentFile), "TIRES");
  records.departments.Load();
  EXPECT_THROW(
      {
        const SharedFile held = HeldByAnother(kDepartmentFile);
        records.departments.Add("OIL");
      },
      FileError);
  EXPECT_EQ(records.departments.Names(), Names{"TIRES"});
}

}  // namespace
}  // namespace lantos::test
