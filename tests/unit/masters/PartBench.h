#pragma once

#include "MasterShop.h"
#include "masters/inventory/frmInvEdit.h"
#include "records/InventoryFixture.h"
#include "records/inventory/NameList.h"

namespace lantos::test {

// The rows of a list that shows the parts in the order of the file.
class FileOrder : public PartRows {
 public:
  explicit FileOrder(const Inventory& inventory) : inventory_(inventory) {}
  std::optional<PartAt> Before(Inventory::PartIndex part) const override { return At(part - 1); }
  std::optional<PartAt> After(Inventory::PartIndex part) const override { return At(part + 1); }
  void Refresh(Inventory::PartIndex part) override { refreshed.push_back(part); }

  std::vector<Inventory::PartIndex> refreshed;

 private:
  std::optional<PartAt> At(Inventory::PartIndex part) const {
    if (part < 0 || part >= inventory_.Count()) return std::nullopt;
    return PartAt{inventory_.Tag(part).Get(inventorytag::Tag), part};
  }
  const Inventory& inventory_;
};

// A shop with parts, and the screen of the first of them.
class PartBench : public MasterShop {
 protected:
  PartBench() {
    directory.Put("TQDEPART.DAT", "BRAKES              ENGINE              \r\n");
    directory.Put("TQMANUFA.DAT", "BOSCH               \r\n");
    records.departments.Load();
    records.manufacturers.Load();
  }
  static PartImage Pad() {
    PartImage pad = {"PAD-1", "BRAKE PAD", {1000, 1250, 1500, 1999}, 12};
    pad.markups = {0, 250000, 500000, 999000};
    pad.manufacturer = "BOSCH";
    pad.location = "SHELF 3";
    return pad;
  }
  // As PutParts of InventoryFixture does it.
  void PutParts(const std::vector<PartImage>& parts) {
    Image tags;
    Image masters;
    for (const PartImage& part : parts) {
      tags.Append(TagImage(part, static_cast<std::int32_t>(masters.Bytes().size())));
      masters.Append(MasterImage(part));
    }
    directory.Put("TQINVTAG.DAT", tags.Bytes());
    directory.Put("TQINVENT.DAT", masters.Bytes());
    inventory.SizeArrays();
    for (std::size_t at = 0; at < parts.size(); ++at) {
      InventoryTag tag;
      const std::string bytes = TagBytes(at);
      std::transform(bytes.begin(), bytes.end(), tag.Bytes().begin(), [](char c) { return static_cast<std::byte>(c); });
      inventory.AppendTag(tag);
    }
  }
  std::string TagBytes(std::size_t record) const { return directory.Content("TQINVTAG.DAT").substr(128 * record, 128); }
  std::string MasterBytes(std::size_t record) const {
    return directory.Content("TQINVENT.DAT").substr(344 * record, 344);
  }
  // The screen on the part, which the person must leave at the end.
  void Edit(const std::function<void(frmInvEdit&)>& use, Inventory::PartIndex part = 0) {
    desktop.WillUse([use](ui::Form& shown) { use(As<frmInvEdit>(shown)); });
    EditPart(shop, rows, {kNoLink, part});
  }

  // Leaves the screen, changes and all.
  void Drop(frmInvEdit& form) {
    desktop.WillAnswer(Answer::Yes);
    Press(form, "Esc");
  }

  Inventory& inventory = records.inventory;
  FileOrder rows{inventory};
};

}  // namespace lantos::test
