// The vehicle that a conversion shows, and what another copy stores meanwhile.
#include "ConversionBench.h"

namespace lantos {
namespace {

using test::ConversionBench;
using testing::HasSubstr;
using ui::Answer;

// The estimate's Ford is on file, and the only vehicle of its owner.
struct VehicleBench : ConversionBench {
  VehicleBench() {
    GiveVehicle();
    std::string owner = directory.Content("TQCSTDAT.DAT");
    owner.replace(customer::VLink.offset, 4, 4, '\0');
    directory.Put("TQCSTDAT.DAT", owner);
    onFile.Put(vehicle::Number, 7);
    onFile.Put(vehicle::Deleted, kVehicleLive);
    onFile.Put(vehicle::Year, "1999");
    onFile.Put(vehicle::Make, "Ford");
    onFile.Put(vehicle::Model, "Focus");
    onFile.Put(vehicle::Mileage, 100);
    onFile.Put(vehicle::VLink, kNoLink);
    PutRecord("TQVEHICL.DAT", onFile);
    WillConfirm();
  }
  // Another copy stores its record while the person types.
  void WillType(const char* mileage) {
    desktop.WillUse([this, mileage](ui::Form& form) {
      PutRecord("TQVEHICL.DAT", onFile);
      dynamic_cast<frmVehEdit&>(form).Mileage.DoType(mileage);
      test::Press(form, "F10");
      if (form.Visible()) test::Press(form, "F10");
    });
  }
  VehicleRecord Stored() { return records.vehicles.Read(0).value(); }

  VehicleRecord onFile;
};

TEST(ConversionVehicle, KeepsTheFieldsThatAnotherCopyStored) {
  VehicleBench bench;
  bench.onFile.Put(vehicle::LicenseNumber, "THEIRS");
  bench.WillType("12345");
  bench.WillEndQuietly();
  bench.Convert();
  EXPECT_EQ(bench.Stored().Get(vehicle::LicenseNumber), "THEIRS");
  EXPECT_EQ(bench.Stored().Get(vehicle::Mileage), 12345);
  EXPECT_EQ(bench.Ask("select VehLic from Estimates where EstimateNumber = 1001"), "THEIRS");
  EXPECT_EQ(bench.Ask("select VehMileage from Estimates where EstimateNumber = 1001"), "12345");
  EXPECT_THAT(bench.directory.Content("W0005001.tqa"), HasSubstr("THEIRS\r\n"));
}

TEST(ConversionVehicle, AsksAboutAFieldThatBothHaveChanged) {
  VehicleBench bench;
  bench.onFile.Put(vehicle::Mileage, 200);
  bench.WillType("12345");
  // Back to the screen first, then once more.
  bench.desktop.WillAnswer({Answer::Cancel, Answer::No});
  bench.WillEndQuietly();
  bench.Convert();
  EXPECT_THAT(bench.desktop.boxes[1].text, HasSubstr("Mileage: \"200\" is stored, \"12345\" is yours"));
  EXPECT_EQ(bench.Stored().Get(vehicle::Mileage), 200);
  EXPECT_THAT(bench.directory.Content("W0005001.tqa"), HasSubstr("Mileage=200\r\n"));
}

TEST(ConversionVehicle, ThatNobodyTypedIsTheOneOnFile) {
  VehicleBench bench;
  bench.onFile.Put(vehicle::LicenseNumber, "THEIRS");
  bench.Do("update Estimates set VehMileage = '90' where EstimateNumber = 1001");
  bench.desktop.WillUse([&](ui::Form& form) {
    bench.PutRecord("TQVEHICL.DAT", bench.onFile);
    test::Press(form, "Escape");
  });
  bench.desktop.WillAnswer(Answer::Yes);
  bench.WillEndQuietly();
  bench.Convert();
  EXPECT_EQ(bench.Stored().Get(vehicle::LicenseNumber), "THEIRS");
  EXPECT_EQ(bench.Ask("select VehLic from Estimates where EstimateNumber = 1001"), "THEIRS");
}

}  // namespace
}  // namespace lantos
