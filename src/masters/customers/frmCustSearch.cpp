#include "masters/customers/frmCustSearch.h"

#include "records/Customers.h"
#include "records/Vehicles.h"
#include "ui/WindowPlace.h"

namespace lantos {

frmCustSearch::frmCustSearch(Shop& shop) : Form(shop.desktop, "frmCustSearch", "Customer Search"), shop_(shop) {
  SetSize(9600, 8400);
  SetResizable(true);
  // Whole names, though a key keeps only their beginning: a new customer is given what was typed.
  NameKey.SetMaxLength(customer::Lastname.width + customer::Firstname.width - 1);
  Number.SetMaxLength(10);
  License.SetMaxLength(vehicle::LicenseNumber.width - 1);
  VIN.SetMaxLength(vehicle::VIN.width - 1);
  Phone.SetMaxLength(customer::HomePhone.width - 1);
  Year.SetMaxLength(vehicle::Year.width - 1);
  Make.SetMaxLength(vehicle::Make.width - 1);
  Model.SetMaxLength(vehicle::Model.width - 1);
  NameKey.SetToolTip("Lastname,Firstname");
  lblLicense.SetCaption(shop.environment.fleetVersion ? "Unit #" : "License #");
  CustList.SetSpokenName("Customers found");
  CustList.SetFace(ui::FontFace::FixedPitch);
  WireButtons();
}

void frmCustSearch::WireButtons() {
  cmdSearch.SetToolTip("Search <F10>");
  cmdClear.SetToolTip("Clear <F2>");
  cmdSelect.SetToolTip("Select customer");
  cmdNew.SetToolTip("New <Insert>");
  cmdCancel.SetToolTip("Cancel <Esc>");
  cmdSearch.OnClick = [this] { Search(); };
  cmdClear.OnClick = [this] { Clear(); };
  cmdSelect.OnClick = [this] { Select(); };
  cmdNew.OnClick = [this] { LeaveWith(Request::New); };
  cmdCancel.OnClick = [this] { LeaveWith(Request::None); };
  CustList.OnDoubleClick = [this] { Select(); };
  SetDefaultButton(cmdSearch);
  SetCancelButton(cmdCancel);
}

void frmCustSearch::OnLoad() { ui::RestoreWindow(shop_.environment.settings, *this); }

void frmCustSearch::OnUnload(bool&) { ui::SaveWindow(shop_.environment.settings, *this); }

void frmCustSearch::OnResize() { ui::FitMinimumSize(*this, 0, 0); }

void frmCustSearch::OnQueryClose(bool&) { LeaveWith(Request::None); }

void frmCustSearch::OnKeyDown(ui::KeyPress& key) {
  if (shop_.keys.HandleGlobalKeys(key, *this)) return;
  if (key.Is("Down") && dynamic_cast<ui::TextBox*>(Focus()) != nullptr && CustList.ListCount() > 0) {
    key.Clear();
    return CustList.SetFocus();
  }
  ui::Button* button = nullptr;
  if (key.Is("F10")) button = &cmdSearch;
  if (key.Is("F2")) button = &cmdClear;
  if (key.Is("Insert")) button = &cmdNew;
  if (key.Is("Esc")) button = &cmdCancel;
  if (key.Is("Enter") && CustList.HasFocus()) button = &cmdSelect;
  if (button == nullptr) return;
  key.Clear();
  if (button->IsUsable()) button->OnClick();
}

void frmCustSearch::Search() {
  const CustomerQuery query{NameKey.Text(), Number.Text(), License.Text(), VIN.Text(),
                            Phone.Text(),   Year.Text(),   Make.Text(),    Model.Text()};
  const SearchKey key = KeyOf(query);
  hits_.clear();
  CustList.Clear();
  const ui::Hourglass hourglass(shop_.desktop);
  CustomerSearch search(shop_, [this](std::string_view text) { Msg.SetCaption(std::string(text)); });
  hits_ = search.Find(query);
  ShowHits();
  if (key == SearchKey::None) {
    Msg.SetCaption("Fill in one of the items, then click [Search].");
  } else {
    Msg.SetCaption("Found " + std::to_string(hits_.size()) + " matching " + std::string(LabelOf(key)) + " records.");
  }
  if (CustList.ListCount() > 0) CustList.SetFocus();  // where nobody is chosen yet
}

void frmCustSearch::ShowHits() {
  Customers& customers = shop_.records.customers;
  const int row = CustList.ListIndex();
  CustList.Clear();
  for (const std::size_t index : hits_) {
    if (index >= customers.Count()) continue;
    for (std::string& line : CustomerLines(customers, index)) {
      CustList.AddItem(std::move(line), static_cast<std::int32_t>(index));
    }
  }
  if (row >= 0 && row < CustList.ListCount()) CustList.SetListIndex(row);
}

void frmCustSearch::Clear() {
  for (ui::TextBox* box : {&NameKey, &Number, &License, &VIN, &Phone, &Year, &Make, &Model}) box->SetText("");
  hits_.clear();
  CustList.Clear();
  Msg.SetCaption("");
  NameKey.SetFocus();
}

void frmCustSearch::Select() {
  Customers& customers = shop_.records.customers;
  if (CustList.ListCount() == 0) return shop_.desktop.Tell("No items in list.", Caption(), ui::Icon::Exclamation);
  if (CustList.ListIndex() < 0) {
    return shop_.desktop.Tell("No item currently selected.", Caption(), ui::Icon::Exclamation);
  }
  const std::size_t index = static_cast<std::size_t>(CustList.ItemData(CustList.ListIndex()));
  if (index >= customers.Count()) {
    return shop_.desktop.Tell("ERROR: Could not locate customer tag record!", Caption() + ": Fatal Error",
                              ui::Icon::Critical);
  }
  const std::int32_t number = customers.Tag(index).Get(customertag::Number);
  if (customers.MakeCurrent(number, Customers::From::File)) LeaveWith(Request::Selected);
}

void frmCustSearch::LeaveWith(Request request) {
  request_ = request;
  Hide();
}

}  // namespace lantos
