#include "CustomersFixture.h"
#include "records/Customers.h"
#include "records/Vehicles.h"

namespace lantos::test {
namespace {

// --- writing

TEST_F(CustomersTest, ANewCustomerIsAppendedToBothFiles) {
  PutCustomers(2);
  MakeCurrentCustomer(3, "Adams", "John");
  customers.CurrentCustomer.Put(customer::Spouse, "Mary");
  customers.CurrentCustomer.Put(customer::SpouseLast, "Miller");
  customers.CurrentCustomer.Put(customer::HomePhone, "555-1234");
  EXPECT_TRUE(customers.WriteCustomer());
  const std::string tag = CustomerTagImage(3, "Adams,John", 2 * 317).Text(36, "Miller,Mary").Text(72, "555-1234");
  EXPECT_EQ(BytesOf(kCustomerTagFile).substr(192), tag);
  const std::string master =
      CustomerImage(3, "Adams").Text(25, "John").Text(46, "Mary").Text(67, "Miller").Text(156, "555-1234");
  EXPECT_EQ(BytesOf(kCustomerFile).substr(634), master);
  EXPECT_EQ(customers.Count(), 3U);
  EXPECT_EQ(customers.FindCustomerTag(3), 2U);
  EXPECT_EQ(customers.CurrentTag.Get(customertag::Offset), 634);
}

TEST_F(CustomersTest, TheTagFileIsClosedFirst) {
  PutCustomers(1);
  customers.LoadCustomerTags();
  MakeCurrentCustomer(1, "A", "");
  customers.WriteCustomer();
  EXPECT_EQ(Log(),
            "CloseFile: Closed file with pointer = 2\n"
            "CloseFile: Closed file with pointer = 2\n"
            "CloseFile: Closed file with pointer = 3\n");
}

TEST_F(CustomersTest, NamesOf20CharactersMakeAKeyCutTo32WithTheCommaAndPartOfTheFirstName) {
  MakeCurrentCustomer(1, "abcdefghijklmnopqrst", "ABCDEFGHIJKLMNOPQRST");
  customers.WriteCustomer();
  EXPECT_EQ(BytesOf(kCustomerTagFile).substr(4, 32), "abcdefghijklmnopqrst,ABCDEFGHIJK");
}

TEST_F(CustomersTest, ACustomerWithoutSpouseHasTheSpouseKeyComma) {
  MakeCurrentCustomer(1, "Adams", "John");
  customers.WriteCustomer();
  EXPECT_EQ(BytesOf(kCustomerTagFile).substr(36, 32), "," + std::string(31, '\0'));
}

TEST_F(CustomersTest, NamesAreTrimmedInTheMasterToo) {
  MakeCurrentCustomer(1, "  Adams ", std::string_view("John\0old", 8));
  customers.WriteCustomer();
  EXPECT_EQ(BytesOf(kCustomerFile).substr(4, 42), "Adams" + std::string(16, '\0') + "John" + std::string(17, '\0'));
}

TEST_F(CustomersTest, TheTagsPhoneIsTheHomePhoneWithItsBlanksUpToItsNul) {
  MakeCurrentCustomer(1, "Adams", "John");
  customers.CurrentCustomer.Put(customer::HomePhone, std::string_view("  555-12 \0old", 13));
  customers.WriteCustomer();
  EXPECT_EQ(BytesOf(kCustomerTagFile).substr(72, 15), "  555-12 " + std::string(6, '\0'));
  EXPECT_EQ(BytesOf(kCustomerFile).substr(156, 15), std::string("  555-12 \0old\0\0", 15)) << "the master stays";
}

TEST_F(CustomersTest, AnotherWorkstationsNewCustomerIsMetByTheReloadOfAMiss) {
  PutCustomers(2);
  customers.LoadCustomerTags();
  PutCustomers(3);
  MakeCurrentCustomer(4, "Mine", "");
  EXPECT_TRUE(customers.WriteCustomer());
  EXPECT_EQ(customers.Count(), 4U);
  EXPECT_EQ(BytesOf(kCustomerTagFile).size(), 4U * 96);
  EXPECT_EQ(LongAt(BytesOf(kCustomerTagFile), 3 * 96), 4);
}

TEST_F(CustomersTest, AnEmptySlotOfAnotherProgramShiftsTheTagsBehindItOnUpdate) {
  Image tags;
  tags.Append(CustomerTagImage(0, "", 0)).Append(CustomerTagImage(5, "Five,", 0));
  Put(kCustomerTagFile, tags);
  Put(kCustomerFile, CustomerImage(5, "Five"));
  customers.LoadCustomerTags();
  customers.FindCustomerTag(5);
  customers.ReadCustomer();
  customers.WriteCustomer();
  const std::string after = BytesOf(kCustomerTagFile);
  EXPECT_EQ(LongAt(after, 0), 5);
  EXPECT_EQ(LongAt(after, 96), 5);
}

TEST_F(CustomersTest, CancelAtTheTagFileWritesNothing) {
  PutCustomers(1);
  customers.LoadCustomerTags();
  const auto before = Everything();
  const SharedFile other = HeldByAnother(kCustomerTagFile, Access::Read, Deny::Write);
  MakeCurrentCustomer(1, "Changed", "");
  desktop.WillAnswer({Answer::Ok, Answer::Cancel});
  EXPECT_FALSE(customers.WriteCustomer());
  ExpectBox(desktop.boxes.at(0), "WriteCustomer()",
            "Customer tags file locked by another user.\rClick OK to try again, or CANCEL to exit.", Buttons::OkCancel,
            Icon::Exclamation);
  EXPECT_EQ(BytesOf(kCustomerTagFile), before.at(std::string(kCustomerTagFile)));
  EXPECT_EQ(BytesOf(kCustomerFile), before.at(std::string(kCustomerFile)));
  EXPECT_EQ(customers.Tag(0).Get(customertag::NameKey), "Name1,") << "what wasn't written isn't found";
  EXPECT_EQ(customers.CurrentTag.Get(customertag::NameKey), "Name1,");
}

TEST_F(CustomersTest, CancelAtTheDataFileWritesNothingAndFreesTheTagFile) {
  PutCustomers(1);
  customers.LoadCustomerTags();
  const std::string tags = BytesOf(kCustomerTagFile);
  const SharedFile other = HeldByAnother(kCustomerFile);
  MakeCurrentCustomer(1, "Changed", "");
  desktop.WillAnswer(Answer::Cancel);
  EXPECT_FALSE(customers.WriteCustomer());
  ExpectBox(desktop.boxes.at(0), "WriteCustomer()",
            "Customer data file locked by another user.\rClick OK to try again, or CANCEL to exit.", Buttons::OkCancel,
            Icon::Exclamation);
  EXPECT_EQ(BytesOf(kCustomerTagFile), tags);
  EXPECT_NO_THROW(HeldByAnother(kCustomerTagFile));
}

TEST_F(CustomersTest, ANewCustomerGivenUpAtFirstIsAppendedByTheNextWriting) {
  PutCustomers(1);
  customers.LoadCustomerTags();
  MakeCurrentCustomer(2, "New", "");
  {
    const SharedFile other = HeldByAnother(kCustomerFile);
    desktop.WillAnswer(Answer::Cancel);
    EXPECT_FALSE(customers.WriteCustomer());
  }
  EXPECT_EQ(customers.Count(), 1U);
  EXPECT_EQ(customers.IndexOf(2), customers.Count());
  EXPECT_TRUE(customers.WriteCustomer());
  EXPECT_EQ(customers.IndexOf(2), 1U);
  EXPECT_EQ(BytesOf(kCustomerFile).size(), 2U * 317);
  EXPECT_EQ(LongAt(BytesOf(kCustomerTagFile), 96 + 68), 317);
}

TEST_F(CustomersTest, WithoutTheTagsNothingIsWritten) {
  PutCustomers(2);
  const std::string tags = BytesOf(kCustomerTagFile);
  MakeCurrentCustomer(3, "New", "");
  const SharedFile other = HeldByAnother(kCustomerTagFile);
  desktop.WillAnswer(Answer::Cancel);
  EXPECT_FALSE(customers.WriteCustomer());
  EXPECT_EQ(BytesOf(kCustomerTagFile), tags);
}

TEST_F(CustomersTest, ANewCustomerGetsCityAndStateFromTheSystemRecordAndTheLevelRetail) {
  PutGolden();
  MakeCurrentCustomer(3, "Old", "");
  customers.NewCustomer();
  const std::string expected =
      CustomerImage(1005, "").Text(121, "Springfield").Text(142, "OH").Integer(207, 3).Long(209, 731868).Long(313, -1);
  const auto bytes = customers.CurrentCustomer.Bytes();
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()), expected);
  EXPECT_EQ(LongAt(BytesOf(kSystemFile), 12), 1006);
}

// --- vehicles of a customer

TEST_F(CustomersTest, ACustomerWithoutVehiclesHasNoLatestVehicleDate) {
  PutGolden();
  MakeCurrentCustomer(1, "", "");
  EXPECT_EQ(customers.LatestVehicleDate(customers.CurrentCustomer), -1);
}

TEST_F(CustomersTest, TheLatestVehicleDateIsTheGreatestBelow1000000) {
  PutGolden();
  customers.LoadCustomerTags();
  customers.FindCustomerTag(1001);
  customers.ReadCustomer();
  records.vehicles.CurrentVehicle.Put(vehicle::Make, "Kept");
  records.vehicles.CurrentVehicleOffset = 55;
  EXPECT_EQ(customers.LatestVehicleDate(customers.CurrentCustomer), ToFileDate(37880));
  EXPECT_EQ(records.vehicles.CurrentVehicle.Get(vehicle::Make), "Kept");
  EXPECT_EQ(records.vehicles.CurrentVehicleOffset, 55);
  const FileHandle handle = records.vehicles.OpenVehicleForRead();
  EXPECT_EQ(customers.LatestVehicleDate(customers.CurrentCustomer, handle), ToFileDate(37880));
  EXPECT_NO_THROW(environment.openFiles[handle]) << "an open handle stays open";
}

TEST_F(CustomersTest, ANewVehicleBecomesTheFirstOfItsCustomersChain) {
  PutGolden();
  customers.LoadCustomerTags();
  customers.FindCustomerTag(1001);
  customers.ReadCustomer();
  VehicleRecord vehicle = records.vehicles.NewVehicle();
  vehicle.Put(vehicle::Make, "Honda");
  records.vehicles.MakeCurrent({}, 55);
  EXPECT_EQ(customers.AppendVehicle(vehicle), 1588);
  EXPECT_EQ(records.vehicles.CurrentVehicle, VehicleRecord()) << "the current vehicle is another one";
  EXPECT_EQ(records.vehicles.CurrentVehicleOffset, 55);
  EXPECT_EQ(LongAt(BytesOf(kVehicleFile), 1588 + 393), 794);
  EXPECT_EQ(LongAt(BytesOf(kCustomerFile), 317 + 313), 1588);
  EXPECT_EQ(records.vehicles.Count(), 5) << "the array was loaded at once";
}

TEST_F(CustomersTest, AVehicleThatIsNotOnFileIsAppendedByWriteVehicle) {
  PutGolden();
  customers.LoadCustomerTags();
  customers.FindCustomerTag(1003);
  customers.ReadCustomer();
  records.vehicles.MakeCurrent(records.vehicles.NewVehicle(), kNoLink);
  records.vehicles.WriteVehicle();
  EXPECT_EQ(records.vehicles.CurrentVehicleOffset, 1588);
  EXPECT_EQ(BytesOf(kVehicleFile).size(), 5U * 397);
  EXPECT_EQ(LongAt(BytesOf(kCustomerFile), 313), 1588);
}

TEST_F(CustomersTest, AVehicleThatCannotBeWrittenLeavesTheChainAsItIs) {
  PutGolden();
  customers.LoadCustomerTags();
  customers.FindCustomerTag(1001);
  customers.ReadCustomer();
  VehicleRecord vehicle = records.vehicles.NewVehicle();
  const SharedFile other = HeldByAnother(kVehicleFile);
  desktop.WillAnswer(Answer::Ok);
  EXPECT_EQ(customers.AppendVehicle(vehicle), kNoLink);
  EXPECT_EQ(customers.CurrentCustomer.Get(customer::VLink), 794);
  EXPECT_EQ(BytesOf(kCustomerFile), GoldenBytes(kCustomerFile));
}

// --- names for lists and the board

TEST_F(CustomersTest, TheSpouseNameIsTheLastNameFollowedByTheWholeSpouseKey) {
  Image tags;
  tags.Append(CustomerTagImage(1, " Adams,John ", 0).Text(36, " ,Mary "));
  tags.Append(CustomerTagImage(2, ",John", 0).Text(36, "Lee,Ann"));
  tags.Append(CustomerTagImage(3, "no comma", 0).Text(36, "Lee,Ann"));
  tags.Append(CustomerTagImage(4, "A,B,C", 0).Text(36, "Lee,Ann"));
  Put(kCustomerTagFile, tags);
  customers.LoadCustomerTags();
  EXPECT_EQ(customers.SpouseName(0), "Adams,Mary");
  EXPECT_EQ(customers.SpouseName(1), "");
  EXPECT_EQ(customers.SpouseName(2), "");
  EXPECT_EQ(customers.SpouseName(3), "ALee,Ann");
  EXPECT_EQ(customers.Tag(0).Bytes()[4], std::byte{'A'}) << "trimmed in the array too";
}

TEST_F(CustomersTest, LookingUpLoadsEmptyTagsFirst) {
  PutCustomers(3);
  EXPECT_EQ(LookedUpName(2), "Name2");
  EXPECT_EQ(customers.Count(), 3U);
}

TEST_F(CustomersTest, LookingUpTheSameNumberAgainOpensNoFile) {
  PutCustomers(3);
  LookedUpName(2);
  std::filesystem::remove(PathOf(kCustomerFile));
  std::filesystem::remove(PathOf(kCustomerTagFile));
  EXPECT_EQ(LookedUpName(2), "Name2");
  EXPECT_FALSE(std::filesystem::exists(PathOf(kCustomerFile)));
}

TEST_F(CustomersTest, LookingUpLeavesTheCurrentCustomerAlone) {
  PutCustomers(3);
  ASSERT_TRUE(customers.MakeCurrent(3));
  EXPECT_EQ(LookedUpName(2), "Name2");
  EXPECT_EQ(LookedUpName(77), "");
  EXPECT_EQ(CurrentLastname(), "Name3");
  EXPECT_EQ(customers.CurrentTag.Get(customertag::Number), 3);
}

TEST_F(CustomersTest, AnUnknownNumberReloadsTheTagsOnceAndIsThenUnknown) {
  PutCustomers(2);
  EXPECT_EQ(LookedUpName(1), "Name1");
  PutCustomers(4);
  EXPECT_EQ(LookedUpName(4), "Name4");
  EXPECT_EQ(customers.LookupCustomer(5), nullptr);
  EXPECT_EQ(customers.Count(), 4U);
}

TEST_F(CustomersTest, AnotherCustomerReadInBetweenIsNotTakenForTheRememberedOne) {
  PutCustomers(3);
  LookedUpName(2);
  customers.FindCustomerTag(3);
  customers.ReadCustomer();
  EXPECT_EQ(LookedUpName(2), "Name2");
}

TEST_F(CustomersTest, ACustomerJustWrittenIsSeenByTheLookUp) {
  PutCustomers(2);
  LookedUpName(2);
  ASSERT_TRUE(customers.MakeCurrent(2));
  customers.CurrentCustomer.Put(customer::Lastname, "Renamed");
  customers.WriteCustomer();
  EXPECT_EQ(LookedUpName(2), "Renamed");
  EXPECT_EQ(LookedUpName(1), "Name1");
  EXPECT_EQ(LookedUpName(2), "Renamed");
}

TEST_F(CustomersTest, TheCustomerReadLastIsInMemoryUntilAnotherOneIsRead) {
  PutCustomers(2);
  ASSERT_TRUE(customers.MakeCurrent(2));
  std::string masters = BytesOf(kCustomerFile);
  Put(kCustomerFile, masters.replace(317 + 4, 5, "Other"));
  EXPECT_EQ(LookedUpName(2), "Name2");
  ASSERT_TRUE(customers.MakeCurrent(2));
  EXPECT_EQ(CurrentLastname(), "Name2");
  EXPECT_EQ(LookedUpName(1), "Name1");
  EXPECT_EQ(CurrentLastname(), "Name2") << "a look-up makes nobody current";
  EXPECT_EQ(LookedUpName(2), "Other");
  ASSERT_TRUE(customers.MakeCurrent(2));
  EXPECT_EQ(CurrentLastname(), "Other");
}

// What another workstation has added meanwhile must not be undone by a record that was read before it.
TEST_F(CustomersTest, AVehicleIsChainedToTheRecordAsItLiesOnFile) {
  PutCustomers(2);
  Put(kVehicleFile, std::string(2 * VehicleRecord::kLength, '\0'));
  ASSERT_TRUE(customers.MakeCurrent(2));
  LookedUpName(1);
  CustomerRecord theirs = customers.CurrentCustomer;
  theirs.Put(customer::VLink, VehicleRecord::kLength);
  std::string masters = BytesOf(kCustomerFile);
  masters.replace(317, 317, std::string(reinterpret_cast<const char*>(theirs.Bytes().data()), 317));
  Put(kCustomerFile, masters);
  ASSERT_TRUE(customers.MakeCurrent(2));
  VehicleRecord vehicle;
  ASSERT_NE(customers.AppendVehicle(vehicle), kNoLink);
  EXPECT_EQ(vehicle.Get(vehicle::VLink), VehicleRecord::kLength);
}

TEST_F(CustomersTest, ACustomerWhoCannotBeReadDoesNotBecomeCurrent) {
  PutCustomers(2);
  ASSERT_TRUE(customers.MakeCurrent(2));
  const SharedFile other = HeldByAnother(kCustomerFile);
  desktop.WillAnswer(Answer::Cancel);
  EXPECT_FALSE(customers.MakeCurrent(1));
  EXPECT_FALSE(customers.MakeCurrent(77));
  EXPECT_EQ(CurrentLastname(), "Name2");
  EXPECT_EQ(customers.CurrentTag.Get(customertag::Number), 2);
}

TEST_F(CustomersTest, RefreshingLoadsEveryCustomerWithTheDateOfTheNewestVehicle) {
  PutGolden();
  records.vehicles.CurrentVehicle.Put(vehicle::Make, "Kept");
  ASSERT_TRUE(customers.RefreshCustomers());
  const auto& rows = customers.Index();
  ASSERT_EQ(rows.size(), 4U);
  EXPECT_EQ(rows[0].customer.Get(customer::Lastname), "Adams");
  EXPECT_EQ(rows[0].VehicleDate, ToFileDate(37880));
  EXPECT_EQ(rows[1].VehicleDate, -1);
  EXPECT_EQ(rows[2].VehicleDate, ToFileDate(37850));
  EXPECT_EQ(records.vehicles.CurrentVehicle.Get(vehicle::Make), "Kept");
}

TEST_F(CustomersTest, RefreshingForgetsWhatWasRememberedAndReadsTheTagsAnew) {
  PutCustomers(2);
  LookedUpName(2);
  std::string masters = BytesOf(kCustomerFile);
  Put(kCustomerFile, masters.replace(317 + 4, 5, "Other"));
  PutCustomers(3);
  Put(kCustomerFile, masters);
  customers.RefreshCustomers();
  EXPECT_EQ(customers.Count(), 3U);
  EXPECT_EQ(LookedUpName(2), "Other");
}

TEST_F(CustomersTest, RefreshingPassesOverTagsWithoutAMaster) {
  Image tags;
  tags.Append(CustomerTagImage(1, "A,", -1))
      .Append(CustomerTagImage(2, "B,", 0))
      .Append(CustomerTagImage(3, "C,", 999));
  Put(kCustomerTagFile, tags);
  Put(kCustomerFile, CustomerImage(2, "B"));
  EXPECT_TRUE(customers.RefreshCustomers());
  EXPECT_EQ(customers.Index().size(), 1U);
}

TEST_F(CustomersTest, RefreshingThatThePersonGaveUpSaysSo) {
  PutGolden();
  for (const std::string_view name : {kCustomerTagFile, kCustomerFile}) {
    EXPECT_TRUE(customers.RefreshCustomers()) << name;
    const SharedFile other = HeldByAnother(name);
    desktop.WillAnswer(Answer::Cancel);
    EXPECT_FALSE(customers.RefreshCustomers()) << name;
    EXPECT_TRUE(customers.Index().empty()) << name;
  }
}

TEST_F(CustomersTest, RefreshingWithoutTheVehicleFileKnowsNoDates) {
  PutGolden();
  const SharedFile other = HeldByAnother(kVehicleFile);
  desktop.WillAnswer(Answer::Cancel);
  ASSERT_TRUE(customers.RefreshCustomers());
  const auto& rows = customers.Index();
  ASSERT_EQ(rows.size(), 4U);
  EXPECT_EQ(rows[0].VehicleDate, -1);
}

}  // namespace
}  // namespace lantos::test
