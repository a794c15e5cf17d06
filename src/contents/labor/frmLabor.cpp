#include "contents/labor/frmLabor.h"

#include "contents/AmountFields.h"
#include "contents/SpellCheck.h"
#include "contents/labor/RepairCodes.h"
#include "contents/labor/frmTechHours.h"
#include "frame/Dates.h"
#include "frame/Installation.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "records/modEmployees.h"
#include "screens/EmployeeList.h"
#include "workorders/LaborCost.h"

namespace lantos {

namespace {

constexpr std::string_view kNameWithHours = "Sched";  // of a program, in any case
constexpr ui::Twips kWidth = 9600;
constexpr ui::Twips kHeight = 7200;
constexpr std::string_view kAllowNoneSetting = "frmLaborEmpNone";

std::int32_t InHundredths(const ui::TextBox& box) { return WholeOrOverflow(Val(box.Text()) * 100); }

}  // namespace

frmLabor::frmLabor(Workbench& bench, const WoLaborLine& line)
    : OkCancelForm(bench.shop.desktop, bench.shop.keys, "frmLabor", "Estimate Labor"),
      CurrentLabor(line),
      bench_(bench),
      shop_(bench.shop),
      atLoad_(line) {
  SetSize(kWidth, kHeight);
  UseButtons(OKButton, CancelButton);
  frameFollowup.Holds(lblMiles, Miles, lblDays, Days, lblFollowupDate, FollowupDate);
  txtDesc.SetMultiLine(true);
  txtDesc.SetFace(ui::FontFace::FixedPitch);
  WireEmployees();
  WireAmounts();
  followupNumbers_.Add(Miles, "Miles");
  followupNumbers_.Add(Days, "Days", NumberFields::Read::Whole);
  lovRepairCode.OnClick = [this] { RepairCodePicked(); };
  cmdSpellCheck.OnClick = [this] { SpellCheckText(shop_, txtDesc); };
  OKButton.SetToolTip("OK <F10>");
  CancelButton.SetToolTip("Cancel <Esc>");
  cmdSpellCheck.SetToolTip("Check the spelling of the description");
  AskBeforeLosing(CancelButton, EmpList, Hours, ShopRate, TotalLabor, txtDesc, Miles, Days, FollowupDate,
                  lovRepairCode);
  AskInsteadOfDropping({.buttons = ui::Buttons::YesNoCancel});
}

void frmLabor::WireEmployees() {
  Check1.OnClick = [this] { ActiveOnlyClicked(); };
  Check2.OnClick = [this] { AllowNoneClicked(); };
  cmdTechHours.SetVisible(EqualsIgnoringCase(ProgramName(), kNameWithHours));
  cmdTechHours.OnClick = [this] { PickByHours(); };
  EmpList.SetToolTip("Technician: <F7> picks by the hours of that day");
  cmdTechHours.SetToolTip("Pick a technician by the hours of that day <F7>");
}

void frmLabor::WireAmounts() {
  for (ui::TextBox* box : {&Hours, &ShopRate}) {
    box->SetUpperCase(true);
    box->OnChange = [this] {
      if (!showing_) TotalLabor.SetText(FormatFixed(Val(Hours.Text()) * Val(ShopRate.Text()), 2));
    };
  }
  TotalLabor.SetUpperCase(true);
  amounts_.Add(Hours, "Hours");
  amounts_.Add(ShopRate, "Rate");
  amounts_.Add(TotalLabor, "Total");
  for (ui::TextBox* box : {&Hours, &ShopRate}) amounts_.TakeOnLeaving(*box);
  amounts_.TakeOnSaving(TotalLabor);
  EnterMovesThrough({&Hours, &ShopRate, &TotalLabor, &txtDesc});
}

void frmLabor::OnLoad() {
  showing_ = true;
  Check2.SetValue(CurrentLabor.Mechanic == 0 || shop_.environment.settings.GetBoolean(kAllowNoneSetting, false));
  hasEmployees_ = FillEmployees();
  LoadRepairCodes();
  showing_ = false;
  ShowLine();
  followup_.DisableWhenUsed();
}

void frmLabor::ShowLine() {
  showing_ = true;
  CurrentLabor = atLoad_;
  SelectMechanic(CurrentLabor.Mechanic);
  Hours.SetText(FormatHundredths(CurrentLabor.Hours));
  ShopRate.SetText(FormatHundredths(CurrentLabor.Rate));
  TotalLabor.SetText(FormatHundredths(CurrentLabor.Total));
  txtDesc.SetText(TextOfLabor(CurrentLabor.Desc));
  followup_.Show();
  showing_ = false;
  MarkUnchanged();
}

bool frmLabor::FillEmployees() { return FillEmployeeList(shop_, EmpList, {Check1.Value(), Check2.Value()}); }

void frmLabor::SelectMechanic(std::int32_t mechanic) {
  EmpList.SetListIndex(mechanic == 0 ? EmpList.FindText(kNoEmployee) : RowOfEmployee(shop_, EmpList, mechanic));
}

std::int32_t frmLabor::SelectedMechanic() const { return EmployeeNumberOf(EmpList.Text()); }

void frmLabor::ActiveOnlyClicked() {
  if (showing_ || switching_) return;
  if (Changed() &&
      shop_.desktop.Ask("Discard changes?", Caption(), ui::Buttons::YesNo, ui::Icon::Question) != ui::Answer::Yes) {
    switching_ = true;
    Check1.SetValue(!Check1.Value());
    switching_ = false;
    return;
  }
  showing_ = true;
  FillEmployees();
  showing_ = false;
  ShowLine();
}

// The list keeps its place on the same person.
void frmLabor::AllowNoneClicked() {
  if (showing_) return;
  showing_ = true;
  const int row = EmpList.ListIndex();
  if (Check2.Value()) {
    EmpList.InsertItem(0, std::string(kNoEmployee));
    EmpList.SetListIndex(row + 1);
  } else {
    EmpList.RemoveItem(0);
    EmpList.SetListIndex(row - 1 < 0 ? -1 : row - 1);
  }
  showing_ = false;
}

// Of the day of the estimate, which the line bears.
void frmLabor::PickByHours() {
  const DaySerial day = ParseDate(CurrentLabor.Date).value_or(shop_.environment.Today());
  frmTechHours form(shop_, bench_.Data(), frmTechHours::Purpose::Pick, day);
  form.ShowModal();
  form.Unload();
  if (!form.Picked()) return;
  // "Unassigned" is the row that the list may not have.
  if (*form.Picked() == 0) Check2.SetValue(true);
  SelectMechanic(*form.Picked());
}

void frmLabor::OnKeyDown(ui::KeyPress& key) {
  if (!key.Is("F7")) return OkCancelForm::OnKeyDown(key);
  key.Clear();
  PickByHours();
}

void frmLabor::OnUnload(bool& /*refuse*/) {
  shop_.environment.settings.Save(kAllowNoneSetting, Check2.Value() ? "True" : "False");
}

void frmLabor::LoadRepairCodes() {
  const bool used = shop_.environment.shopOptions.RepairCodeOption && shop_.environment.hasKorvelDatabase;
  lblRepairCode.SetVisible(used);
  lovRepairCode.SetVisible(used);
  if (used) FillRepairCodes(bench_.database.korvelData, lovRepairCode);
}

void frmLabor::RepairCodePicked() {
  if (!showing_) EditNewRepairCode(shop_, bench_.database.korvelData, lovRepairCode);
}

// False when there is none. A word that is longer than a line ends the whole event.
bool frmLabor::TakeDescription() {
  const FlowedLabor flowed = FlowDescription(txtDesc.Text());
  if (!flowed.remainder.empty()) {
    shop_.desktop.Tell(
        "Labor description exceeded maximum allowed.\rThe following text was truncated:\r" + flowed.remainder,
        "Labor description trunctated.");
  }
  description_ = flowed.lines;
  if (!TrimView(description_[0]).empty()) return true;
  shop_.desktop.Tell("The labor description is required.", Caption());
  txtDesc.SetFocus();
  return false;
}

void frmLabor::StoreLine() {
  CurrentLabor.Date =
      shop_.environment.shopOptions.LaborDateOption ? FormatDate(shop_.environment.Today()) : std::string();
  CurrentLabor.Mechanic = SelectedMechanic();
  CurrentLabor.Hours = InHundredths(Hours);
  CurrentLabor.Rate = InHundredths(ShopRate);
  CurrentLabor.Commission = GetMechanicCommission(shop_.records.employees, CurrentLabor.Mechanic);
  CurrentLabor.Total = InHundredths(TotalLabor);
  for (std::size_t i = 0; i < CurrentLabor.Desc.size(); ++i) CurrentLabor.Desc[i] = ToUpper(description_[i]);
  followup_.Store(CurrentLabor);
  CurrentLabor.RepairCode =
      lovRepairCode.ListCount() > 1 ? Left(lovRepairCode.Text(), kRepairCodeWidth) : std::string();
}

void frmLabor::Accept() {
  if (!TakeDescription()) return;
  if (!followup_.Check()) {
    shop_.desktop.Tell("Followup information is invalid.", Caption());
    return;
  }
  if (!amounts_.AreNumbers()) return;
  StoreLine();
  SaveAndHide();
}

}  // namespace lantos
