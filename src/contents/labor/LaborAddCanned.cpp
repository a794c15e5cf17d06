#include "contents/labor/LaborAddCanned.h"
#include "contents/labor/frmCanLaborList.h"
#include "records/CannedLabor.h"
#include "records/inventory/Inventory.h"

namespace lantos {

void LaborAddCanned(Workbench& bench, LaborLines& labor, PartLines& parts) {
  frmCanLaborList list(bench);
  list.ShowModal();
  if (!list.Picked()) return;
  if (labor.EditAndAdd(list.CurrentLabor)) OfferLaborKit(bench, parts, list.PickedCode);
}

void OfferLaborKit(Workbench& bench, PartLines& parts, std::string_view code) {
  const std::string kit = bench.shop.records.laborKits.KitOf(code);
  if (kit.empty() || kit == "None") return;
  if (bench.shop.desktop.Ask("Add associated inventory kit\r\r" + kit + "\r\rto estimate?", "Add Canned Labor Kit?",
                             ui::Buttons::YesNo) != ui::Answer::Yes) {
    return;
  }
  Inventory& inventory = bench.shop.records.inventory;
  inventory.FinishLoading();
  const Inventory::PartIndex index = inventory.FindPart(kit);
  FileLink offset = kNoLink;
  if (index != Inventory::kNoPart && inventory.ReadInventory(offset, index)) parts.AddKitLines();
}

}  // namespace lantos
