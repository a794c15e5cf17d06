#include <sys/stat.h>

#include "caretaker/CheckFixture.h"
#include "estimatedb/EngineChoice.h"
#include "estimatedb/EstimateDatabase.h"
#include "frame/Dates.h"
#include "frame/SharedFile.h"
#include "records/Customers.h"
#include "records/Payroll.h"
#include "records/inventory/InventoryKits.h"
#include "records/inventory/UsageHistory.h"
#include "workorders/WorkorderTags.h"

namespace lantos::test {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// The first part, in the order of the masters, of which this is so.
std::size_t PartWhere(const CheckedShop& shop, const std::function<bool(const InventoryRecord&)>& is) {
  for (std::size_t i = 0; i < shop.Count<InventoryRecord>(kInventoryFile); ++i) {
    if (is(shop.Get<InventoryRecord>(kInventoryFile, i))) return i;
  }
  throw std::runtime_error("no such part in the sample shop");
}

std::size_t LivePart(const CheckedShop& shop) {
  return PartWhere(shop, [](const InventoryRecord& part) { return part.Get(inventory::Deleted) != 1; });
}

// Two vehicles of one customer: the customer's place, and those of the newest and the next.
struct TwoVehicles {
  std::size_t customer = 0;
  FileLink newest = kNoLink, next = kNoLink;
};
TwoVehicles CustomerWithTwo(const CheckedShop& shop) {
  for (std::size_t i = 0; i < shop.Count<CustomerRecord>(kCustomerFile); ++i) {
    const FileLink newest = shop.Get<CustomerRecord>(kCustomerFile, i).Get(customer::VLink);
    if (newest < 0) continue;
    const FileLink next =
        shop.Get<VehicleRecord>(kVehicleFile, static_cast<std::size_t>(newest) / VehicleRecord::kLength)
            .Get(vehicle::VLink);
    if (next >= 0) return {i, newest, next};
  }
  throw std::runtime_error("no customer with two vehicles");
}
std::size_t VehicleAt(FileLink link) { return static_cast<std::size_t>(link) / VehicleRecord::kLength; }

void Run(const CheckedShop& shop, std::string_view database, const std::string& statement) {
  OpenDatabase(shop.Path() / database, shop.clock)->Run(statement, {});
}

void AddKit(const CheckedShop& shop, const std::string& number, const std::string& line) {
  InventoryKitRecord kit;
  kit.Put(inventorykit::KitNumber, number);
  kit.Put(inventorykit::Line(0), line);
  shop.Put(kKitFile, 0, kit);
}

// How a shop is spoiled, and what a part of the one line is that tells of it.
struct Spoiling {
  const char* name;
  void (*spoil)(CheckedShop& shop);
  const char* kind;
  const char* words;
};
void PrintTo(const Spoiling& spoiling, std::ostream* out) { *out << spoiling.name; }

const Spoiling kSpoilings[] = {
    {"ALengthThatIsntWhole",
     [](CheckedShop& shop) { shop.Write(kVendorFile, shop.Read(kVendorFile) + "half a vendor"); }, "lengths",
     "TQVENDOR.DAT, record 15: it has 13 of 204 bytes"},
    {"ACustomersTagThatLeadsNowhere",
     [](CheckedShop& shop) { shop.Set<CustomerTag>(kCustomerTagFile, 3, customertag::Offset, 5); }, "tags",
     "TQCSTTAG.DAT, record 4 (customer 000004), Offset: no record of TQCSTDAT.DAT begins where it leads"},
    {"ACustomersTagThatLeadsToAnother",
     [](CheckedShop& shop) { shop.Set<CustomerTag>(kCustomerTagFile, 3, customertag::Offset, 317); }, "tags",
     "Offset: it leads to the record of another customer, 000002"},
    {"ACustomersTagWithAnotherName",
     [](CheckedShop& shop) { shop.Set<CustomerTag>(kCustomerTagFile, 3, customertag::NameKey, "Nobody,Ned"); }, "tags",
     "NameKey: it says \"Nobody,Ned\""},
    {"ACustomerWithoutATag",
     [](CheckedShop& shop) {
       shop.Write(kCustomerTagFile, shop.Read(kCustomerTagFile).substr(0, 39 * CustomerTag::kLength));
     },
     "tags", "TQCSTDAT.DAT, record 40 (customer 000040): no tag leads to it"},
    {"TwoTagsOfOneCustomer",
     [](CheckedShop& shop) { shop.Put(kCustomerTagFile, 40, shop.Get<CustomerTag>(kCustomerTagFile, 6)); }, "tags",
     "TQCSTTAG.DAT, record 41 (customer 000007), Number: another tag, record 7, has the number too"},
    {"APartsTagWithAnotherStock",
     [](CheckedShop& shop) { shop.Set<InventoryTag>(kInventoryTagFile, 0, inventorytag::InStock, std::int16_t{7777}); },
     "tags", "InStock: it says 7777, and TQINVENT.DAT says"},
    {"APartsTagThatLeadsNowhere",
     [](CheckedShop& shop) { shop.Set<InventoryTag>(kInventoryTagFile, 0, inventorytag::Tag, -7); }, "tags",
     "Tag: no record of TQINVENT.DAT begins where it leads"},
    {"APartWithoutATag",
     [](CheckedShop& shop) {
       const std::size_t last = shop.Count<InventoryRecord>(kInventoryFile);
       InventoryRecord part = shop.Get<InventoryRecord>(kInventoryFile, 0);
       part.Put(inventory::StockNumber, "LONE-1");
       part.Put(inventory::UsageLink, kNoLink);
       for (const TextField alternate : inventory::AltNumber) part.Put(alternate, "");
       shop.Put(kInventoryFile, last, part);
     },
     "tags", "(part LONE-1): no tag leads to it"},
    {"AVehiclesChainThatLeavesTheFile",
     [](CheckedShop& shop) { shop.Set<CustomerRecord>(kCustomerFile, 0, customer::VLink, 397 * 1000); }, "chains",
     "TQCSTDAT.DAT, record 1 (customer 000001), VLink: no record of TQVEHICL.DAT begins where it leads"},
    {"AVehiclesChainThatGoesRound",
     [](CheckedShop& shop) {
       const TwoVehicles two = CustomerWithTwo(shop);
       shop.Set<VehicleRecord>(kVehicleFile, VehicleAt(two.next), vehicle::VLink, two.newest);
     },
     "chains", "and the chain goes round"},
    {"AVehiclesChainThatRunsIntoAnother",
     [](CheckedShop& shop) {
       const TwoVehicles two = CustomerWithTwo(shop);
       const std::size_t other = two.customer == 0 ? 1 : 0;
       shop.Set<CustomerRecord>(kCustomerFile, other, customer::VLink, two.newest);
     },
     "chains", "which is another's"},
    {"AUsageChainThatLeavesTheFile",
     [](CheckedShop& shop) {
       shop.Set<InventoryRecord>(kInventoryFile, LivePart(shop), inventory::UsageLink, 76 * 100'000);
     },
     "chains", "UsageLink: no record of TQUSEHST.DAT begins where it leads"},
    {"UsageChainsThatMeet",
     [](CheckedShop& shop) {
       const std::size_t one =
           PartWhere(shop, [](const InventoryRecord& part) { return part.Get(inventory::UsageLink) >= 0; });
       const FileLink link = shop.Get<InventoryRecord>(kInventoryFile, one).Get(inventory::UsageLink);
       shop.Set<InventoryRecord>(kInventoryFile, one + 1, inventory::UsageLink, link);
     },
     "chains", "where another chain has come by"},
    {"APayChainThatGoesRound",
     [](CheckedShop& shop) {
       PayRecord record;
       record.Put(payrecord::EmployeeNumber, 1);
       record.Put(payrecord::NextRecord, 0);
       shop.Put(kPayrollFile, 0, record);
       shop.Set<EmployeeRecord>(kEmployeeFile, 0, employee::PayrollHead, 0);
     },
     "chains", "TQPAYROL.DAT, record 1 (employee 000001), NextRecord: it leads back to record 1"},
    {"ACounterBehindTheFiles",
     [](CheckedShop& shop) { shop.Set<SystemRecord>(kSystemFile, 0, sysrec::last_customer_number, 5); }, "counters",
     "TQSYSTEM.DAT, last_customer_number: it hands out 000005 next, and 000040 is given already"},
    {"AnAlternateThatPointsOneWay",
     [](CheckedShop& shop) {
       const std::size_t one = PartWhere(shop, [](const InventoryRecord& part) {
         return part.Get(inventory::Deleted) != 1 && !part.View(inventory::AltNumber[0]).empty();
       });
       shop.Set<InventoryRecord>(kInventoryFile, one, inventory::AltNumber[0], "");
     },
     "alternates", "has it for an alternate, and it doesn't name that part"},
    {"AKitOfAPartThatIsntThere", [](CheckedShop& shop) { AddKit(shop, "NO-SUCH-KIT", ""); }, "kits",
     "TQINVKIT.DAT, record 1 (kit NO-SUCH-KIT), KitNumber: there is no such part"},
    {"AKitWithAPartThatIsntThere", [](CheckedShop& shop) { AddKit(shop, "NO-SUCH-KIT", "NO-SUCH-PART(2)"); }, "kits",
     "Lines: there is no part NO-SUCH-PART"},
    {"ACoreOfAPartThatIsntThere",
     [](CheckedShop& shop) {
       InventoryRecord core;
       core.Put(inventory::StockNumber, "NOTHING/C");
       core.Put(inventory::UsageLink, kNoLink);
       const std::size_t master = shop.Count<InventoryRecord>(kInventoryFile);
       InventoryTag tag;
       tag.Put(inventorytag::StockNumber, "NOTHING/C");
       tag.Put(inventorytag::Tag, static_cast<FileLink>(master * InventoryRecord::kLength));
       shop.Put(kInventoryFile, master, core);
       shop.Put(kInventoryTagFile, shop.Count<InventoryTag>(kInventoryTagFile), tag);
     },
     "kits", "it is the core of a part, NOTHING, that isn't there"},
    {"AWorkOrderWithoutItsText",
     [](CheckedShop& shop) {
       std::filesystem::remove(shop.Path() / shop.Get<ActiveWoTag>(kActiveTagFile, 0).Get(wotag::FileName));
     },
     "workorders", "isn't there"},
    {"AWorkOrderWithTheTextOfAnother",
     [](CheckedShop& shop) {
       const auto name = [&](std::size_t i) { return shop.Get<ActiveWoTag>(kActiveTagFile, i).Get(wotag::FileName); };
       shop.Write(name(0), shop.Read(name(1)));
     },
     "workorders", "the text there is that of work order"},
    {"AnArchivedWorkOrderThatLeadsIntoAText",
     [](CheckedShop& shop) { shop.Set<ArchivedWoTag>(kArchivedTagFile, 0, wotag::MasterOffset, 3); }, "workorders",
     "MasterOffset: no work order begins there"},
    {"AnArchivedWorkOrderBehindTheEnd",
     [](CheckedShop& shop) { shop.Set<ArchivedWoTag>(kArchivedTagFile, 0, wotag::MasterOffset, 2'000'000'000); },
     "workorders", "it leads behind the end of TQINVOIC.DAT"},
    {"AnActiveWorkOrderWithoutItsSecondTag",
     [](CheckedShop& shop) {
       const std::int32_t number = shop.Get<ActiveWoTag>(kActiveTagFile, 0).Get(wotag::WorkorderNumber);
       std::size_t i = shop.Count<ArchivedWoTag>(kArchivedTagFile);
       do --i;
       while (shop.Get<ArchivedWoTag>(kArchivedTagFile, i).Get(wotag::WorkorderNumber) != number);
       shop.Put(kArchivedTagFile, i, shop.Get<ArchivedWoTag>(kArchivedTagFile, 0));
     },
     "workorders", "TQINCTAG.DAT has no tag of it"},
    {"ATextWithoutAWorkOrder", [](CheckedShop& shop) { shop.Write("W0900000.tqa", "[Workorder]\r\n"); }, "workorders",
     "W0900000.tqa: no tag leads to it"},
    {"TwoSpellingsOfOneName", [](CheckedShop& shop) { shop.Write("tqvendor.dat", ""); }, "names",
     "is the same name in another spelling"},
    {"ADateThatNoCalendarHas",
     [](CheckedShop& shop) { shop.Set<VehicleRecord>(kVehicleFile, 2, vehicle::Date, 2'000'000'000); }, "dates",
     "TQVEHICL.DAT, record 3, Date: 2000000000 is no date of the calendar"},
    {"ADateOfTheDatabaseThatIsNone",
     [](CheckedShop& shop) { Run(shop, kLantosDatabase, "update Estimates set StartDate = 'someday'"); }, "dates",
     "StartDate: \"someday\" is no date of the calendar"},
    {"ATextOutsideOfThePage",
     [](CheckedShop& shop) { shop.Set<VehicleRecord>(kVehicleFile, 2, vehicle::VComment[1], "a \x90 b"); }, "texts",
     "TQVEHICL.DAT, record 3, VComment: it has a character outside of the page 1252"},
    {"ARowWithoutItsEstimate",
     [](CheckedShop& shop) {
       Run(shop, kLantosDatabase, "insert into Notes (EstimateNumber, NoteNumber) values (777777, 1)");
     },
     "database", "Lantos.mdb, Notes, EstimateNumber: 1 row of an estimate, 777777, that isn't there"},
    {"ADatabaseThatIsNone", [](CheckedShop& shop) { shop.Write(kKorvelDatabase, "no database at all"); }, "database",
     "Korvel.mdb: "},
    {"AnEstimateOfNobody",
     [](CheckedShop& shop) {
       Run(shop, kLantosDatabase,
           "insert into Estimates (EstimateNumber, CustomerNumber, VehicleLink) values (1, 888888, -1)");
     },
     "estimates", "Lantos.mdb, estimate 000001, CustomerNumber: there is no customer 888888"},
    {"AnEstimateWithAVehicleThatIsntThere",
     [](CheckedShop& shop) {
       Run(shop, kLantosDatabase,
           "insert into Estimates (EstimateNumber, CustomerNumber, VehicleLink) values (1, 1, 11)");
     },
     "estimates", "VehicleLink: no record of TQVEHICL.DAT begins where it leads"},
    {"AMailboxOfAnotherDay", [](CheckedShop& shop) { shop.Write("AU9290.$$$", ""); }, "mailboxes",
     "AU9290.$$$: it is the mailbox of a copy of another day"},
    {"AFileThatTheGroupCantWrite",
     [](CheckedShop& shop) {
       ASSERT_EQ(::chmod(shop.Path().c_str(), 02770), 0);
       for (const auto& entry : std::filesystem::directory_iterator(shop.Path())) ::chmod(entry.path().c_str(), 0660);
       ::chmod((shop.Path() / kVendorFile).c_str(), 0640);
     },
     "modes", "TQVENDOR.DAT: the directory's group can't write it, and may write in the directory"},
};

class EachKind : public testing::TestWithParam<Spoiling> {};

}  // namespace

TEST(CheckShopTest, InASoundShopNothingIsFound) {
  CheckedShop shop;
  EXPECT_THAT(shop.Lines(), IsEmpty());
}

TEST_P(EachKind, IsTold) {
  CheckedShop shop;
  GetParam().spoil(shop);
  const auto spoiled = Contents(shop.Path());
  EXPECT_THAT(shop.Lines(),
              Contains(testing::AllOf(testing::StartsWith(GetParam().kind), HasSubstr(GetParam().words))));
  EXPECT_EQ(Contents(shop.Path()), spoiled) << "a check has changed something";
}
INSTANTIATE_TEST_SUITE_P(CheckShopTest, EachKind, testing::ValuesIn(kSpoilings),
                         [](const auto& tested) { return std::string(tested.param.name); });

// Between the two looks the one who was in the middle of something has come to its end.
TEST(CheckShopTest, WhatIsWholeAMomentLaterIsNotTold) {
  class Finishing : public StandingClock {
   public:
    using StandingClock::StandingClock;
    void Wait(std::int64_t milliseconds) override {
      if (finish) finish();
      StandingClock::Wait(milliseconds);
    }
    std::function<void()> finish;
  };
  CheckedShop shop;
  const std::string whole = shop.Read(kCustomerFile);
  shop.Write(kCustomerFile, whole.substr(0, 39 * CustomerRecord::kLength));
  Finishing clock(shop.clock.Now());
  clock.finish = [&] { shop.Write(kCustomerFile, whole); };
  FileIO files(clock);
  files.SetDataDir(shop.files.DataDir());
  ShopView view(files);
  EXPECT_THAT(CheckShop(view, Kinds()), IsEmpty());
}

TEST(CheckShopTest, AMailboxOfTodayIsDeadOnlyWhereMailLies) {
  CheckedShop shop;
  shop.Write("AU9300.$$$", "");
  EXPECT_THAT(shop.Lines(), IsEmpty());
}

TEST(CheckShopTest, TheMailboxOfACopyThatRunsSinceYesterdayIsItsOwn) {
  CheckedShop shop;
  shop.Write("AU9290.$$$", "");
  const SharedFile log(shop.Path() / "LN929000.LOG", Access::Write, Deny::All);
  EXPECT_THAT(shop.Lines(), IsEmpty());
}

TEST(CheckShopTest, AnAlternateWithoutRoomForAnotherIsNoFault) {
  CheckedShop shop;
  const std::size_t one = LivePart(shop);
  const std::string number = shop.Get<InventoryRecord>(kInventoryFile, one).Get(inventory::StockNumber);
  const std::size_t other = PartWhere(shop, [&](const InventoryRecord& part) {
    return part.Get(inventory::Deleted) != 1 && part.View(inventory::StockNumber) != number &&
           part.View(inventory::AltNumber[0]).empty();
  });
  for (const TextField alternate : inventory::AltNumber) {
    shop.Set<InventoryRecord>(kInventoryFile, other, alternate, "ELSEWHERE");
  }
  shop.Set<InventoryRecord>(kInventoryFile, one, inventory::AltNumber[3],
                            shop.Get<InventoryRecord>(kInventoryFile, other).Get(inventory::StockNumber));
  EXPECT_THAT(shop.Lines(), IsEmpty());
}

}  // namespace lantos::test
