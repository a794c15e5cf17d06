#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "Fixture.h"
#include "records/inventory/Inventory.h"
#include "records/modSystem.h"

namespace lantos::test {

// One part as its two records are to be, put together by hand at the offsets of the files.
struct PartImage {
  std::string number;
  std::string description = "";
  std::array<std::int32_t, 4> prices = {};
  std::int16_t inStock = 0;
  std::array<std::string, 4> alternates = {};
  std::array<std::int32_t, 4> markups = {};
  bool hasCore = false;
  std::int32_t coreCost = 0;
  std::string manufacturer = "";
  std::string location = "";
};

inline constexpr std::int32_t kTagBytes = 128;
inline constexpr std::int32_t kMasterBytes = 344;

inline Image TagImage(const PartImage& part, std::int32_t masterOffset) {
  Image image(128);
  image.Text(0, part.number).Text(21, part.description).Integer(76, part.inStock).Long(78, masterOffset);
  for (std::size_t i = 0; i < 4; ++i) image.Long(60 + 4 * i, part.prices[i]);
  return image;
}

inline Image MasterImage(const PartImage& part) {
  Image image(344);
  image.Text(0, part.number).Text(105, part.description).Text(165, part.manufacturer).Text(298, part.location);
  for (std::size_t i = 0; i < 4; ++i) {
    image.Text(21 + 21 * i, part.alternates[i]).Long(265 + 4 * i, part.prices[i]).Long(281 + 4 * i, part.markups[i]);
  }
  image.Text(319, part.hasCore ? "\1" : std::string(1, '\0')).Long(320, part.coreCost).Integer(331, part.inStock);
  return image.Long(336, -1).Long(340, -1);
}

// Waits take no time; something may happen during one (another workstation lets go of a file, say).
class PatientClock : public StandingClock {
 public:
  using StandingClock::StandingClock;
  void Wait(std::int64_t milliseconds) override {
    waits.push_back(milliseconds);
    MoveOn(milliseconds);
    if (waits.size() > 1000) throw std::logic_error("nobody lets go of the file");
    if (onWait) onWait();
  }
  std::vector<std::int64_t> waits;
  std::function<void()> onWait;
};

// A shop with an inventory, whose clock is patient.
class InventoryTest : public ShopTest {
 protected:
  InventoryTest() { world.files.SetDataDir(environment.files.DataDir()); }
  ~InventoryTest() override { world.log.Close(); }

  // Both files, the n-th tag at 128 n and its master at 344 n, and the list as it stands after loading.
  void PutParts(const std::vector<PartImage>& parts) {
    Image tags;
    Image masters;
    for (const PartImage& part : parts) {
      tags.Append(TagImage(part, static_cast<std::int32_t>(std::string(masters).size())));
      masters.Append(MasterImage(part));
    }
    Put(kInventoryTagFile, tags);
    Put(kInventoryFile, masters);
    LoadList();
  }
  void LoadList() {
    inventory.SizeArrays();
    const std::string tags = BytesOf(kInventoryTagFile);
    for (std::size_t at = 0; at + 128 <= tags.size(); at += 128) inventory.AppendTag(TagOf(tags.substr(at, 128)));
  }
  static InventoryTag TagOf(const std::string& bytes) {
    InventoryTag tag;
    std::transform(bytes.begin(), bytes.end(), tag.Bytes().begin(), [](char c) { return static_cast<std::byte>(c); });
    return tag;
  }
  static InventoryTag NamedTag(std::string_view number, std::string_view description = "") {
    InventoryTag tag;
    tag.Put(inventorytag::StockNumber, number);
    tag.Put(inventorytag::Description, description);
    return tag;
  }
  // Reads a part into the working records. Its master's offset.
  FileLink Read(std::string_view number) {
    FileLink offset = kNoLink;
    EXPECT_TRUE(inventory.ReadInventory(offset, inventory.FindPart(number)));
    return offset;
  }
  std::string TagBytes(std::size_t record) const { return BytesOf(kInventoryTagFile).substr(128 * record, 128); }
  std::string MasterBytes(std::size_t record) const { return BytesOf(kInventoryFile).substr(344 * record, 344); }
  // The log of the world that the inventory is in.
  std::string InventoryLog() {
    const std::string all = BytesOf(world.log.Path().filename().string());
    std::string messages;
    for (std::size_t at = 0; at + 20 < all.size();) {
      const std::size_t end = all.find("\r\n", at);
      messages += all.substr(at + 20, end - at - 20) + "\n";
      at = end + 2;
    }
    return messages;
  }

  PatientClock patience{*ParseLocalTime("2003-09-30T08:15:00")};
  Environment world{patience, settings};
  modSystem system{world, desktop};
  Inventory inventory{world, desktop, system};
};

}  // namespace lantos::test
