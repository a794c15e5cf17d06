#include "masters/vendors/VendorScreens.h"

#include "masters/vendors/frmVendorList.h"

namespace lantos {

namespace {

void Show(Shop& shop, frmVendorList::Purpose purpose) {
  frmVendorList list(shop, purpose);
  list.ShowModal();
  list.Unload();
}

}  // namespace

void VendorMaintenance(Shop& shop) { Show(shop, frmVendorList::Purpose::Maintain); }

void ViewVendors(Shop& shop) { Show(shop, frmVendorList::Purpose::View); }

}  // namespace lantos
