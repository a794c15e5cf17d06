#include "UpgradeFixture.h"

namespace lantos::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class UpgradesOfEngines : public Upgrades {
 protected:
  UpgradesOfEngines() {
    PutWithoutEngines();
    Put("TQCSTTAG.DAT", CustomerTagImage(77, "Smith,Ann", 0).Append(CustomerTagImage(78, "Jones,Bob", 317)));
    Put("TQCSTDAT.DAT", CustomerImage(77, "Smith", 0).Append(CustomerImage(78, "Jones", -1)));
    // The chain of Smith: the wrong kind of car, the same licence, the same VIN, the same year, make and model.
    Put("TQVEHICL.DAT", Vehicle(77, "1980", "Opel", "Kadett", "OTHER", "XYZ", "1.3L", 397)
                            .Append(Vehicle(77, "1990", "Ford", "F100", "", "ABC", "byLic", 794))
                            .Append(Vehicle(77, "1990", "Ford", "F100", "VIN1", "Q", "byVin", 1191))
                            .Append(Vehicle(77, "1999", "Ford", "F150", "", "", "byModel", 1588))
                            .Append(Vehicle(77, "1999", "Ford", "F150", "VIN1", "ABC", "second", -1)));
  }
  void PutRow(int number, int customer, const std::string& year, const std::string& make, const std::string& model,
              const std::string& vin, const std::string& licence) {
    Plain(
        "insert into Estimates (EstimateNumber, CustomerNumber, VehicleLink, VehYear, VehMake, VehModel, VehVIN, "
        "VehLic, VehDate, VehMileage) values (" +
        std::to_string(number) + "," + std::to_string(customer) + ",0,'" + year + "','" + make + "','" + model + "','" +
        vin + "','" + licence + "','09/29/2003','84512')");
  }
  std::vector<std::string> Engines() const {
    return PlainRows("select VehEng, VehTrans from Estimates order by EstimateNumber");
  }
};

TEST_F(UpgradesOfEngines, TheVehicleWithTheSameVinWinsOverLicenceAndModel) {
  PutRow(1, 77, "1999", "Ford", "F150", "VIN1", "ABC");
  PutRow(2, 77, "1999", "Ford", "F150", "NOT", "ABC");
  PutRow(3, 77, "1999", "Ford", "F150", "NOT", "NOT");
  PutRow(4, 77, "2002", "Ford", "F150", "NOT", "NOT");
  Run();
  EXPECT_THAT(Engines(), ElementsAre("byVin|Auto", "byLic|Auto", "byModel|Auto", " | "));
}

TEST_F(UpgradesOfEngines, OnlyTheTwoNewColumnsAreFilled) {
  PutRow(1, 77, "1999", "Ford", "F150", "VIN1", "ABC");
  Run();
  EXPECT_THAT(Snapshots(), ElementsAre("1999|Ford|F150|VIN1|ABC|09/29/2003|84512|byVin|Auto"));
}

TEST_F(UpgradesOfEngines, ASnapshotOfBlanksMatchesNothing) {
  PutRow(1, 77, " ", " ", " ", " ", " ");
  Run();
  EXPECT_THAT(Snapshots(), ElementsAre(" | | | | |09/29/2003|84512| | "));
}

TEST_F(UpgradesOfEngines, CustomersWithoutVehiclesOrUnknownGetBlanks) {
  PutRow(1, 78, "1999", "Ford", "F150", "VIN1", "ABC");
  PutRow(2, 99, "1999", "Ford", "F150", "VIN1", "ABC");
  PutRow(3, 0, "1999", "Ford", "F150", "VIN1", "ABC");
  Run();
  EXPECT_THAT(Engines(), ElementsAre(" | ", " | ", " | "));
}

TEST_F(UpgradesOfEngines, NullsOfTheSnapshotBecomeBlanks) {
  Plain("insert into Estimates (EstimateNumber, CustomerNumber) values (1, 77)");
  Run();
  EXPECT_THAT(Snapshots(), ElementsAre(" | | | | | | | | "));
}

// Else all rows would have blanks for good, since their columns are there from then on.
TEST_F(UpgradesOfEngines, GivingUpOnACustomerFileUndoesTheColumnsAndTheNextStartTriesAgain) {
  PutRow(1, 77, "1999", "Ford", "F150", "VIN1", "ABC");
  for (const char* file : {"TQCSTTAG.DAT", "TQCSTDAT.DAT"}) {
    const SharedFile held = HeldByAnother(file);
    desktop.WillAnswer(ui::Answer::Cancel);
    EXPECT_THAT(ErrorOf([&] { Run(); }), HasSubstr("customer")) << file;
    EXPECT_THAT(Columns("Estimates"), testing::Not(testing::Contains(HasSubstr("VehEng")))) << file;
  }
  Run();
  EXPECT_THAT(Engines(), ElementsAre("byVin|Auto"));
}

TEST_F(UpgradesOfEngines, ACustomerTagThatLeadsNowhereIsOneWithoutVehicles) {
  Put("TQCSTTAG.DAT", CustomerTagImage(77, "Smith,Ann", 31700));
  PutRow(1, 77, "1999", "Ford", "F150", "VIN1", "ABC");
  Run();
  EXPECT_THAT(Engines(), ElementsAre(" | "));
}

TEST_F(UpgradesOfEngines, TheLinkOfTheRowIsNotLookedAt) {
  PutRow(1, 78, "1980", "Opel", "Kadett", "OTHER", "XYZ");
  Run();
  EXPECT_THAT(Engines(), ElementsAre(" | ")) << "the row's link leads to another customer's Opel";
}

}  // namespace
}  // namespace lantos::test
