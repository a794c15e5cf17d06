#include "masters/customers/frmCustEdit.h"

#include "frame/Numbers.h"
#include "records/PriceLevels.h"
#include "records/RecordMerge.h"
#include "screens/EmployeeList.h"

namespace lantos {

namespace {

// What the person can change here.
constexpr MergedField kFields[] = {
    {"Date", customer::Date, MergedField::Reads::Day},
    {"Last name", customer::Lastname},
    {"First name", customer::Firstname},
    {"Spouse", customer::Spouse},
    {"Spouse's last name", customer::SpouseLast},
    {"Address", customer::Address},
    {"City", customer::City},
    {"State", customer::State},
    {"Zip", customer::Zip},
    {"Home phone", customer::HomePhone},
    {"Work phone", customer::WorkPhone},
    {"Extension", customer::WorkExt},
    {"Other phone", customer::OtherPhone},
    {"Tax ID", customer::tax_id_number},
    {"Pricing level", customer::pricing_level, kPriceLevelNames},
    {"Salesperson", customer::salesperson},
    {"Comment", customer::Comment},
};

}  // namespace

frmCustEdit::frmCustEdit(Shop& shop) : EditForm(shop, "frmCustEdit", "Edit Customer") {
  SetSize(9900, 7500);
  BindFields();
  WireButtons();
}

void frmCustEdit::BindFields() {
  ShowOnly(CustomerNumber);
  BindDate(Date);
  Bind(Lastname, customer::Lastname);
  Bind(Firstname, customer::Firstname);
  Bind(Spouse, customer::Spouse);
  Bind(SpouseLastname, customer::SpouseLast);
  Bind(Address, customer::Address);
  Bind(City, customer::City);
  Bind(State, customer::State);
  Bind(Zip, customer::Zip);
  Bind(Home, customer::HomePhone);
  Bind(Work, customer::WorkPhone);
  Bind(Ext, customer::WorkExt);
  Bind(Other, customer::OtherPhone);
  Bind(TaxID, customer::tax_id_number);
  Bind(Comment, customer::Comment);
  for (const std::string_view name : kPriceLevelNames) PricingLevel.AddItem(std::string(name));
  PricingLevel.OnClick = [this] {
    if (PricingLevel.ListIndex() != shownLevel_) MarkChanged();
  };
  EmpList.OnClick = [this] {
    if (EmployeeNameOf(EmpList.Text()) != shownSalesperson_) MarkChanged();
  };
  EmpList.SetFace(ui::FontFace::FixedPitch);
  Check1.OnClick = [this] { FillEmployees(); };
}

void frmCustEdit::WireButtons() {
  SetEditButtons(cmdSave, cmdReset, cmdCancel);
  cmdPrev.SetToolTip("Previous customer <PgUp>");
  cmdNext.SetToolTip("Next customer <PgDn>");
  cmdVehicles.SetToolTip("Vehicles <Alt+V>");
  cmdPrev.OnClick = [this] { Step(Direction::Back); };
  cmdNext.OnClick = [this] { Step(Direction::Forward); };
  cmdVehicles.OnClick = [this] { OpenVehicles(); };
}

void frmCustEdit::Begin(Customer customer) {
  isNew_ = customer == Customer::New;
  MarkSaved(false);
  SetCaption(isNew_ ? "New Customer" : "Edit Customer");
  // A customer without a tag has no neighbours, and no record that a vehicle could be chained to.
  for (ui::Button* button : {&cmdPrev, &cmdNext, &cmdVehicles}) button->SetEnabled(!isNew_);
  if (IsLoaded()) Reset();
}

void frmCustEdit::OnLoad() {
  FillEmployees();
  Reset();
}

void frmCustEdit::OtherKey(ui::KeyPress& key) {
  ui::Button* button = nullptr;
  if (key.Is("PgUp")) button = &cmdPrev;
  if (key.Is("PgDn")) button = &cmdNext;
  if (key.IsAlt("V")) button = &cmdVehicles;
  if (button == nullptr) return;
  key.Clear();
  Press(*button);
}

void frmCustEdit::ShowFields() {
  shown_ = shop_.records.customers.CurrentCustomer;
  const CustomerRecord& record = shown_;
  CustomerNumber.SetText(FormatZeros(record.Get(customer::Number), 6));
  ShowDate(Date, record.Get(customer::Date));
  ShowTexts(record);
  const int level = record.Get(customer::pricing_level);
  shownLevel_ = level >= 0 && level < PricingLevel.ListCount() ? level : -1;
  PricingLevel.SetListIndex(shownLevel_);
  shownSalesperson_ = Trim(Left(record.View(customer::salesperson), 31));
  ShowSalesperson(shownSalesperson_);
}

// Keeps the person who was chosen, listed or not.
void frmCustEdit::FillEmployees() {
  const Quiet quiet(*this);
  const std::string chosen = EmployeeNameOf(EmpList.Text());
  FillEmployeeList(shop_, EmpList, {.activeOnly = Check1.Value()});
  ShowSalesperson(chosen);
}

// Somebody who isn't listed (any more) gets a line without a number, so that saving doesn't lose the name.
void frmCustEdit::ShowSalesperson(const std::string& name) {
  int row = 0;
  while (row < EmpList.ListCount() && EmployeeNameOf(EmpList.List(row)) != name) ++row;
  EmpList.SetListIndex(row < EmpList.ListCount() ? row : EmpList.AddItem(LeftJustify(name, 31), -1));
}

void frmCustEdit::StoreFields(CustomerRecord& record) const {
  StoreTexts(record);
  record.Put(customer::Date, DateIn(Date, record.Get(customer::Date)));
  const int level = PricingLevel.ListIndex();
  if (level != shownLevel_ && level >= 0) record.Put(customer::pricing_level, static_cast<std::int16_t>(level));
  const std::string salesperson = EmployeeNameOf(EmpList.Text());
  if (salesperson != shownSalesperson_) record.Put(customer::salesperson, salesperson);
}

// A record that couldn't be written leaves the working record as it is on file, and the screen as it was typed.
bool frmCustEdit::Write() {
  if (!CheckDate(Date)) {
    Date.SetFocus();
    return false;
  }
  Customers& customers = shop_.records.customers;
  const CustomerRecord kept = customers.CurrentCustomer;
  const auto takeBack = [&] {
    const std::int32_t number = customers.CurrentCustomer.Get(customer::Number);
    customers.CurrentCustomer = kept;
    customers.CurrentCustomer.Put(customer::Number, number);
  };
  bool written = false;
  try {
    written = WriteFields();
  } catch (...) {
    takeBack();
    throw;
  }
  if (!written) {
    takeBack();
    return false;
  }
  MarkSaved(true);
  Reset();
  return true;
}

bool frmCustEdit::WriteFields() {
  Customers& customers = shop_.records.customers;
  if (isNew_) {
    StoreFields(customers.CurrentCustomer);
    return customers.WriteCustomer();
  }
  CustomerRecord ours = shown_;
  StoreFields(ours);
  RecordMerge merge(kFields, shown_, ours);
  bool written = false;
  const auto save = [&] { written = customers.UpdateCustomer([&](CustomerRecord& record) { merge.Into(record); }); };
  return merge.Run(shop_.desktop, Caption(), save) && written;
}

void frmCustEdit::Save() {
  if (!Write()) return;
  if (!isNew_) return Hide();
  isNew_ = false;
  added_ = shop_.records.customers.CurrentCustomer.Get(customer::Number);
  for (ui::Button* button : {&cmdPrev, &cmdNext, &cmdVehicles}) button->SetEnabled(true);
  cmdVehicles.SetFocus();
}

void frmCustEdit::TellOfLostTag() {
  shop_.desktop.Tell("ERROR: Could not locate customer tag record!", Caption() + ": Fatal Error", ui::Icon::Critical);
}

void frmCustEdit::Step(Direction direction) {
  Customers& customers = shop_.records.customers;
  if (Changed() &&
      shop_.desktop.Ask("Save changes first?", Caption(), ui::Buttons::YesNo, ui::Icon::Question) == ui::Answer::Yes) {
    if (!Write()) return;
  }
  const std::size_t index = customers.FindCustomerTag(customers.CurrentCustomer);
  if (index == customers.Count()) return TellOfLostTag();
  const bool forward = direction == Direction::Forward;
  if (forward ? index + 1 == customers.Count() : index == 0) return shop_.desktop.Beep();
  customers.MakeTagCurrent(forward ? index + 1 : index - 1);
  if (!customers.ReadCustomer(Customers::From::File)) return customers.MakeTagCurrent(index);
  SetCaption("Edit Customer");
  Reset();
  EnterAnew();
}

}  // namespace lantos
