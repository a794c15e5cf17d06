#include "masters/vendors/frmVendorList.h"

#include <algorithm>

#include "masters/vendors/frmVendorAdd.h"
#include "records/Vendors.h"

namespace lantos {

frmVendorList::frmVendorList(Shop& shop, Purpose purpose)
    : SizedForm(shop.desktop, shop.keys, shop.environment.settings, "frmVendorList",
                purpose == Purpose::View ? "View Vendors" : "Vendor List"),
      shop_(shop) {
  SetDesignedSize(7500, 6000);
  VendorList.SetSpokenName("Vendors");
  WireButtons();
  if (purpose == Purpose::Maintain) return;
  for (ui::Button* button : {&cmdEdit, &cmdNew, &cmdDelete}) button->SetVisible(false);
  SetDefaultButton(cmdSelect);
  VendorList.OnDoubleClick = [this] { Accept(); };
}

void frmVendorList::WireButtons() {
  UseButtons(cmdSelect, cmdCancel);
  SetDefaultButton(cmdEdit);
  cmdSelect.SetToolTip("View the vendor <F10>");
  cmdEdit.SetToolTip("Edit <Enter>");
  cmdNew.SetToolTip("New <Insert>");
  cmdDelete.SetToolTip("Delete <Delete>");
  cmdCancel.SetToolTip("Close <Esc>");
  cmdEdit.OnClick = [this] { Open(frmVendorEdit::Purpose::Edit); };
  cmdNew.OnClick = [this] { New(); };
  cmdDelete.OnClick = [this] { Delete(); };
  VendorList.OnDoubleClick = [this] { Open(frmVendorEdit::Purpose::Edit); };
}

// From the second time on nobody is asked to wait: the vendors are in memory, and are renewed when they can be.
void frmVendorList::OnLoad() {
  SizedForm::OnLoad();
  Vendors& vendors = shop_.records.vendors;
  if (vendors.Loaded()) {
    vendors.LookAgain();
  } else {
    vendors.LoadVendors();
  }
  ShowRows();
}

void frmVendorList::OnKeyDown(ui::KeyPress& key) {
  const ui::Button* button = key.Is("Insert") ? &cmdNew : key.Is("Delete") ? &cmdDelete : nullptr;
  if (button == nullptr || !button->IsUsable()) return SizedForm::OnKeyDown(key);
  key.Clear();
  button->OnClick();
}

void frmVendorList::ShowRows() {
  const Vendors& vendors = shop_.records.vendors;
  int row = 0;
  for (std::size_t i = 0; i < vendors.Count(); ++i) {
    const std::string name = vendors[i].Get(vendor::VendorName);
    const auto index = static_cast<std::int32_t>(i);
    const bool hasRow = row < VendorList.ListCount() && VendorList.ItemData(row) == index;
    if (name.empty()) {
      if (hasRow) VendorList.RemoveItem(row);
      continue;
    }
    if (!hasRow) VendorList.InsertItem(row, name, index);
    if (VendorList.List(row) != name) VendorList.SetList(row, name);
    ++row;
  }
  while (VendorList.ListCount() > row) VendorList.RemoveItem(row);
}

std::optional<std::size_t> frmVendorList::TakeChosen() {
  const int row = VendorList.ListIndex();
  if (row < 0) {
    shop_.desktop.Tell("No vendor selected.", Caption(), ui::Icon::Exclamation);
    return std::nullopt;
  }
  const auto index = static_cast<std::size_t>(VendorList.ItemData(row));
  Vendors& vendors = shop_.records.vendors;
  vendors.MakeCurrent(index);
  if (!vendors.CurrentVendor.View(vendor::VendorName).empty()) return index;
  ShowRows();
  shop_.desktop.Tell("This vendor has been deleted by another user.", Caption(), ui::Icon::Exclamation);
  return std::nullopt;
}

void frmVendorList::Open(frmVendorEdit::Purpose purpose) {
  if (!TakeChosen()) return;
  std::vector<std::size_t> list;
  for (const ui::ListRow& row : VendorList.Rows()) list.push_back(static_cast<std::size_t>(row.data));
  frmVendorEdit form(shop_, purpose, std::move(list), static_cast<std::size_t>(VendorList.ListIndex()));
  form.ShowModal();
  form.Unload();
  ShowRows();
  VendorList.SetListIndex(VendorList.FindData(static_cast<std::int32_t>(form.Index())));
  VendorList.SetFocus();
}

void frmVendorList::New() {
  frmVendorAdd form(shop_);
  form.ShowModal();
  form.Unload();
  ShowRows();
  VendorList.SetFocus();
  if (form.Added()) VendorList.SetListIndex(VendorList.FindData(static_cast<std::int32_t>(*form.Added())));
}

void frmVendorList::Delete() {
  const std::optional<std::size_t> index = TakeChosen();
  if (!index) return;
  Vendors& vendors = shop_.records.vendors;
  const std::string question = "Deleting vendor\r" + vendors.CurrentVendor.Get(vendor::VendorName) + "\rAre you sure?";
  if (shop_.desktop.Ask(question, Caption(), ui::Buttons::YesNo, ui::Icon::Question) != ui::Answer::Yes) return;
  vendors.DeleteVendor(*index);
  const int row = VendorList.ListIndex();
  ShowRows();
  VendorList.SetListIndex(std::min(row, VendorList.ListCount() - 1));
  VendorList.SetFocus();
}

}  // namespace lantos
