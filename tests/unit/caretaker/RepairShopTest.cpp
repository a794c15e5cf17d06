#include "caretaker/check/RepairShop.h"

#include <memory>

#include "caretaker/CheckFixture.h"
#include "frame/SharedFile.h"
#include "records/Customers.h"
#include "records/Payroll.h"
#include "records/inventory/UsageHistory.h"
#include "shopmaker/ShopDirectory.h"
#include "support/NoRoomBeyond.h"

namespace lantos::test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

Repaired Mend(CheckedShop& shop, std::string_view kind, Deed deed = Deed::Mend,
              const std::function<void()>& beforeWriting = {}) {
  ShopView view(shop.files);
  return RepairShop(view, std::span(KindNamed(kind), 1), deed, beforeWriting);
}

struct Spoiling {
  const char* name;
  const char* kind;
  void (*spoil)(CheckedShop& shop);
};
void PrintTo(const Spoiling& spoiling, std::ostream* out) { *out << spoiling.name; }

std::size_t PartWithAlternate(const CheckedShop& shop) {
  for (std::size_t i = 0;; ++i) {
    const auto part = shop.Get<InventoryRecord>(kInventoryFile, i);
    if (part.Get(inventory::Deleted) != 1 && !part.View(inventory::AltNumber[0]).empty()) return i;
  }
}

const Spoiling kSpoilings[] = {
    {"ACounter", "counters",
     [](CheckedShop& shop) {
       shop.Set<SystemRecord>(kSystemFile, 0, sysrec::last_customer_number, 5);
       shop.Set<SystemRecord>(kSystemFile, 0, sysrec::last_estimate_number, -1);
     }},
    {"ATagThatLeadsNowhere", "tags",
     [](CheckedShop& shop) { shop.Set<CustomerTag>(kCustomerTagFile, 3, customertag::Offset, 5); }},
    {"ATagWithAnotherName", "tags",
     [](CheckedShop& shop) { shop.Set<CustomerTag>(kCustomerTagFile, 3, customertag::NameKey, "Nobody,Ned"); }},
    {"TagsThatAreGone", "tags",
     [](CheckedShop& shop) {
       shop.Write(kCustomerTagFile, shop.Read(kCustomerTagFile).substr(0, 37 * CustomerTag::kLength));
       shop.Write(kInventoryTagFile, shop.Read(kInventoryTagFile).substr(0, 50 * InventoryTag::kLength));
     }},
    {"APartsTag", "tags",
     [](CheckedShop& shop) {
       shop.Set<InventoryTag>(kInventoryTagFile, 0, inventorytag::InStock, std::int16_t{7777});
       shop.Set<InventoryTag>(kInventoryTagFile, 0, inventorytag::Pricing[2], -3);
       shop.Set<InventoryTag>(kInventoryTagFile, 1, inventorytag::Tag, -7);
       shop.Set<InventoryTag>(kInventoryTagFile, 2, inventorytag::Description, "ANOTHER");
     }},
    {"AVehiclesChain", "chains",
     [](CheckedShop& shop) { shop.Set<CustomerRecord>(kCustomerFile, 0, customer::VLink, 397 * 1000); }},
    {"AUsageChain", "chains",
     [](CheckedShop& shop) {
       shop.Set<InventoryRecord>(kInventoryFile, 0, inventory::UsageLink, 76 * 100'000);
       UsageRecord round;
       const std::size_t last = shop.Count<UsageRecord>(kUsageFile);
       round.Put(usage::PrevLink, static_cast<FileLink>(last * UsageRecord::kLength));
       shop.Put(kUsageFile, last, round);
       shop.Set<InventoryRecord>(kInventoryFile, 1, inventory::UsageLink, round.Get(usage::PrevLink));
     }},
    {"APayChain", "chains",
     [](CheckedShop& shop) {
       PayRecord record;
       record.Put(payrecord::EmployeeNumber, 1);
       record.Put(payrecord::NextRecord, 0);
       shop.Put(kPayrollFile, 0, record);
       shop.Set<EmployeeRecord>(kEmployeeFile, 0, employee::PayrollHead, 0);
     }},
    {"AnAlternate", "alternates",
     [](CheckedShop& shop) {
       shop.Set<InventoryRecord>(kInventoryFile, PartWithAlternate(shop), inventory::AltNumber[0], "");
     }},
    {"AMailbox", "mailboxes", [](CheckedShop& shop) { shop.Write("AU9290.$$$", std::string(128, 'x')); }},
};

class EachAnswer : public testing::TestWithParam<Spoiling> {};

}  // namespace

TEST(RepairShopTest, ThatEndsInItsMiddleNamesTheCopies) {
  CheckedShop shop;
  shop.Set<CustomerTag>(kCustomerTagFile, 3, customertag::NameKey, "Nobody,Ned");
  const std::string spoiled = shop.Read(kCustomerTagFile);
  std::unique_ptr<NoRoomBeyond> limit;
  try {
    Mend(shop, "tags", Deed::Mend, [&] { limit = std::make_unique<NoRoomBeyond>(1); });
    ADD_FAILURE() << "all could be written";
  } catch (const HalfRepaired& failure) {
    limit.reset();
    const std::string words = failure.Words();
    const std::size_t at = words.find(std::string(kCustomerTagFile) + ".before-2003-09-30-");
    ASSERT_NE(at, std::string::npos) << words;
    EXPECT_THAT(words, HasSubstr("ended in its middle"));
    EXPECT_EQ(shop.Read(words.substr(at, words.find('.', at + 20) - at)), spoiled);
  }
}

TEST_P(EachAnswer, IsGivenOnceAndWhatWasThereIsKept) {
  CheckedShop shop;
  GetParam().spoil(shop);
  const auto spoiled = Contents(shop.Path());
  const Repaired repaired = Mend(shop, GetParam().kind);
  EXPECT_THAT(repaired.mended, testing::Not(IsEmpty()));
  EXPECT_THAT(repaired.left, IsEmpty());
  EXPECT_THAT(shop.Lines(), IsEmpty());
  std::size_t changed = 0;
  const auto mended = Contents(shop.Path());
  for (const auto& file : spoiled) {
    const auto& name = file.first;
    const auto& bytes = file.second;
    if (mended.contains(name) && mended.at(name) == bytes) continue;
    ++changed;
    const bool isKept = std::any_of(repaired.copies.begin(), repaired.copies.end(), [&](const std::string& copy) {
      return copy.starts_with(name + ".before-2003-09-30-") && mended.at(copy) == bytes;
    });
    EXPECT_TRUE(isKept) << name;
  }
  EXPECT_THAT(repaired.copies, SizeIs(changed));
  const Repaired again = Mend(shop, GetParam().kind);
  EXPECT_THAT(again.mended, IsEmpty());
  EXPECT_THAT(again.copies, IsEmpty());
}

TEST_P(EachAnswer, IsOnlyToldWhereNothingIsToBeChanged) {
  CheckedShop shop;
  GetParam().spoil(shop);
  const auto spoiled = Contents(shop.Path());
  EXPECT_THAT(Mend(shop, GetParam().kind, Deed::TellOnly).mended, testing::Not(IsEmpty()));
  EXPECT_EQ(Contents(shop.Path()), spoiled);
}
INSTANTIATE_TEST_SUITE_P(RepairShopTest, EachAnswer, testing::ValuesIn(kSpoilings),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST(RepairShopTest, ARebuiltTagIsTheOneThatWasThere) {
  CheckedShop shop;
  const std::string tags = shop.Read(kCustomerTagFile), partTags = shop.Read(kInventoryTagFile);
  shop.Write(kCustomerTagFile, tags.substr(0, 30 * CustomerTag::kLength));
  shop.Write(kInventoryTagFile, partTags.substr(0, 30 * InventoryTag::kLength));
  Mend(shop, "tags");
  EXPECT_EQ(shop.Read(kCustomerTagFile), tags);
  EXPECT_THAT(shop.Lines(), IsEmpty());
}

TEST(RepairShopTest, TagFilesThatAreGoneAreMadeAnew) {
  CheckedShop shop;
  const std::string tags = shop.Read(kCustomerTagFile);
  std::filesystem::remove(shop.Path() / kCustomerTagFile);
  std::filesystem::remove(shop.Path() / kInventoryTagFile);
  const Repaired repaired = Mend(shop, "tags");
  EXPECT_EQ(shop.Read(kCustomerTagFile), tags);
  EXPECT_GT(shop.Count<InventoryTag>(kInventoryTagFile), 30U);
  EXPECT_THAT(shop.Lines(), IsEmpty());
  EXPECT_THAT(repaired.copies, IsEmpty()) << "of nothing";
}

TEST(RepairShopTest, AFileInSmallLettersIsMendedWhereItLies) {
  CheckedShop shop;
  const std::string tags = shop.Read(kCustomerTagFile);
  std::filesystem::rename(shop.Path() / kCustomerTagFile, shop.Path() / "tqcsttag.dat");
  shop.Write("tqcsttag.dat", tags.substr(0, 30 * CustomerTag::kLength));
  Mend(shop, "tags");
  EXPECT_EQ(shop.Read("tqcsttag.dat"), tags);
  EXPECT_FALSE(std::filesystem::exists(shop.Path() / kCustomerTagFile));
}

TEST(RepairShopTest, WhatHasNoOneRightAnswerIsLeft) {
  CheckedShop shop;
  shop.Put(kCustomerTagFile, 40, shop.Get<CustomerTag>(kCustomerTagFile, 6));
  const auto spoiled = Contents(shop.Path());
  const Repaired repaired = Mend(shop, "tags");
  EXPECT_THAT(repaired.mended, IsEmpty());
  EXPECT_THAT(repaired.left, SizeIs(1));
  EXPECT_EQ(Contents(shop.Path()), spoiled);
}

TEST(RepairShopTest, WhoIsEndedBehindTheCopiesHasThem) {
  struct Ended {};
  CheckedShop shop;
  shop.Set<SystemRecord>(kSystemFile, 0, sysrec::last_customer_number, 5);
  const auto spoiled = Contents(shop.Path());
  EXPECT_THROW(Mend(shop, "counters", Deed::Mend, [] { throw Ended{}; }), Ended);
  auto left = Contents(shop.Path());
  ASSERT_EQ(left.size(), spoiled.size() + 1);
  std::erase_if(left, [](const auto& file) { return file.first.find(".before-") != std::string::npos; });
  EXPECT_EQ(left, spoiled);
  EXPECT_THAT(Mend(shop, "counters").copies, SizeIs(1));
}

TEST(RepairShopTest, ADirectoryInUseIsRefusedUnchanged) {
  CheckedShop shop;
  shop.Set<SystemRecord>(kSystemFile, 0, sysrec::last_customer_number, 5);
  const auto spoiled = Contents(shop.Path());
  const auto expectRefusal = [&](const std::string& named) {
    try {
      Mend(shop, "counters");
      ADD_FAILURE() << "a directory in use was repaired";
    } catch (const ShopError& error) {
      EXPECT_THAT(error.what(), HasSubstr(named));
    }
  };
  {
    shop.Write("LN930000.LOG", "");
    const SharedFile log(shop.Path() / "LN930000.LOG", Access::Write, Deny::All);
    expectRefusal("\"LN930000.LOG\" is in use");
  }
  std::filesystem::remove(shop.Path() / "LN930000.LOG");
  {
    const SharedFile reader(shop.Path() / kVehicleFile, Access::Read, Deny::None);
    expectRefusal("\"TQVEHICL.DAT\" is in use");
  }
  EXPECT_EQ(Contents(shop.Path()), spoiled);
  shop.Write("AR930000.JNL", "");
  expectRefusal("\"AR930000.JNL\" tells of work that ended in the middle");
}

TEST(RepairShopTest, StoppedWhileItLooksIsAsIfItHadNeverBegun) {
  struct Stop {};
  CheckedShop shop;
  shop.Set<SystemRecord>(kSystemFile, 0, sysrec::last_customer_number, 5);
  const auto spoiled = Contents(shop.Path());
  ShopView view(shop.files);
  EXPECT_THROW(RepairShop(view, std::span(KindNamed("counters"), 1), Deed::Mend, nullptr,
                          [](const Kind&, std::size_t, std::size_t) { throw Stop(); }),
               Stop);
  EXPECT_EQ(Contents(shop.Path()), spoiled);
}

}  // namespace lantos::test
