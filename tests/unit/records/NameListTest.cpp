// Departments and manufacturers.
#include <thread>

#include "InventoryFixture.h"
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

TEST_F(NameLists, ANewNameHasTheLastPlaceAndOneThatIsListedItsOwn) {
  Put(kDepartmentFile, Column("TIRES") + Column("") + Column("OIL"));
  records.departments.Load();
  EXPECT_EQ(records.departments.Add("BELTS"), 3U);
  const std::string written = BytesOf(kDepartmentFile);
  EXPECT_EQ(written, Column("TIRES") + Column("") + Column("OIL") + Column("BELTS") + "\r\n");
  EXPECT_EQ(records.departments.Add(" OIL "), 2U);
  EXPECT_EQ(BytesOf(kDepartmentFile), written);
  EXPECT_EQ(records.departments.Add("oil"), 4U) << "names are compared exactly";
}

TEST_F(NameLists, NamesThatTwoCopiesAddAreBothKept) {
  Put(kDepartmentFile, "TIRES");
  Environment otherEnvironment(clock, settings);
  otherEnvironment.files.SetDataDir(environment.files.DataDir());
  NameList other(otherEnvironment, kDepartmentFile);
  NameList& own = records.departments;
  own.Load();
  other.Load();
  EXPECT_EQ(other.Add("OIL"), 1U);
  EXPECT_EQ(own.Add("BELTS"), 2U) << "behind the name of the other copy";
  EXPECT_EQ(own.Names(), (Names{"TIRES", "OIL", "BELTS"}));
  EXPECT_EQ(other.Add("BELTS"), 2U) << "which is there already";
  EXPECT_EQ(other.Names(), own.Names());
  EXPECT_EQ(BytesOf(kDepartmentFile), Column("TIRES") + Column("OIL") + Column("BELTS") + "\r\n");
}

TEST_F(NameLists, OfTwoCopiesThatAddAtTheSameTimeNoNameIsLostAndNoneIsThereTwice) {
  constexpr int kEach = 8;
  const auto add = [this](char copy) {
    SystemClock running;
    UserSettings own(PathOf(std::string("settings") + copy));
    Environment world(running, own);
    world.files.SetDataDir(environment.files.DataDir());
    NameList names(world, kDepartmentFile);
    for (int i = 0; i < kEach; ++i) {
      names.Add(copy + std::to_string(i));
      names.Add("BOTH" + std::to_string(i));
    }
  };
  Put(kDepartmentFile, "");
  {
    const std::jthread one(add, 'A');
    const std::jthread other(add, 'B');
  }
  records.departments.Load();
  Names names = records.departments.Names();
  EXPECT_EQ(names.size(), 3 * kEach);
  std::sort(names.begin(), names.end());
  EXPECT_EQ(std::adjacent_find(names.begin(), names.end()), names.end());
}

TEST_F(NameLists, ANameThatTheFileHasLostIsWrittenAgainWithTheNext) {
  Put(kDepartmentFile, Column("TIRES") + Column("OIL"));
  records.departments.Load();
  Put(kDepartmentFile, Column("TIRES") + Column("GLASS"));
  EXPECT_EQ(records.departments.Add("BELTS"), 3U);
  EXPECT_EQ(BytesOf(kDepartmentFile), Column("TIRES") + Column("OIL") + Column("GLASS") + Column("BELTS") + "\r\n");
  std::filesystem::remove(PathOf(kDepartmentFile));
  EXPECT_EQ(records.departments.Add("WIPERS"), 4U);
  EXPECT_EQ(BytesOf(kDepartmentFile).size(), 5 * 20 + 2U);
}

TEST_F(NameLists, AFileThatIsHeldForAMomentIsWaitedFor) {
  Put(kDepartmentFile, "TIRES");
  records.departments.Load();
  SharedFile held = HeldByAnother(kDepartmentFile);
  PatientClock patient(clock.Now());
  patient.onWait = [&] { held.Close(); };
  Environment world(patient, settings);
  world.files.SetDataDir(environment.files.DataDir());
  EXPECT_EQ(NameList(world, kDepartmentFile).Add("OIL"), 1U);
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
