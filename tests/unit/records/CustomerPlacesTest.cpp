#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <set>

#include "CustomersFixture.h"
#include "frame/SharingClaim.h"
#include "records/Customers.h"
#include "records/GivenUp.h"
#include "records/Vehicles.h"

namespace lantos::test {
namespace {

// What other copies and other programs do to the files of the customers while this one reads, waits and writes.
class CustomerPlaces : public CustomersTest {
 protected:
  CustomerPlaces() { Put(kSystemFile, Image(1038).Long(12, 101)); }

  // What another copy does when it adds a customer.
  void AppendByAnother(std::int32_t number, std::string_view lastname) {
    const std::string masters = BytesOf(kCustomerFile);
    const auto offset = static_cast<std::int32_t>(masters.size());
    Put(kCustomerTagFile,
        BytesOf(kCustomerTagFile) + CustomerTagImage(number, std::string(lastname) + ",", offset).Bytes());
    Put(kCustomerFile, masters + CustomerImage(number, lastname).Bytes());
  }
  // Each tag of the file leads to the master of its number, and these are the numbers.
  void ExpectPairs(const std::set<std::int32_t>& numbers) {
    const std::string tags = BytesOf(kCustomerTagFile);
    const std::string masters = BytesOf(kCustomerFile);
    std::multiset<std::int32_t> found;
    for (std::size_t at = 0; at + 96 <= tags.size(); at += 96) {
      const std::int32_t number = LongAt(tags, at);
      const auto offset = static_cast<std::size_t>(LongAt(tags, at + 68));
      ASSERT_LE(offset + 317, masters.size()) << number;
      EXPECT_EQ(LongAt(masters, offset), number);
      found.insert(number);
    }
    EXPECT_EQ(found, (std::multiset<std::int32_t>(numbers.begin(), numbers.end())));
  }
};

TEST_F(CustomerPlaces, WhoeverWaitsAtABoxTakesTheEndAsItIsThen) {
  PutCustomers(2);
  MakeCurrentCustomer(50, "Late", "");
  SharedFile other = HeldByAnother(kCustomerFile);
  desktop.WillAnswer([&](const ui::Box&) {
    other.Close();
    AppendByAnother(40, "Early");
    return Answer::Ok;
  });
  EXPECT_TRUE(customers.WriteCustomer());
  ExpectPairs({1, 2, 40, 50});
  EXPECT_EQ(customers.Tag(customers.IndexOf(40)).Get(customertag::NameKey), "Early,") << "and the other is known";
  EXPECT_EQ(customers.Tag(customers.IndexOf(50)).Get(customertag::NameKey), "Late,");
}

TEST_F(CustomerPlaces, ATagWhosePlaceHasBecomeAnothersIsWrittenWhereItStands) {
  PutCustomers(2);
  ASSERT_TRUE(customers.MakeCurrent(2));
  // The files were put back in another order.
  Image tags = CustomerTagImage(1, "Name1,", 0);
  tags.Append(CustomerTagImage(7, "Seven,", 634)).Append(CustomerTagImage(2, ",", 317));
  Put(kCustomerTagFile, tags);
  Put(kCustomerFile, BytesOf(kCustomerFile) + CustomerImage(7, "Seven").Bytes());
  EXPECT_TRUE(customers.WriteCustomer());
  EXPECT_EQ(BytesOf(kCustomerTagFile).substr(0, 192), tags.Bytes().substr(0, 192));
  ExpectPairs({1, 2, 7});
}

TEST_F(CustomerPlaces, ANewCustomerBehindAnEmptySlotCostsNobodyTheirTag) {
  const Image slot = CustomerTagImage(0, "", 0);
  Image tags = slot;
  tags.Append(CustomerTagImage(5, "Five,", 0)).Append(CustomerTagImage(6, "Six,", 317));
  Put(kCustomerTagFile, tags);
  Put(kCustomerFile, Image(CustomerImage(5, "Five")).Append(CustomerImage(6, "Six")));
  MakeCurrentCustomer(50, "New", "");
  EXPECT_TRUE(customers.WriteCustomer());
  EXPECT_EQ(BytesOf(kCustomerTagFile).substr(0, 3 * 96), tags.Bytes());
  EXPECT_EQ(LongAt(BytesOf(kCustomerTagFile), 3 * 96), 50);
  EXPECT_EQ(customers.Count(), 3U);
}

TEST_F(CustomerPlaces, ACustomerWithoutANumberIsNotLookedForAmongTheTags) {
  Put(kCustomerTagFile, "x");
  MakeCurrentCustomer(0, "Nobody", "");
  EXPECT_TRUE(customers.WriteCustomer());
  EXPECT_THAT(BytesOf(kCustomerTagFile), testing::HasSubstr("Nobody,"));
}

TEST_F(CustomerPlaces, ATagThatLeadsToAnothersRecordShowsNobody) {
  Put(kCustomerTagFile, Image(CustomerTagImage(1, "Adams,", 317)).Append(CustomerTagImage(2, "Brown,", 317)));
  Put(kCustomerFile, Image(CustomerImage(1, "Adams")).Append(CustomerImage(2, "Brown")));
  desktop.WillAnswer({Answer::Ok, Answer::Ok});
  EXPECT_FALSE(customers.MakeCurrent(1, Customers::From::File));
  ExpectBox(desktop.boxes.at(0), "ReadCustomer()",
            "Customer 000001 can't be shown: the tag in TQCSTTAG.DAT leads to the record of customer 000002 in "
            "TQCSTDAT.DAT.\rRun KRVLCLEN to repair the files.",
            Buttons::Ok, Icon::Exclamation);
  EXPECT_EQ(CurrentLastname(), "");
  customers.MakeTagCurrent(0);
  EXPECT_FALSE(customers.ReadCustomer(Customers::From::File)) << "told again where a person opens the record";
  EXPECT_EQ(customers.LookupCustomer(1), nullptr);
  EXPECT_EQ(LookedUpName(2), "Brown") << "the board has told of the first once and goes on";
}

TEST_F(CustomerPlaces, ALookUpTellsOfAnothersRecordOnceInARun) {
  Put(kCustomerTagFile, CustomerTagImage(1, "Adams,", 0));
  Put(kCustomerFile, CustomerImage(2, "Brown"));
  desktop.WillAnswer(Answer::Ok);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(customers.LookupCustomer(1), nullptr);
  EXPECT_TRUE(customers.LeadsToAnothers(customers.Tag(0)));
  EXPECT_TRUE(customers.RefreshCustomers());
  EXPECT_TRUE(customers.Index().empty());
}

TEST_F(CustomerPlaces, AWriteIsNeverOverAnothersMaster) {
  PutCustomers(2);
  ASSERT_TRUE(customers.MakeCurrent(1));
  // The tag now leads to the other's record, as after a kill between two writings of another program.
  Put(kCustomerTagFile, Image(CustomerTagImage(1, "Name1,", 317)).Append(CustomerTagImage(2, "Name2,", 317)));
  customers.LoadCustomerTags();
  EXPECT_TRUE(customers.WriteCustomer());
  ExpectPairs({1, 2});
  EXPECT_EQ(LongAt(BytesOf(kCustomerTagFile), 68), 634);
}

TEST_F(CustomerPlaces, AnUpdateKeepsWhatOthersHaveStoredAndTakesTheChange) {
  PutCustomers(2);
  ASSERT_TRUE(customers.MakeCurrent(2));
  std::string masters = BytesOf(kCustomerFile);
  Put(kCustomerFile, masters.replace(317 + 121, 5, "Xenia").replace(317 + 313, 4, std::string(4, '\1')));
  EXPECT_TRUE(customers.UpdateCustomer([](CustomerRecord& record) { record.Put(customer::Zip, "45385"); }));
  EXPECT_EQ(BytesOf(kCustomerFile), masters.replace(317 + 145, 5, "45385"));
  EXPECT_EQ(customers.CurrentCustomer.Get(customer::City), "Xenia");
  EXPECT_THROW(customers.UpdateCustomer([](CustomerRecord& record) {
    record.Put(customer::Zip, "0");
    throw std::runtime_error("no");
  }),
               std::runtime_error);
  EXPECT_EQ(BytesOf(kCustomerFile), masters);
  EXPECT_EQ(customers.CurrentCustomer.Get(customer::Zip), "45385");
}

// --- vehicles

TEST_F(CustomerPlaces, AVehicleIsAppendedWhereTheFileEndsOnceItIsHeld) {
  PutCustomers(1);
  Put(kVehicleFile, VehicleImage(9, "Ford", -1));
  ASSERT_TRUE(customers.MakeCurrent(1));
  VehicleRecord vehicle = records.vehicles.NewVehicle();
  vehicle.Put(vehicle::Make, "Nash");
  // The array is loaded behind the write; another copy's vehicle comes with it.
  EXPECT_EQ(customers.AppendVehicle(vehicle), 397);
  EXPECT_EQ(BytesOf(kVehicleFile).size(), 2U * 397);
  EXPECT_EQ(BytesOf(kVehicleFile).substr(8, 4), "Ford");
}

TEST_F(CustomerPlaces, AVehicleGoesBeforeTheOneThatAnotherCopyHasAddedMeanwhile) {
  PutCustomers(2);
  Put(kVehicleFile, "");
  ASSERT_TRUE(customers.MakeCurrent(2));
  Put(kVehicleFile, VehicleImage(2, "Ford", -1));
  std::string masters = BytesOf(kCustomerFile);
  Put(kCustomerFile, masters.replace(317 + 313, 4, std::string(4, '\0')).replace(317 + 121, 5, "Xenia"));
  VehicleRecord vehicle = records.vehicles.NewVehicle();
  EXPECT_EQ(customers.AppendVehicle(vehicle), 397);
  EXPECT_EQ(vehicle.Get(vehicle::VLink), 0);
  EXPECT_EQ(LongAt(BytesOf(kVehicleFile), 397 + 393), 0) << "the other's vehicle is next in the chain";
  EXPECT_EQ(LongAt(BytesOf(kCustomerFile), 317 + 313), 397);
  EXPECT_EQ(BytesOf(kCustomerFile).substr(317 + 121, 5), "Xenia");
}

TEST_F(CustomerPlaces, AVehicleThatNobodysChainTookIsToldAsNotAdded) {
  PutCustomers(1);
  Put(kVehicleFile, "");
  ASSERT_TRUE(customers.MakeCurrent(1));
  const SharedFile other = HeldByAnother(kCustomerFile);
  desktop.WillAnswer(Answer::Cancel);
  VehicleRecord vehicle = records.vehicles.NewVehicle();
  EXPECT_EQ(customers.AppendVehicle(vehicle), kNoLink);
  EXPECT_EQ(customers.CurrentCustomer.Get(customer::VLink), kNoLink);
}

TEST_F(CustomerPlaces, AVehicleThatIsTriedAgainKeepsItsPlace) {
  PutCustomers(1);
  Put(kVehicleFile, "");
  ASSERT_TRUE(customers.MakeCurrent(1));
  FileLink place = kNoLink;
  VehicleRecord vehicle = records.vehicles.NewVehicle();
  {
    const SharedFile other = HeldByAnother(kCustomerFile);
    desktop.WillAnswer(Answer::Cancel);
    EXPECT_EQ(customers.AppendVehicle(vehicle, &place), kNoLink);
  }
  // The second time the chain comes to lead there, the third time it does already.
  for (const char* make : {"Nash", "Ford"}) {
    VehicleRecord again = records.vehicles.NewVehicle();
    again.Put(vehicle::Make, make);
    EXPECT_EQ(customers.AppendVehicle(again, &place), 0);
    EXPECT_EQ(place, 0);
    EXPECT_EQ(BytesOf(kVehicleFile).size(), 397U);
    EXPECT_EQ(BytesOf(kVehicleFile).substr(8, 4), make);
    EXPECT_EQ(LongAt(BytesOf(kVehicleFile), 393), kNoLink);
    EXPECT_EQ(LongAt(BytesOf(kCustomerFile), 313), 0);
  }
}

TEST_F(CustomerPlaces, NothingIsHeldOpenWhileThePersonIsAskedAboutTheTurn) {
  PutCustomers(1);
  ASSERT_TRUE(customers.MakeCurrent(1));
  const int others = ::open(PathOf(kCustomerTagFile).c_str(), O_RDWR);
  struct flock turn = {};
  turn.l_type = F_WRLCK;
  turn.l_whence = SEEK_SET;
  turn.l_start = static_cast<off_t>(kUpdateTurn);
  turn.l_len = 1;
  ASSERT_EQ(::fcntl(others, F_OFD_SETLK, &turn), 0);
  desktop.WillAnswer([&](const ui::Box& box) {
    EXPECT_EQ(box.title, "TQCSTTAG.DAT");
    for (const std::string_view file : {kCustomerTagFile, kCustomerFile}) EXPECT_NO_THROW(HeldByAnother(file)) << file;
    return Answer::Cancel;
  });
  EXPECT_THROW(customers.WriteCustomer(), GivenUp);
  ::close(others);
}

// The person gives up between the record and the chain, and tries it again.
TEST_F(CustomerPlaces, AVehicleThatNoChainLedToIsNotWrittenTwice) {
  PutCustomers(1);
  ASSERT_TRUE(customers.MakeCurrent(1));
  Put(kVehicleFile, "");
  Vehicles& vehicles = records.vehicles;
  VehicleRecord car = vehicles.NewVehicle();
  car.Put(vehicle::Make, "Ford");
  for (const bool isHeld : {true, false}) {
    std::optional<SharedFile> other;
    if (isHeld) {
      other = HeldByAnother(kCustomerFile);
      desktop.WillAnswer(Answer::Cancel);
    }
    vehicles.MakeCurrent(car, kNoLink);
    vehicles.WriteVehicle();
    EXPECT_EQ(vehicles.CurrentVehicleOffset, isHeld ? kNoLink : 0);
    EXPECT_EQ(BytesOf(kVehicleFile).size(), 397U);
  }
  EXPECT_EQ(LongAt(BytesOf(kCustomerFile), 313), 0);
  vehicles.MakeCurrent(car, kNoLink);
  vehicles.WriteVehicle();
  EXPECT_EQ(vehicles.CurrentVehicleOffset, 397) << "another one that looks alike";
}

TEST_F(CustomerPlaces, AVehicleIsUpdatedAsItLiesOnFile) {
  Put(kVehicleFile, VehicleImage(1, "Ford", -1));
  Vehicles& vehicles = records.vehicles;
  vehicles.ReadVehicle(0);
  Put(kVehicleFile, VehicleImage(1, "Ford", 794).Text(82, "VIN 7"));
  const auto stored = vehicles.Update(0, [](VehicleRecord& record) { record.Put(vehicle::Model, "Focus"); });
  ASSERT_TRUE(stored);
  EXPECT_EQ(BytesOf(kVehicleFile), VehicleImage(1, "Ford", 794).Text(82, "VIN 7").Text(29, "Focus").Bytes());
  EXPECT_EQ(vehicles.CurrentVehicle.Get(vehicle::VIN), "VIN 7") << "what is current follows";
  const SharedFile other = HeldByAnother(kVehicleFile);
  desktop.WillAnswer(Answer::Ok);
  EXPECT_FALSE(vehicles.Update(0, [](VehicleRecord&) {}));
  EXPECT_EQ(desktop.boxes.back().title, "WriteVehicle");
}

// --- numbers

TEST_F(CustomerPlaces, ANumberThatSomebodyHasIsNotGivenAgain) {
  PutCustomers(3);
  Put(kSystemFile, Image(1038).Long(12, 2));
  customers.LoadCustomerTags();
  desktop.WillAnswer(Answer::Ok);
  EXPECT_TRUE(customers.NewCustomer());
  ExpectBox(desktop.boxes.at(0), "Next Number",
            "000002, the running number of the customers in TQSYSTEM.DAT, is in use already.\r"
            "The file was emptied, or is older than the others.\r\r"
            "The next free number is 000004.\rClick OK to go on from there, or CANCEL to stop.",
            Buttons::OkCancel, Icon::Exclamation);
  EXPECT_EQ(customers.CurrentCustomer.Get(customer::Number), 4);
  EXPECT_EQ(LongAt(BytesOf(kSystemFile), 12), 5);
}

// A gap may be the number of somebody who is gone from the files, but not from paper.
TEST_F(CustomerPlaces, TheNumberThatIsOfferedLiesBehindTheHighest) {
  PutCustomers(3);
  CustomerTag tag;
  std::string tags = BytesOf(kCustomerTagFile);
  for (const std::int32_t number : {40, 2000000000}) {
    tag.Put(customertag::Number, number);
    tags += std::string(reinterpret_cast<const char*>(tag.Bytes().data()), CustomerTag::kLength);
  }
  Put(kCustomerTagFile, tags);
  Put(kSystemFile, Image(1038).Long(12, 2));
  customers.LoadCustomerTags();
  desktop.WillAnswer(Answer::Ok);
  EXPECT_TRUE(customers.NewCustomer());
  EXPECT_EQ(customers.CurrentCustomer.Get(customer::Number), 41);
}

TEST_F(CustomerPlaces, ANumberThatOnlyTheFileKnowsIsFoundWhenItIsWritten) {
  PutCustomers(3);
  Put(kSystemFile, Image(1038).Long(12, 2));
  const std::string masters = BytesOf(kCustomerFile);
  const std::string tags = BytesOf(kCustomerTagFile);
  (void)customers.NewCustomer();
  customers.CurrentCustomer.Put(customer::Lastname, "New");
  desktop.WillAnswer(Answer::Cancel);
  EXPECT_FALSE(customers.WriteCustomer());
  EXPECT_EQ(BytesOf(kCustomerFile), masters);
  EXPECT_EQ(BytesOf(kCustomerTagFile), tags);
  desktop.WillAnswer(Answer::Ok);
  EXPECT_TRUE(customers.WriteCustomer());
  ExpectPairs({1, 2, 3, 4});
  EXPECT_EQ(BytesOf(kCustomerFile).substr(0, masters.size()), masters);
  EXPECT_EQ(LongAt(BytesOf(kSystemFile), 12), 5);
  customers.CurrentCustomer.Put(customer::Zip, "1");
  EXPECT_TRUE(customers.WriteCustomer()) << "now it is the customer's own";
  ExpectPairs({1, 2, 3, 4});
}

TEST_F(CustomerPlaces, ACounterOfNothingIsNoNumber) {
  PutCustomers(2);
  Put(kSystemFile, Image(1038));
  customers.LoadCustomerTags();
  desktop.WillAnswer(Answer::Cancel);
  EXPECT_FALSE(customers.NewCustomer());
  EXPECT_EQ(desktop.boxes.at(0).text,
            "The running number of the customers in TQSYSTEM.DAT is lost.\r"
            "The file was emptied, or is older than the others.\r\r"
            "The next free number is 000003.\rClick OK to go on from there, or CANCEL to stop.");
}

// --- several at once

// Adds its customers as fast as it can; what is asked is tried again.
int AddAll(const std::string& dataDir, const std::filesystem::path& settingsPath, int first, int count) {
  SystemClock clock;
  TestDesktop desktop;
  desktop.otherwise = [](const ui::Box& box) { return ui::ButtonsOf(box).front(); };
  UserSettings settings(settingsPath);
  Environment environment(clock, settings);
  environment.files.SetDataDir(dataDir);
  Records records(environment, desktop);
  for (int i = 0; i < count; ++i) {
    records.customers.CurrentCustomer = {};
    records.customers.CurrentCustomer.Put(customer::Number, first + i);
    records.customers.CurrentCustomer.Put(customer::Lastname, "Name" + std::to_string(first + i));
    if (!records.customers.WriteCustomer()) return 1;
  }
  return 0;
}

TEST_F(CustomerPlaces, FourProcessesThatAddAtOnceLoseNobody) {
  constexpr int kProcesses = 4;
  constexpr int kEach = 60;
  PutCustomers(1);
  std::vector<pid_t> children;
  for (int i = 0; i < kProcesses; ++i) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      const std::string name = "settings" + std::to_string(i);
      ::_exit(AddAll(environment.files.DataDir(), PathOf(name), 1000 * (i + 1), kEach));
    }
    children.push_back(child);
  }
  for (const pid_t child : children) {
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
  }
  std::set<std::int32_t> all{1};
  for (int i = 0; i < kProcesses; ++i) {
    for (int j = 0; j < kEach; ++j) all.insert(1000 * (i + 1) + j);
  }
  ExpectPairs(all);
}

}  // namespace
}  // namespace lantos::test
