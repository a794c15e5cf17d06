#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "MasterShop.h"
#include "masters/inventory/frmInvKit.h"
#include "masters/inventory/frmInvKitAdd.h"
#include "records/inventory/Inventory.h"

namespace lantos::test {

inline RawRecord KitImage(std::string_view number, const std::vector<std::string>& lines = {}) {
  RawRecord image(1971);
  image.Text(0, number);
  for (std::size_t i = 0; i < lines.size(); ++i) image.Text(21 + 39 * i, lines[i]);
  return image;
}

// A stock of a kit and three parts.
class KitShop : public MasterShop {
 protected:
  KitShop() {
    inventory.SizeArrays();
    AddPart("TUNEUP", "TUNE-UP KIT");
    AddPart("PLUG", "SPARK PLUG");
    AddPart("WIRES", "IGNITION WIRES");
    AddPart("CAP", "DISTRIBUTOR CAP");
  }
  void AddPart(std::string_view number, std::string_view description) {
    Inventory::PartIndex index = Inventory::kNoPart;
    inventory.NewInventoryPart(number, index);
    FileLink offset = kNoLink;
    inventory.ReadInventory(offset, index);
    inventory.CurrentInv.Put(inventory::Description, description);
    inventory.CurrentInvTag.Put(inventorytag::Description, description);
    inventory.WriteInventory(offset, index, Inventory::Core::Stays, Inventory::Broadcast::No);
  }
  void PutKit(const std::vector<std::string>& lines) const { directory.Put("TQINVKIT.DAT", KitImage("TUNEUP", lines)); }
  std::string KitFile() const { return directory.Content("TQINVKIT.DAT"); }
  static std::vector<std::string> Rows(const frmInvKit& form) {
    std::vector<std::string> rows;
    for (const ui::ListRow& row : form.List1.Rows()) rows.push_back(row.text);
    return rows;
  }
  // The person's doing on the kit's screen, which is left without a question at the end when it is unchanged.
  void Edit(const std::function<void(frmInvKit&)>& use) {
    desktop.WillUse([&, use](ui::Form& form) {
      use(As<frmInvKit>(form));
      if (form.Visible()) form.PressKey(ui::ParseKey("Esc"));
    });
    EditKit(shop, "TUNEUP");
  }
  void WillType(std::string part, std::string quantity) {
    desktop.WillUse([part = std::move(part), quantity = std::move(quantity)](ui::Form& form) {
      auto& add = As<frmInvKitAdd>(form);
      Type(add.txtPart, part);
      Type(add.txtQuantity, quantity);
      Press(form, "F10");
    });
  }
  std::string LastBox() const { return desktop.boxes.empty() ? "" : desktop.boxes.back().text; }

  Inventory& inventory = records.inventory;
};

}  // namespace lantos::test
