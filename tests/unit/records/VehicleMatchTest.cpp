// Which vehicle of a customer is meant by what an estimate says of it.
#include "records/VehicleMatch.h"

#include "Fixture.h"

namespace lantos::test {
namespace {

class VehicleMatch : public ShopTest {
 protected:
  // A chain of three, the last one in the file first.
  VehicleMatch() {
    Image file;
    file.Append(VehicleImage(5, "HONDA", -1).Text(29, "CIVIC").Text(50, "1999").Text(82, "V1").Text(103, "LIC-1"));
    file.Append(VehicleImage(5, "FORD", 0).Text(29, "F150").Text(50, "2000").Text(82, "V2").Text(103, "LIC-2"));
    file.Append(VehicleImage(5, "HONDA", 397).Text(29, "CIVIC").Text(50, "1999").Text(82, "V3").Text(103, "LIC-2"));
    Put(kVehicleFile, file);
  }
  static VehicleRecord Wanted(std::string_view vin, std::string_view license, std::string_view make = "",
                              std::string_view model = "", std::string_view year = "") {
    VehicleRecord record;
    record.Put(vehicle::VIN, vin);
    record.Put(vehicle::LicenseNumber, license);
    record.Put(vehicle::Make, make);
    record.Put(vehicle::Model, model);
    record.Put(vehicle::Year, year);
    return record;
  }
  FileLink Match(const VehicleRecord& wanted) {
    const std::optional<MatchedVehicle> found = MatchVehicle(records.vehicles, wanted, 794);
    return found ? found->offset : kNoLink;
  }
};

TEST_F(VehicleMatch, TheVinCountsMoreThanTheLicenseAndThatMoreThanTheModel) {
  EXPECT_EQ(Match(Wanted("V1", "LIC-2", "FORD", "F150", "2000")), 0);
  EXPECT_EQ(Match(Wanted("V9", "LIC-1", "FORD", "F150", "2000")), 0);
  EXPECT_EQ(Match(Wanted("V9", "LIC-9", "FORD", "F150", "2000")), 397);
}

TEST_F(VehicleMatch, OfSeveralTheFirstInTheChainIsMeant) {
  EXPECT_EQ(Match(Wanted("", "LIC-2")), 794);
  EXPECT_EQ(Match(Wanted("", "", "HONDA", "CIVIC", "1999")), 794);
}

TEST_F(VehicleMatch, BlankFieldsMatchNothingAndAModelNeedsAllThree) {
  EXPECT_EQ(Match(Wanted("", "")), kNoLink);
  EXPECT_EQ(Match(Wanted("", "", "HONDA")), kNoLink);
}

TEST_F(VehicleMatch, TheMatchIsTheWholeRecordAndTheCurrentVehicleStays) {
  records.vehicles.MakeCurrent(Wanted("MINE", ""), 55);
  const std::optional<MatchedVehicle> found = MatchVehicle(records.vehicles, Wanted("V2", ""), 794);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->record.Get(vehicle::Model), "F150");
  EXPECT_EQ(records.vehicles.CurrentVehicle, Wanted("MINE", ""));
  EXPECT_EQ(records.vehicles.CurrentVehicleOffset, 55);
}

}  // namespace
}  // namespace lantos::test
