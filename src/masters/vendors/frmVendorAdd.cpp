#include "masters/vendors/frmVendorAdd.h"

#include "records/Vendors.h"

namespace lantos {

namespace {

constexpr const char* kInvitation = "Enter vendor to add.";

}  // namespace

frmVendorAdd::frmVendorAdd(Shop& shop)
    : OkCancelForm(shop.desktop, shop.keys, "frmVendorAdd", "Add Vendor"), shop_(shop) {
  SetSize(6000, 2100);
  Msg.SetCaption(kInvitation);
  VendorName.SetMaxLength(vendor::VendorName.width - 1);
  cmdOK.SetToolTip("Add the vendor <F10>");
  cmdCancel.SetToolTip("Close <Esc>");
  UseButtons(cmdOK, cmdCancel);
  AskBeforeLosing(cmdCancel, VendorName);
}

void frmVendorAdd::Accept() {
  Vendors& vendors = shop_.records.vendors;
  const std::string name = Trim(VendorName.Text());
  if (name.empty()) return Refuse(kInvitation);
  Msg.SetCaption("Looking for duplicate...");
  const bool isNew = vendors.Find(name) == vendors.Count();
  const Vendors::Addition addition =
      isNew ? vendors.AddVendor(name) : Vendors::Addition{Vendors::Outcome::WasThere, vendors.Find(name)};
  MarkUnchanged();
  if (addition.outcome == Vendors::Outcome::WasThere) return Refuse(name + " already exists.");
  added_ = addition.index;
  Hide();
}

void frmVendorAdd::Refuse(const std::string& message) {
  Msg.SetCaption(message);
  shop_.desktop.Beep();
  VendorName.SetFocus();
}

}  // namespace lantos
