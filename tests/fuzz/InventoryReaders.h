#pragma once

#include <algorithm>
#include <stdexcept>

#include "Readers.h"
#include "records/inventory/Inventory.h"
#include "records/inventory/InventoryKits.h"
#include "records/inventory/KitContents.h"
#include "records/inventory/MailboxIntake.h"
#include "records/inventory/NameList.h"
#include "records/inventory/OutgoingChanges.h"

// What the program does with the inventory's files, whatever their bytes are.
namespace lantos::fuzz {

inline void Must(bool condition, const char* what) {
  if (!condition) throw std::logic_error(what);
}

// As the list does it in the background, without its window.
inline void LoadInventoryTags(QuietShop& shop, Inventory& inventory) {
  inventory.SizeArrays();
  const std::string content = shop.Content(kInventoryTagFile);
  for (std::size_t at = 0; at < content.size(); at += InventoryTag::kLength) {
    InventoryTag tag;
    const std::string bytes = content.substr(at, InventoryTag::kLength);
    std::transform(bytes.begin(), bytes.end(), tag.Bytes().begin(), [](char c) { return static_cast<std::byte>(c); });
    inventory.AppendTag(tag);
  }
}

inline void SeePart(const InventoryRecord& part) {
  for (const TextField field : {inventory::StockNumber, inventory::Description, inventory::Department,
                                inventory::Manufacturer, inventory::Comment, inventory::Location}) {
    See(part.Get(field));
  }
  for (const TextField field : inventory::AltNumber) See(part.Get(field));
  for (const LongField field : inventory::Pricing) See(FormatHundredths(part.Get(field)));
  const KitPrices prices = ParseKitPrices(part.View(inventory::Location));
  See(FormatHundredths(prices.sale) + FormatHundredths(prices.list));
}

inline void ReadInventory(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  Refusable([&] {
    Inventory& inventory = records.inventory;
    LoadInventoryTags(shop, inventory);
    for (Inventory::PartIndex index = 0; index < inventory.Count(); ++index) {
      const std::string number = inventory.Tag(index).Get(inventorytag::StockNumber);
      See(inventory.PartDescription(number));
      See(FormatHundredths(inventory.PartPricing(number).atLevel));
      inventory.FindPart(number);
      FileLink offset = kNoLink;
      if (inventory.ReadInventory(offset, index)) SeePart(inventory.CurrentInv);
    }
  });
}

// Stores the first parts once more, with what hangs on them, and a new one. A part that can't be read isn't stored.
inline void ChangeInventory(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  Refusable([&] {
    Inventory& inventory = records.inventory;
    LoadInventoryTags(shop, inventory);
    const Inventory::PartIndex count = std::min<Inventory::PartIndex>(inventory.Count(), 4);
    for (Inventory::PartIndex index = 0; index < count; ++index) {
      FileLink offset = kNoLink;
      if (!inventory.ReadInventory(offset, index)) continue;
      inventory.WriteInventory(offset, index, Inventory::Core::Follows, Inventory::Broadcast::Yes);
      inventory.CrossReferenceAlternate("NEWCOMER", "", inventory.Tag(index).View(inventorytag::StockNumber));
    }
    Inventory::PartIndex added = Inventory::kNoPart;
    inventory.NewInventoryPart("NEWCOMER", added);
  });
}

constexpr std::string_view kUpdateFile = "AU9300.$$$";

// Takes the update file in, whatever stands in it: it is empty then, unless a tag can't be read.
inline void TakeUpdatesIn(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  shop.environment.updateFileName = kUpdateFile;
  Refusable([&] {
    Inventory& inventory = records.inventory;
    LoadInventoryTags(shop, inventory);
    const Inventory::PartIndex before = inventory.Count();
    const std::size_t sent = shop.Content(kUpdateFile).size() / InventoryTag::kLength;
    Mailbox mailbox(shop.environment);
    MailboxIntake intake(shop.environment, shop.desktop, inventory, mailbox);
    std::size_t taken = 0;
    intake.onNew = [&](Inventory::PartIndex) { ++taken; };
    while (intake.ProcessInventoryUpdates() == Mailbox::Left::More) {
    }
    Must(static_cast<std::size_t>(inventory.Count() - before) == taken && taken <= sent, "parts from nowhere");
    for (Inventory::PartIndex index = before; index < inventory.Count(); ++index) {
      const std::string number = inventory.Tag(index).Get(inventorytag::StockNumber);
      Must(number.empty() || inventory.FindPart(number) == index, "a new part isn't found");
    }
    Must(sent == 0 || shop.Content(kUpdateFile).empty(), "the update file isn't emptied");
  });
}

// And what others append to it afterwards stands behind what is there.
inline void AppendUpdates(QuietShop& shop) {
  shop.environment.updateFileName = "AU9309.$$$";
  const std::size_t before = shop.Content(kUpdateFile).size();
  OutgoingChanges changes(shop.environment, shop.desktop);
  changes.AddAuditRecord({});
  changes.SendAll();
  Must(shop.Content(kUpdateFile).size() == before + InventoryTag::kLength, "it isn't one record longer");
}

inline void ReadKits(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  Refusable([&] {
    for (const std::string& number : records.kits.KitNumbers()) {
      InventoryKitRecord kit;
      records.kits.FindKit(number, kit);
      for (const KitComponent& component : ComponentsOf(kit)) See(KitLine(component));
    }
    InventoryKitRecord kit;
    records.kits.FindKit("NOBODY'S", kit);
  });
}

inline void ChangeKits(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  Refusable([&] {
    InventoryKitRecord kit;
    records.kits.FindKit("TUNEUP", kit);
    kit.Put(inventorykit::Line(0), KitLine({"SPARKPLUG", 8}));
    Must(records.kits.SaveKit(kit), "a kit isn't saved");
    InventoryKitRecord saved;
    Must(records.kits.FindKit("TUNEUP", saved) != kNoLink && saved == kit, "a saved kit isn't found");
  });
}

// Each kit is saved as its screen does it, and reads as it did.
inline void SaveKitsAgain(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  Refusable([&] {
    for (const std::string& number : records.kits.KitNumbers()) {
      InventoryKitRecord kit;
      records.kits.FindKit(number, kit);
      const KitContents contents(kit);
      const InventoryKitRecord rebuilt = contents.RecordOf(number);
      const KitContents again(rebuilt);
      Must(again.Count() == contents.Count() && again.RecordOf(number) == rebuilt, "a kit doesn't stay what it is");
      for (std::size_t row = 0; row < contents.Count(); ++row) {
        const KitLineTexts& was = contents[row];
        const KitLineTexts& is = again[row];
        Must(was.partNumber == is.partNumber && was.quantity == is.quantity, "a line doesn't stay what it is");
      }
      Must(records.kits.SaveKit(rebuilt), "a kit isn't saved");
    }
  });
}

inline void ReadNames(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  Refusable([&] {
    records.departments.Load();
    for (const std::string& name : records.departments.Names()) See(name);
  });
}

inline void AddName(QuietShop& shop) {
  Records records(shop.environment, shop.desktop);
  Refusable([&] {
    records.departments.Load();
    const std::vector<std::string> before = records.departments.Names();
    const std::size_t place = records.departments.Add("NEW NAME");
    const std::vector<std::string> names = records.departments.Names();
    records.departments.Load();
    Must(records.departments.Names() == names && names.at(place) == "NEW NAME", "a name isn't kept");
    Must(names.size() >= before.size() && std::equal(before.begin(), before.end(), names.begin()), "a name has moved");
    // A copy that knew nothing of the names has them all, too.
    NameList other(shop.environment, kDepartmentFile);
    Must(other.Add("OTHER NAME") < other.Names().size(), "a name has no place");
    Must(std::all_of(names.begin(), names.end(),
                     [&](const std::string& name) {
                       return std::find(other.Names().begin(), other.Names().end(), name) != other.Names().end();
                     }),
         "a name of another copy is lost");
  });
}

}  // namespace lantos::fuzz
