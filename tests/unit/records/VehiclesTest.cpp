#include "Fixture.h"
#include "records/Contention.h"
#include "records/Vehicles.h"
#include "records/modSystem.h"

namespace lantos::test {
namespace {

using ui::Answer;
using ui::Buttons;
using ui::Icon;

class VehiclesTest : public ShopTest {
 protected:
  VehiclesTest() { environment.log.Open(); }
  std::vector<FileLink> WalkFrom(FileLink first) {
    std::vector<FileLink> links;
    vehicles.Walk(first, [&](const VehicleRecord& record, FileLink link) {
      links.push_back(link);
      walked.push_back(record);
      return true;
    });
    return links;
  }
  std::string CurrentMake() const { return vehicles.CurrentVehicle.Get(vehicle::Make); }

  Vehicles& vehicles = records.vehicles;
  std::vector<VehicleRecord> walked;
};
using Links = std::vector<FileLink>;

TEST_F(VehiclesTest, ANewVehicleIsBlankLiveUnchainedAndHasTheShopsState) {
  PutGolden();
  records.system.ReadSystem();
  const VehicleRecord created = vehicles.NewVehicle();
  const std::string expected = Image(397).Long(4, -1).Text(114, "OH").Long(393, -1);
  const auto bytes = created.Bytes();
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()), expected);
}

TEST_F(VehiclesTest, ACustomerWithoutVehiclesHasALinkOfMinusOneAndAWalkDoesNothing) {
  PutGolden();
  EXPECT_EQ(WalkFrom(-1), Links());
}

TEST_F(VehiclesTest, ALinkOfZeroIsARealLinkToTheFirstVehicleInTheFile) {
  PutGolden();
  EXPECT_EQ(WalkFrom(0), Links({0}));
  EXPECT_EQ(walked.at(0).Get(vehicle::Model), "Crown Victoria");
}

TEST_F(VehiclesTest, ADeletedVehicleStillPassesItsChainOn) {
  PutGolden();
  EXPECT_EQ(WalkFrom(794), Links({794, 397, 1191}));
}

TEST_F(VehiclesTest, AWalkEndsWhenItsUserHasSeenEnough) {
  PutGolden();
  int seen = 0;
  vehicles.Walk(794, [&](const VehicleRecord&, FileLink) { return ++seen < 2; });
  EXPECT_EQ(seen, 2);
}

TEST_F(VehiclesTest, AWalkClosesTheFileAndLeavesCurrentVehicleOffsetAsItWas) {
  PutGolden();
  vehicles.CurrentVehicleOffset = 12;
  WalkFrom(794);
  EXPECT_EQ(vehicles.CurrentVehicleOffset, 12);
  EXPECT_NO_THROW(HeldByAnother(kVehicleFile));
  EXPECT_EQ(Log(), "CloseFile: Closed file with pointer = 2\n");
}

TEST_F(VehiclesTest, ALinkBeyondTheEndReadsAsABlankVehicleWhoseChainGoesThroughOffsetZeroAndEnds) {
  Image file;
  file.Append(VehicleImage(1, "First", 397)).Append(VehicleImage(1, "Second", 99999));
  Put(kVehicleFile, file);
  EXPECT_EQ(WalkFrom(0), Links({0, 397, 99999}));
  EXPECT_EQ(WalkFrom(99999), Links({99999, 0, 397}));
}

TEST_F(VehiclesTest, ADamagedChainThatComesBackEndsWhereItHasPassed) {
  Image file;
  file.Append(VehicleImage(1, "A", 397)).Append(VehicleImage(1, "B", 794)).Append(VehicleImage(1, "C", 397));
  Put(kVehicleFile, file);
  EXPECT_EQ(WalkFrom(0), Links({0, 397, 794}));
  Put(kVehicleFile, VehicleImage(1, "Alone", 0));
  EXPECT_EQ(WalkFrom(0), Links({0}));
}

TEST_F(VehiclesTest, ANegativeLinkReadsAsABlankVehicle) {
  Put(kVehicleFile, VehicleImage(1, "First", -7));
  EXPECT_EQ(WalkFrom(0), Links({0, -7}));
  EXPECT_EQ(walked.at(1), VehicleRecord());
}

TEST_F(VehiclesTest, ReadingByItselfSetsTheOffsetAndReadingInAnOpenFileDoesNot) {
  PutGolden();
  vehicles.ReadVehicle(397);
  EXPECT_EQ(vehicles.CurrentVehicleOffset, 397);
  FileHandle handle = vehicles.OpenVehicleForRead();
  vehicles.ReadVehicle(794, handle);
  EXPECT_EQ(vehicles.CurrentVehicleOffset, 397);
  EXPECT_EQ(vehicles.CurrentVehicle.Get(vehicle::Model), "Impala");
  environment.openFiles.CloseFile(handle);
}

TEST_F(VehiclesTest, LookingAtAVehicleLeavesTheCurrentOneAlone) {
  PutGolden();
  vehicles.ReadVehicle(397);
  const VehicleRecord current = vehicles.CurrentVehicle;
  const std::optional<VehicleRecord> other = vehicles.Read(794);
  ASSERT_TRUE(other);
  EXPECT_EQ(other->Get(vehicle::Model), "Impala");
  WalkFrom(794);
  EXPECT_TRUE(vehicles.Write(794, *other));
  EXPECT_EQ(vehicles.CurrentVehicle, current);
  EXPECT_EQ(vehicles.CurrentVehicleOffset, 397);
}

TEST_F(VehiclesTest, TheCurrentVehicleFollowsAWriteOfItself) {
  PutGolden();
  vehicles.ReadVehicle(397);
  VehicleRecord changed = vehicles.CurrentVehicle;
  changed.Put(vehicle::Deleted, kVehicleDeleted);
  EXPECT_TRUE(vehicles.Write(397, changed));
  EXPECT_EQ(vehicles.CurrentVehicle, changed);
  EXPECT_EQ(LongAt(BytesOf(kVehicleFile), 397 + 4), kVehicleDeleted);
}

TEST_F(VehiclesTest, AWriteThatFailsChangesNothingInMemory) {
  PutGolden();
  vehicles.ReadVehicle(397);
  const VehicleRecord before = vehicles.CurrentVehicle;
  const SharedFile other = HeldByAnother(kVehicleFile, Access::Read, Deny::None);
  desktop.WillAnswer({Answer::Ok, Answer::Ok});
  EXPECT_FALSE(vehicles.Write(397, VehicleRecord()));
  EXPECT_EQ(vehicles.Read(794), std::nullopt);
  EXPECT_EQ(vehicles.CurrentVehicle, before);
  EXPECT_EQ(vehicles.CurrentVehicleOffset, 397);
}

TEST_F(VehiclesTest, OpeningForReadAsksWithRetryAndCancelGivesNoHandle) {
  PutGolden();
  const SharedFile other = HeldByAnother(kVehicleFile);
  desktop.WillAnswer({Answer::Retry, Answer::Cancel});
  EXPECT_EQ(vehicles.OpenVehicleForRead(), kNoHandle);
  ASSERT_EQ(desktop.boxes.size(), 2U);
  ExpectBox(desktop.boxes[0], "OpenVehicleForRead", "Could not open Vehicle file, click Retry to try again.",
            Buttons::RetryCancel, Icon::Critical);
}

TEST_F(VehiclesTest, AWalkThatGetsNoFileReadsNothing) {
  PutGolden();
  const SharedFile other = HeldByAnother(kVehicleFile);
  desktop.WillAnswer(Answer::Cancel);
  EXPECT_EQ(WalkFrom(794), Links());
}

TEST_F(VehiclesTest, AFailedReadIsToldOnceAndLeavesTheVehicleNotOnFile) {
  PutGolden();
  vehicles.ReadVehicle(0);
  const SharedFile other = HeldByAnother(kVehicleFile, Access::Read, Deny::None);
  desktop.WillAnswer(Answer::Ok);
  vehicles.ReadVehicle(397);
  EXPECT_EQ(vehicles.CurrentVehicleOffset, kNoLink);
  EXPECT_EQ(CurrentMake(), "Ford");
  ExpectBox(desktop.boxes.at(0), "ReadVehicle", "Could not open Vehicle file.", Buttons::Ok, Icon::Critical);
}

TEST_F(VehiclesTest, AFailedWriteIsToldOnceAndLeavesTheVehicleNotOnFile) {
  PutGolden();
  vehicles.ReadVehicle(0);
  vehicles.LoadVehicles();
  const SharedFile other = HeldByAnother(kVehicleFile, Access::Read, Deny::None);
  desktop.WillAnswer(Answer::Ok);
  vehicles.WriteVehicle();
  EXPECT_EQ(vehicles.CurrentVehicleOffset, kNoLink);
  EXPECT_TRUE(vehicles.Loaded());
  ExpectBox(desktop.boxes.at(0), "WriteVehicle", "Could not open Vehicle file.", Buttons::Ok, Icon::Critical);
}

TEST_F(VehiclesTest, ReadingAndWritingTryAThousandTimesMoreAtOnceAndThenTellWithoutAChoice) {
  for (const ContentionRule* rule : {&contention::kReadVehicle, &contention::kWriteVehicle}) {
    int tries = 0;
    Contention contention(*rule, desktop, environment);
    desktop.WillAnswer(Answer::Ok);
    const LocalTime before = clock.Now();
    EXPECT_FALSE(contention.Run([&] {
      ++tries;
      throw FileError(FileErrorNumber::PermissionDenied, "test");
    }));
    EXPECT_EQ(tries, 1001);
    EXPECT_EQ(clock.Now(), before);
  }
  EXPECT_EQ(desktop.boxes.size(), 2U);
}

TEST_F(VehiclesTest, AWriteMarksTheArrayNotLoaded) {
  PutGolden();
  vehicles.ReadVehicle(0);
  vehicles.LoadVehicles();
  EXPECT_EQ(vehicles.Count(), 4);
  vehicles.WriteVehicle();
  EXPECT_EQ(vehicles.Count(), -1);
}

TEST_F(VehiclesTest, TheArrayHoldsAllVehiclesInFileOrderDeletedOnesToo) {
  EXPECT_EQ(vehicles.Count(), -1) << "before the first load";
  PutGolden();
  vehicles.LoadVehicles();
  ASSERT_EQ(vehicles.Count(), 4);
  EXPECT_EQ(vehicles[1].Get(vehicle::Deleted), kVehicleDeleted);
  EXPECT_EQ(vehicles[3].Get(vehicle::Model), "Nova");
  EXPECT_EQ(vehicles[4], VehicleRecord());
}

TEST_F(VehiclesTest, TheCountOfADamagedFileIsRoundedToNearestHalvesToEven) {
  const std::string golden = GoldenBytes(kVehicleFile);
  Put(kVehicleFile, golden.substr(0, 397 + 198));
  vehicles.LoadVehicles();
  EXPECT_EQ(vehicles.Count(), 1);
  EXPECT_EQ(vehicles[1], VehicleRecord());
  Put(kVehicleFile, golden.substr(0, 397 + 199));
  vehicles.LoadVehicles();
  ASSERT_EQ(vehicles.Count(), 2);
  EXPECT_EQ(vehicles[1].Get(vehicle::Model), "Pinto");
  EXPECT_EQ(vehicles[1].Get(vehicle::VLink), 0) << "what is cut off reads as zeros";
}

TEST_F(VehiclesTest, AnAbsentFileIsAnEmptyArray) {
  vehicles.LoadVehicles();
  EXPECT_EQ(vehicles.Count(), 0);
  EXPECT_TRUE(vehicles.Loaded());
}

TEST_F(VehiclesTest, ALockedFileEndsTheLoadOfAllVehiclesWithAnError) {
  PutGolden();
  const SharedFile other = HeldByAnother(kVehicleFile);
  EXPECT_THROW(vehicles.LoadVehicles(), FileError);
  EXPECT_FALSE(vehicles.Loaded());
}

TEST(FirstMileage, TakesTheFirstMileageAndDateAndIsResetWithoutMileage) {
  VehicleRecord record;
  record.Put(vehicle::Mileage, 500);
  record.Put(vehicle::Date, 731868);
  Vehicles::FollowFirstMileage(record);
  EXPECT_EQ(record.Get(vehicle::FirstMileage), 500);
  EXPECT_EQ(record.Get(vehicle::FirstDate), 731868);
  record.Put(vehicle::Mileage, 900);
  record.Put(vehicle::Date, 731900);
  Vehicles::FollowFirstMileage(record);
  EXPECT_EQ(record.Get(vehicle::FirstMileage), 500);
  EXPECT_EQ(record.Get(vehicle::FirstDate), 731868);
  record.Put(vehicle::Mileage, 0);
  Vehicles::FollowFirstMileage(record);
  EXPECT_EQ(record.Get(vehicle::FirstMileage), 0);
  EXPECT_EQ(record.Get(vehicle::FirstDate), 0);
}

}  // namespace
}  // namespace lantos::test
