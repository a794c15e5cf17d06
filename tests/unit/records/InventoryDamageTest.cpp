// Cuts and flipped bits of the inventory's files: nothing crashes, looking changes no byte.
#include <gtest/gtest.h>

#include <functional>

#include "../../fuzz/InventoryReaders.h"
#include "records/inventory/InventoryKits.h"
#include "records/inventory/InventoryLayout.h"
#include "records/modSystem.h"

namespace lantos {
namespace {

using fuzz::QuietShop;

template <std::size_t Length>
std::string BytesOf(const Record<Length>& record) {
  return {reinterpret_cast<const char*>(record.Bytes().data()), Length};
}

std::string TagSeed() {
  std::string file;
  for (const char* number : {"STARTER", "PUMP"}) {
    InventoryTag tag;
    tag.Put(inventorytag::StockNumber, number);
    tag.Put(inventorytag::Description, "PART");
    tag.Put(inventorytag::Tag, static_cast<FileLink>(file.empty() ? 0 : InventoryRecord::kLength));
    file += BytesOf(tag);
  }
  return file;
}

std::string MasterSeed() {
  std::string file;
  for (const char* number : {"STARTER", "PUMP"}) {
    InventoryRecord part;
    part.Put(inventory::StockNumber, number);
    part.Put(inventory::AltNumber[0], "NEWCOMER");
    part.Put(inventory::Location, "KIT:(1.50,2)");
    part.Put(inventory::HasACore, 1);
    part.Put(inventory::CoreCost, 1525);
    file += BytesOf(part);
  }
  return file;
}

std::string KitSeed() {
  InventoryKitRecord kit;
  kit.Put(inventorykit::KitNumber, "TUNEUP");
  kit.Put(inventorykit::Line(0), "PLUG(4)");
  kit.Put(inventorykit::Line(2), "ROTOR");
  return BytesOf(kit);
}

std::string NameSeed() { return "TIRES               OIL                 \r\n"; }

struct Format {
  std::string_view file;
  std::string (*seed)();
  void (*read)(QuietShop&);
  void (*change)(QuietShop&);
};
constexpr Format kTags = {kInventoryTagFile, TagSeed, fuzz::ReadInventory, fuzz::ChangeInventory};
constexpr Format kMasters = {kInventoryFile, MasterSeed, fuzz::ReadInventory, fuzz::ChangeInventory};
void ChangeKits(fuzz::QuietShop& shop) {
  fuzz::ChangeKits(shop);
  fuzz::SaveKitsAgain(shop);
}
constexpr Format kKits = {kKitFile, KitSeed, fuzz::ReadKits, ChangeKits};
constexpr Format kNames = {kDepartmentFile, NameSeed, fuzz::ReadNames, fuzz::AddName};

class DamagedInventory : public testing::TestWithParam<Format> {
 protected:
  void Use(const std::string& content) {
    for (const Format& format : {kTags, kMasters, kKits, kNames}) shop.Put(format.file, format.seed());
    shop.Put(kSystemFile, std::string(SystemRecord::kLength, '\0'));
    shop.Put(GetParam().file, content);
    GetParam().read(shop);
    ASSERT_EQ(shop.Content(GetParam().file), content);
    GetParam().change(shop);
  }

  QuietShop shop;
};

TEST_P(DamagedInventory, ACutFileIsReadLeftAsItIsAndCanBeWrittenTo) {
  const std::string seed = GetParam().seed();
  for (std::size_t length = 0; length < seed.size() && !HasFatalFailure(); length += 1 + seed.size() / 100) {
    Use(seed.substr(0, length));
  }
}

// One bit of each byte, another one each time; of a kit's 1971 bytes those of every third.
TEST_P(DamagedInventory, AFlippedBitIsReadLeftAsItIsAndDoesNoHarmToAWrite) {
  std::string content = GetParam().seed();
  const std::size_t step = content.size() > 1000 ? 3 : 1;
  for (std::size_t at = 0; at < content.size() && !HasFatalFailure(); at += step) {
    const char byte = content[at];
    content[at] = static_cast<char>(byte ^ (1 << (at % 8)));
    Use(content);
    content[at] = byte;
  }
}

// An update file is taken in and emptied, whatever it holds.
class DamagedUpdates : public testing::Test {
 protected:
  void Use(const std::string& content) {
    shop.Put(kInventoryTagFile, TagSeed());
    shop.Put(fuzz::kUpdateFile, content);
    fuzz::TakeUpdatesIn(shop);
    ASSERT_EQ(shop.Content(fuzz::kUpdateFile).size(), content.size() < InventoryTag::kLength ? content.size() : 0);
    ASSERT_EQ(shop.Content(kInventoryTagFile), TagSeed());
    shop.Put(fuzz::kUpdateFile, content);
    fuzz::AppendUpdates(shop);
  }
  static std::string Seed() {
    InventoryTag fresh;
    fresh.Put(inventorytag::StockNumber, "NEWCOMER");
    return TagSeed() + BytesOf(fresh);
  }

  QuietShop shop;
};

TEST_F(DamagedUpdates, ACutFileIsTakenInAsFarAsItsRecordsAreWhole) {
  const std::string seed = Seed();
  for (std::size_t length = 0; length <= seed.size() && !HasFatalFailure(); length += 5) Use(seed.substr(0, length));
}

TEST_F(DamagedUpdates, AFlippedBitIsAnotherPartOrNone) {
  std::string content = Seed();
  for (std::size_t at = 0; at < content.size() && !HasFatalFailure(); ++at) {
    const char byte = content[at];
    content[at] = static_cast<char>(byte ^ (1 << (at % 8)));
    Use(content);
    content[at] = byte;
  }
}

INSTANTIATE_TEST_SUITE_P(Formats, DamagedInventory, testing::Values(kTags, kMasters, kKits, kNames),
                         [](const testing::TestParamInfo<Format>& tested) {
                           return std::string(tested.param.file.substr(0, tested.param.file.find('.')));
                         });

}  // namespace
}  // namespace lantos
