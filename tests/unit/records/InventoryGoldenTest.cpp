// The inventory's golden files.
#include "GoldenBench.h"
#include "records/inventory/Inventory.h"
#include "records/inventory/KitContents.h"
#include "records/inventory/NameList.h"

namespace lantos::test {
namespace {

std::vector<Field> TagFields() {
  FieldList list(kInventoryTagFile);
  list FIELD(inventorytag, StockNumber) FIELD(inventorytag, Description);
  for (std::size_t i = 0; i < 4; ++i) list("Pricing_" + std::to_string(i), inventorytag::Pricing[i]);
  list FIELD(inventorytag, InStock) FIELD(inventorytag, Tag) FIELD(inventorytag, IsStocked) FIELD(inventorytag, Dummy);
  return list.All();
}

std::vector<Field> MasterFields() {
  FieldList list(kInventoryFile);
  list FIELD(inventory, StockNumber);
  for (std::size_t i = 0; i < 4; ++i) list("AltNumber_" + std::to_string(i), inventory::AltNumber[i]);
  list FIELD(inventory, Description) FIELD(inventory, Department) FIELD(inventory, Manufacturer)
      FIELD(inventory, Comment);
  for (std::size_t i = 0; i < 4; ++i) list("Pricing_" + std::to_string(i), inventory::Pricing[i]);
  for (std::size_t i = 0; i < 4; ++i) list("MarkupPercent_" + std::to_string(i), inventory::MarkupPercent[i]);
  list FIELD(inventory, IsStocked) FIELD(inventory, Location) FIELD(inventory, HasACore) FIELD(inventory, CoreCost)
      FIELD(inventory, HasWaste) FIELD(inventory, DisposalFee) FIELD(inventory, ReorderLevel)
          FIELD(inventory, QtyInStock) FIELD(inventory, IdealLevel) FIELD(inventory, Deleted)
              FIELD(inventory, UsageLink) FIELD(inventory, ReceivingLink);
  return list.All();
}

std::vector<Field> KitFields() {
  FieldList list(kKitFile);
  list FIELD(inventorykit, KitNumber);
  for (std::size_t i = 0; i < 50; ++i) list("Line_" + std::to_string(i), inventorykit::Line(i));
  return list.All();
}

class InventoryGolden : public Golden {
 protected:
  InventoryGolden() {
    inventory.SizeArrays();
    const std::string tags = GoldenBytes(kInventoryTagFile);
    for (std::size_t at = 0; at < tags.size(); at += 128) {
      InventoryTag tag;
      std::transform(tags.begin() + static_cast<std::ptrdiff_t>(at),
                     tags.begin() + static_cast<std::ptrdiff_t>(at + 128), tag.Bytes().begin(),
                     [](char c) { return static_cast<std::byte>(c); });
      inventory.AppendTag(tag);
    }
  }
  FileLink Read(Inventory::PartIndex index) {
    FileLink offset = kNoLink;
    EXPECT_TRUE(inventory.ReadInventory(offset, index));
    return offset;
  }

  Inventory& inventory = records.inventory;
};

TEST_F(InventoryGolden, EveryFieldLiesWhereTheGoldenFilesHaveIt) {
  for (const auto& fields : {TagFields(), MasterFields(), KitFields()}) ExpectGoldenLayout(fields);
}

TEST_F(InventoryGolden, PartsReadAsTheyWereMade) {
  ASSERT_EQ(inventory.FindPart("PF47"), 0);
  EXPECT_EQ(Read(0), 2 * 344);
  const InventoryRecord& part = inventory.CurrentInv;
  EXPECT_EQ(part.Get(inventory::StockNumber), "PF47");
  EXPECT_EQ(part.Get(inventory::AltNumber[2]), "L10241");
  EXPECT_EQ(part.Get(inventory::Manufacturer), "AC DELCO");
  EXPECT_EQ(part.Get(inventory::Comment), std::string(79, 'c'));
  EXPECT_EQ(part.Get(inventory::MarkupPercent[3]), 1254838);
  EXPECT_EQ(part.Get(inventory::QtyInStock), 12);
  EXPECT_EQ(part.Get(inventory::IdealLevel), 24);
  EXPECT_EQ(part.Get(inventory::UsageLink), 0);
  EXPECT_EQ(part.Get(inventory::ReceivingLink), 76);
  EXPECT_EQ(inventory.PartPrices("PF47").byLevel, (std::array{310, 420, 500, 699}));
  Read(inventory.FindPart("STARTER"));
  EXPECT_EQ(part.Get(inventory::Manufacturer), "B\xF6sch");
  EXPECT_EQ(part.Get(inventory::CoreCost), 1525);
  EXPECT_EQ(part.Get(inventory::DisposalFee), 250);
  EXPECT_EQ(inventory.PartInStock("STARTER"), -1);
  EXPECT_EQ(inventory.PartDescription("1-234-567-89-ABCDEFGH"), "A");
  EXPECT_EQ(inventory.FindPart("OLDBELT"), Inventory::kNoPart) << "it was deleted";
  Read(inventory.FindPart("TUNEUP"));
  EXPECT_TRUE(IsKit(part.Get(inventory::Location)));
  EXPECT_EQ(ParseKitPrices(part.Get(inventory::Location)).list, 12000);
}

TEST_F(InventoryGolden, ReadAndWriteLeaveBothFilesUnchanged) {
  for (Inventory::PartIndex index = 0; index < inventory.Count(); ++index) {
    inventory.WriteInventory(Read(index), index, Inventory::Core::Stays, Inventory::Broadcast::No);
  }
  EXPECT_EQ(BytesOf(kInventoryTagFile), GoldenBytes(kInventoryTagFile));
  EXPECT_EQ(BytesOf(kInventoryFile), GoldenBytes(kInventoryFile));
}

TEST_F(InventoryGolden, EditingOneFieldOfAMasterChangesThatFieldAlone) {
  FileLink offset = kNoLink;
  ExpectEachFieldAlone(
      MasterFields(), 344, inventory.CurrentInv, [&] { offset = Read(1); },
      [&] { inventory.WriteInventory(offset, 1, Inventory::Core::Stays, Inventory::Broadcast::No); });
}

TEST_F(InventoryGolden, EditingOneFieldOfATagChangesThatFieldAlone) {
  FileLink offset = kNoLink;
  // The stocked flag is the master's.
  ExpectEachFieldAlone(
      TagFields(), 128, inventory.CurrentInvTag, [&] { offset = Read(1); },
      [&] { inventory.WriteInventory(offset, 1, Inventory::Core::Stays, Inventory::Broadcast::No); }, {"IsStocked"});
}

TEST_F(InventoryGolden, KitsReadAsTheyWereMade) {
  InventoryKitRecord kit;
  EXPECT_EQ(records.kits.KitNumbers(), (std::vector<std::string>{"TUNEUP", "FULL"}));
  ASSERT_EQ(records.kits.FindKit("TUNEUP", kit), 0);
  std::string all;
  for (const KitComponent& one : ComponentsOf(kit)) all += one.partNumber + "=" + std::to_string(one.quantity) + ";";
  EXPECT_EQ(all, "SPARKPLUG=8;PF47=1;ROTOR=1;");
  ASSERT_EQ(records.kits.FindKit("FULL", kit), 1971);
  const std::vector<KitComponent> full = ComponentsOf(kit);
  ASSERT_EQ(full.size(), 49U);
  EXPECT_EQ(full[1].partNumber, "ONE");
  EXPECT_EQ(full[48].partNumber, "PART49");
  EXPECT_EQ(full[48].quantity, 49);
}

TEST_F(InventoryGolden, FindAndSaveLeaveTheKitFileUnchanged) {
  InventoryKitRecord kit;
  for (const std::string& number : records.kits.KitNumbers()) {
    records.kits.FindKit(number, kit);
    EXPECT_TRUE(records.kits.SaveKit(kit));
  }
  EXPECT_EQ(BytesOf(kKitFile), GoldenBytes(kKitFile));
}

TEST_F(InventoryGolden, AKitSavedFromItsRowsLosesABlankLineAndWhatStandsBehindATextAndNothingElse) {
  for (const std::string& number : records.kits.KitNumbers()) {
    InventoryKitRecord kit;
    records.kits.FindKit(number, kit);
    EXPECT_TRUE(records.kits.SaveKit(KitContents(kit).RecordOf(number)));
  }
  std::string expected = GoldenBytes(kKitFile);
  expected.replace(60 + 5, 3, 3, '\0');  // "(3)" behind the NUL of the second line of TUNEUP
  const std::size_t blank = 1971 + 21 + 39 * 48;
  expected.replace(blank, 39, expected.substr(blank + 39, 39));
  expected.replace(blank + 39, 39, 39, '\0');
  EXPECT_EQ(BytesOf(kKitFile), expected);
}

TEST_F(InventoryGolden, EditingOneLineOfAKitChangesThatLineAlone) {
  InventoryKitRecord kit;
  ExpectEachFieldAlone(
      KitFields(), 1971, kit, [&] { records.kits.FindKit("FULL", kit); }, [&] { records.kits.SaveKit(kit); },
      {"KitNumber"});
}

TEST_F(InventoryGolden, ANameThatIsAddedLeavesTheOthersAsTheyWere) {
  for (NameList* list : {&records.departments, &records.manufacturers}) list->Load();
  EXPECT_EQ(records.departments.Names(), (std::vector<std::string>{"FILTERS", "ELECTRIC", "CORES", "KITS"}));
  EXPECT_EQ(records.manufacturers.Names(), (std::vector<std::string>{"AC DELCO", "B\xF6sch", "A NAME OF TWENTY CHR"}));
  records.manufacturers.Add("DELPHI");
  const std::string golden = GoldenBytes(kManufacturerFile);
  EXPECT_EQ(BytesOf(kManufacturerFile), golden.substr(0, 60) + "DELPHI              \r\n");
}

TEST_F(InventoryGolden, LookingNeverWrites) {
  const auto before = Everything();
  for (Inventory::PartIndex index = 0; index < inventory.Count(); ++index) {
    Read(index);
    InventoryTag tag;
    inventory.ReadInventoryTag(index, tag);
    inventory.FindTagLocation(index);
  }
  InventoryKitRecord kit;
  records.kits.FindKit("TUNEUP", kit);
  records.kits.FindKit("NONE", kit);
  records.kits.KitNumbers();
  records.departments.Load();
  records.manufacturers.Load();
  EXPECT_EQ(Everything(), before);
}

}  // namespace
}  // namespace lantos::test
