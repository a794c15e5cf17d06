#include "masters/vendors/frmVendorEdit.h"

#include "records/RecordMerge.h"

namespace lantos {

namespace {

constexpr MergedField kFields[] = {
    {"Vendor name", vendor::VendorName},
    {"Contact", vendor::Contact},
    {"Address", vendor::Address},
    {"City", vendor::City},
    {"State", vendor::State},
    {"Zip", vendor::Zip},
    {"Phone 1", vendor::Phone1},
    {"Extension", vendor::Phone1Ext},
    {"Phone 2", vendor::Phone2},
    {"Phone 3", vendor::Phone3},
    {"Tax ID", vendor::TaxIdNumber},
};

}  // namespace

frmVendorEdit::frmVendorEdit(Shop& shop, Purpose purpose, std::vector<std::size_t> list, std::size_t place)
    : EditForm(shop, "frmVendorEdit", purpose == Purpose::Edit ? "Edit Vendor" : "Vendor View"),
      vendors_(shop.records.vendors),
      list_(std::move(list)),
      place_(place) {
  SetSize(8400, 5400);
  BindFields();
  WireButtons();
  if (purpose == Purpose::View) OnlyShow();
}

void frmVendorEdit::BindFields() {
  Bind(VendorName, vendor::VendorName);
  Bind(Contact, vendor::Contact);
  Bind(Address, vendor::Address);
  Bind(City, vendor::City);
  Bind(State, vendor::State);
  Bind(Zip, vendor::Zip);
  Bind(Phone1, vendor::Phone1);
  Bind(Phone1Ext, vendor::Phone1Ext);
  Bind(Phone2, vendor::Phone2);
  Bind(Phone3, vendor::Phone3);
  Bind(TaxIdNumber, vendor::TaxIdNumber);
}

void frmVendorEdit::WireButtons() {
  SetEditButtons(cmdSave, cmdReset, cmdCancel);
  cmdPrev.SetToolTip("Previous vendor <PgUp>");
  cmdNext.SetToolTip("Next vendor <PgDn>");
  cmdPrev.OnClick = [this] { Step(Direction::Back); };
  cmdNext.OnClick = [this] { Step(Direction::Forward); };
}

// The fields stay in the order of the Tab key, so that each can be read and copied from.
void frmVendorEdit::OnlyShow() {
  for (ui::TextBox* box :
       {&VendorName, &Contact, &Address, &City, &State, &Zip, &Phone1, &Phone1Ext, &Phone2, &Phone3, &TaxIdNumber}) {
    box->SetLocked(true);
  }
  cmdSave.SetVisible(false);
  cmdReset.SetVisible(false);
  cmdCancel.SetToolTip("Close <Esc>");
  SetDefaultButton(cmdCancel);
}

void frmVendorEdit::ShowFields() {
  shown_ = vendors_.CurrentVendor;
  ShowTexts(shown_);
}

void frmVendorEdit::OtherKey(ui::KeyPress& key) {
  ui::Button* button = key.Is("PgUp") ? &cmdPrev : key.Is("PgDn") ? &cmdNext : nullptr;
  if (button == nullptr) return;
  key.Clear();
  Press(*button);
}

// Without a name no list would show the vendor again.
void frmVendorEdit::Save() {
  if (TrimView(VendorName.Text()).empty()) {
    shop_.desktop.Tell("A vendor must have a name.", Caption(), ui::Icon::Exclamation);
    return VendorName.SetFocus();
  }
  VendorRecord ours = shown_;
  StoreTexts(ours);
  RecordMerge merge(kFields, shown_, ours);
  bool isThere = false;
  const auto save = [&] {
    isThere = vendors_.UpdateVendor(Index(), [&](VendorRecord& record) { merge.Into(record); });
  };
  if (!merge.Run(shop_.desktop, Caption(), save)) return;
  if (!isThere) {
    return shop_.desktop.Tell("This vendor has been deleted by another user.", Caption(), ui::Icon::Exclamation);
  }
  MarkUnchanged();
  MarkSaved(true);
  Hide();
}

std::size_t frmVendorEdit::EndOfListAt(Direction direction) const {
  return direction == Direction::Forward ? list_.size() - 1 : 0;
}

void frmVendorEdit::Step(Direction direction) {
  if (!MayGoOn()) return;
  if (!GoTo(direction)) {
    vendors_.MakeCurrent(Index());
    shop_.desktop.Beep();
  }
  Reset();
  EnterAnew();
}

// Passes over vendors that another copy has deleted since the list was made.
bool frmVendorEdit::GoTo(Direction direction) {
  for (std::size_t place = place_; place != EndOfListAt(direction);) {
    place = direction == Direction::Forward ? place + 1 : place - 1;
    vendors_.MakeCurrent(list_[place]);
    if (vendors_.CurrentVendor.View(vendor::VendorName).empty()) continue;
    place_ = place;
    return true;
  }
  return false;
}

}  // namespace lantos
