#include "contents/labor/frmTechHours.h"

#include <algorithm>

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr std::string_view kScheduledOnlySetting = "frmTechHoursShowSched";
constexpr std::size_t kHoursWidth = 7;
constexpr std::int32_t kUnassigned = 0;

}  // namespace

frmTechHours::frmTechHours(Shop& shop, de& database, Purpose purpose, DaySerial day)
    : SizedForm(shop.desktop, shop.keys, shop.environment.settings, "frmTechHours", "Technician Hours"),
      shop_(shop),
      database_(database) {
  SetDesignedSize(7200, 6600);
  DTPicker1.SetValue(day);
  List1.SetFace(ui::FontFace::FixedPitch);
  List1.SetSpokenName("Technicians");
  DTPicker1.OnChange = [this] { FillList(); };
  cmdPrev.OnClick = [this] { Move(-1); };
  cmdNext.OnClick = [this] { Move(1); };
  Check1.OnClick = [this] { FillList(); };
  List1.OnDoubleClick = [this] {
    if (List1.ListIndex() >= 0) Accept();
  };
  UseButtons(cmdSelect, cmdCancel);
  const bool picks = purpose == Purpose::Pick;
  cmdCancel.SetCaption(picks ? "Cancel" : "Close");
  cmdPrev.SetToolTip("A day back <Alt+Left>");
  cmdNext.SetToolTip("A day on <Alt+Right>");
  Check1.SetToolTip("Only who has hours on the day, whether still employed or not <Alt+O>");
  cmdSelect.SetToolTip(picks ? "Take the technician for the labor <F10>" : "Select <F10>");
  cmdCancel.SetToolTip(cmdCancel.Caption() + " <Esc>");
}

void frmTechHours::OnLoad() {
  SizedForm::OnLoad();
  const ui::Hourglass hourglass(shop_.desktop);
  hours_.emplace(database_);
  ReadEmployees();
  // Fires the click, which fills the list, if it is to be ticked.
  Check1.SetValue(shop_.environment.settings.GetBoolean(kScheduledOnlySetting, false));
  FillList();
}

// Without the names the hours are still worth seeing.
void frmTechHours::ReadEmployees() {
  try {
    employees_ = shop_.records.employees.LoadEmployeeList();
  } catch (const FileError& error) {
    shop_.environment.log.Write(error.what());
    shop_.desktop.Tell("Could not access employee master file!", Caption());
  }
}

void frmTechHours::OnUnload(bool& refuse) {
  SizedForm::OnUnload(refuse);
  if (!hours_) return;  // it never came up
  shop_.environment.settings.Save(kScheduledOnlySetting, Check1.Value() ? "True" : "False");
}

void frmTechHours::OnKeyDown(ui::KeyPress& key) {
  if (key.IsAlt("O")) {
    key.Clear();
    return Check1.SetValue(!Check1.Value());
  }
  const DaySerial days = key.IsAlt("Left") ? -1 : key.IsAlt("Right") ? 1 : 0;
  if (days == 0) return SizedForm::OnKeyDown(key);
  key.Clear();
  Move(days);
}

void frmTechHours::Move(DaySerial days) { DTPicker1.SetValue(DTPicker1.Value() + days); }

void frmTechHours::FillList() {
  if (!hours_) return;
  const DaySerial day = DTPicker1.Value();
  const std::optional<std::int32_t> selected =
      List1.ListIndex() < 0 ? std::nullopt : std::optional(List1.ItemData(List1.ListIndex()));
  lblDate.SetCaption(FormatDateWithWeekday(day));
  List1.Clear();
  AddLine(kUnassigned, hours_->Of(kUnassigned, day), "Unassigned");
  if (Check1.Value()) {
    for (const TechnicianHours::Sum& sum : hours_->On(day)) {
      if (sum.mechanic != kUnassigned) AddLine(sum.mechanic, sum.hours, NameOf(sum.mechanic));
    }
  } else {
    for (const EmployeeName& employee : employees_) {
      if (employee.IsActive()) AddLine(employee.Number, hours_->Of(employee.Number, day), employee.Name);
    }
  }
  if (selected) List1.SetListIndex(List1.FindData(*selected));
  ui::SetListExtent(List1);
}

void frmTechHours::AddLine(std::int32_t number, std::int64_t hours, std::string_view name) {
  List1.AddItem(
      FormatZeros(number, 6) + " " + RightJustify(FormatHundredths(hours), kHoursWidth) + " " + std::string(name),
      number);
}

std::string frmTechHours::NameOf(std::int32_t number) const {
  const auto found = std::find_if(employees_.begin(), employees_.end(),
                                  [&](const EmployeeName& employee) { return employee.Number == number; });
  return found == employees_.end() ? "(not listed)" : found->Name;
}

void frmTechHours::Accept() {
  const int row = List1.ListIndex();
  if (row < 0) {
    shop_.desktop.Tell("Must select an employee in the list.", "Select Technician");
    return;
  }
  picked_ = List1.ItemData(row);
  Hide();
}

}  // namespace lantos
