#include "masters/inventory/frmInvAdd.h"

#include "frame/Text.h"
#include "records/inventory/NewParts.h"

namespace lantos {

frmInvAdd::frmInvAdd(Shop& shop, frmInvList& list)
    : OkCancelForm(shop.desktop, shop.keys, "frmInvAdd", "Add Part"), shop_(shop), list_(list) {
  SetSize(6000, 2400);
  StockNumber.SetMaxLength(inventory::StockNumber.width - 1);
  UseButtons(cmdOK, cmdCancel);
  cmdOK.SetToolTip("Add <F10>");
  cmdCancel.SetToolTip("Close <Esc>");
  AskBeforeLosing(cmdCancel, StockNumber);
}

void frmInvAdd::Accept() {
  const std::string number = Trim(StockNumber.Text());
  StockNumber.SetFocus();
  if (number.empty()) return shop_.desktop.Tell("Part number is required.", Caption());
  Msg.SetCaption("Looking for duplicate...");
  Inventory& inventory = shop_.records.inventory;
  inventory.FinishLoading();
  if (inventory.FindPart(number) != Inventory::kNoPart) return TellExists(number);
  Msg.SetCaption("Adding " + number + " to Inventory files.");
  Inventory::PartIndex index = Inventory::kNoPart;
  if (AddNewPart(inventory, number, index) == NewPart::Exists) {
    return TellExists(number);
  }
  Msg.SetCaption(number + " added.");
  list_.ShowTotal(1);
  list_.GoToPart(index);
  StockNumber.SetText("");
  MarkUnchanged();
}

void frmInvAdd::TellExists(const std::string& number) {
  shop_.desktop.Tell("Part\r" + number + "\ralready exists.", Caption());
  Msg.SetCaption(number + " already exists.");
}

}  // namespace lantos
