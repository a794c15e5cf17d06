#include "masters/inventory/InventoryMaintenance.h"

#include "masters/inventory/frmInvAdd.h"
#include "masters/inventory/frmInvEdit.h"
#include "masters/inventory/frmInvView.h"

namespace lantos {

namespace {

void AddParts(Shop& shop, frmInvList& list) {
  frmInvAdd form(shop, list);
  form.ShowModal();
}

void Edit(Shop& shop, frmInvList& list, const PartAt& part) {
  EditPart(shop, list, part);
  // The person may have gone on to other parts; the one they came from is where they left the list.
  list.GoToPart(part.index);
}

void Serve(Shop& shop, frmInvList& list, frmInvList::Request request) {
  if (request == frmInvList::Request::Add) return AddParts(shop, list);
  const PartAt chosen = list.Chosen();
  if (request == frmInvList::Request::Select) return Edit(shop, list, chosen);
  if (const std::optional<PartAt> seen = ViewPart(shop, chosen.index)) Edit(shop, list, *seen);
}

}  // namespace

void InventoryMaintenance(Shop& shop, frmInvList& list) {
  shop.desktop.ShowStatus("Performing Inventory Maintenance...");
  frmInvList::Request request = list.Ask();
  while (request != frmInvList::Request::None) {
    Serve(shop, list, request);
    request = list.Ask(frmInvList::Comes::Back);
  }
  shop.desktop.ShowStatus("");
}

}  // namespace lantos
