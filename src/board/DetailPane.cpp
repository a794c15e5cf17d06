#include "board/DetailPane.h"

#include "contents/RowTotals.h"
#include "contents/notes/EstimateChecklist.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "records/Customers.h"
#include "records/modSystem.h"

namespace lantos {

namespace {

constexpr double kWholeRate = 1000000;  // 100 %
constexpr std::size_t kCommentsWidth = 255;

CustomerRecord UnknownCustomer() {
  CustomerRecord record;
  record.Put(customer::Lastname, "CUSTOMER");
  record.Put(customer::Firstname, "UNKNOWN");
  record.Put(customer::VLink, kNoLink);
  return record;
}

// A rate below 1 means that nothing is taxed.
double TaxOn(double sum, Millionths rate) { return rate < 1 ? 0 : rate * sum / kWholeRate; }

struct ExtraSum {
  double price = 0;  // dollars
  double tax = 0;
  bool any = false;
};

// Sublets or waste. The tax doesn't ask whether the customer is exempt.
ExtraSum SumExtras(Recordset& rows, Millionths rate) {
  ExtraSum sum;
  for (; !rows.Eof(); rows.MoveNext()) {
    const double price = rows.Long("Price") / 100.0;
    sum.any = true;
    sum.price += price;
    if (rows.Text("Taxable") == "Yes") sum.tax += TaxOn(price, rate);
  }
  rows.Close();
  return sum;
}

}  // namespace

DetailPane::DetailPane(ui::Form& form, Shop& shop, EstimateDatabase& database, frmInvList& inventoryList,
                       Workorders& workorders, BoardState& state, CommandPane& commands)
    : form_(form),
      contents(Workbench{shop, database, inventoryList, workorders.Current, *this}, workorders),
      shop_(shop),
      database_(database),
      state_(state),
      commands_(commands) {
  ArrangeBoxes();
  txtComments.SetMaxLength(kCommentsWidth);
  txtComments.SetToolTip("Saved when you leave the field");
  txtComments.OnLostFocus = [this] { SaveComments(); };
  listParts.SetMultiSelect(true);
  listLabor.SetFace(ui::FontFace::FixedPitch);
  listParts.SetFace(ui::FontFace::FixedPitch);
  for (ui::TextBox* total : Totals()) {
    total->SetLocked(true);
    total->SetTabStop(false);
  }
  frameDetailView.SetVisible(false);
}

void DetailPane::ArrangeBoxes() {
  frameDetailView.Holds(frameCustomer, frameVehicle, frameComments, frameLabor, frameParts, frameTotals);
  frameCustomer.Holds(lblCustName, lblCustSpouse, lblCustAddr, lblCustCSZ, lblCustPhoneH, lblCustPhoneW, lblCustPhoneO,
                      cmdCustomerEdit);
  frameVehicle.Holds(lblVehYMM, lblVehVIN, lblVehLic, lblVehDate, lblVehMileage, lblEngTrans, cmdVehicleEdit);
  frameComments.Holds(txtComments);
  frameLabor.Holds(listLabor, cmdLaborAdd, cmdLaborAddCanned, cmdLaborChange, cmdLaborRemove, cmdLaborFollowup);
  frameParts.Holds(listParts, cmdPartAdd, cmdPartAddNonStock, cmdPartChange, cmdPartRemove);
  frameTotals.Holds(txtTotalHours, txtTotalLabor, txtTotalParts, txtTotalSublet, txtTotalWaste, txtTotalTax,
                    txtTotalCost);
}

std::array<ui::TextBox*, 7> DetailPane::Totals() {
  return {&txtTotalHours, &txtTotalLabor, &txtTotalParts, &txtTotalSublet, &txtTotalWaste, &txtTotalTax, &txtTotalCost};
}

void DetailPane::ClearDetail() {
  displayedEstimate_ = 0;
  frameDetailView.SetCaption("");
  for (ui::Label* label :
       {&lblCustName, &lblCustSpouse, &lblCustAddr, &lblCustCSZ, &lblCustPhoneH, &lblCustPhoneW, &lblCustPhoneO,
        &lblVehYMM, &lblVehVIN, &lblVehLic, &lblVehDate, &lblVehMileage, &lblEngTrans}) {
    label->SetCaption("");
  }
  for (ui::TextBox* total : Totals()) total->SetText("");
  txtComments.SetText("");
  savedComment_.clear();
  listLabor.Clear();
  listParts.Clear();
}

void DetailPane::ShowEstimateDetail() {
  KeepUnsavedComments();
  ClearDetail();
  if (Current().EstimateNumber == 0) return;
  displayedEstimate_ = Current().EstimateNumber;
  // Before anything that can fail: leaving the field writes what stands in it.
  txtComments.SetText(Current().Comments);
  savedComment_ = Trim(Current().Comments);
  RefreshDetailCaption("");
  const bool known = shop_.records.customers.LookupCustomer(Current().CustomerNumber, kNoLink);
  ShowCustomer(known ? shop_.records.customers.CurrentCustomer : UnknownCustomer());
  ShowVehicle();
  contents.parts.LoadPartList();
  contents.labor.LoadLaborList();
  if (listLabor.ListCount() > 0) listLabor.SetListIndex(0);
  RefreshTotals();
  LoadEstimateChecklist(contents.bench);
  ShowNotesMark();
}

void DetailPane::BeginNew(std::int32_t number) {
  displayedEstimate_ = number;
  RefreshDetailCaption("");
}

void DetailPane::RefreshDetailCaption(const std::string& word) {
  Estimate& estimate = Current();
  const std::string status = word.empty() ? database_.estimates.StatusText(estimate.Status, estimate.SchedDate) : word;
  frameDetailView.SetCaption("Est. # " + FormatZeros(estimate.EstimateNumber, 6) + "  " +
                             FormatDate(estimate.SchedDate) + "  " + status);
}

void DetailPane::ShowCustomer(const CustomerRecord& record) {
  estimateCustomer_ = record;
  const auto text = [&](TextField field) { return record.Get(field); };
  lblCustName.SetCaption(text(customer::Firstname) + " " + text(customer::Lastname));
  const std::string spouseLast = text(customer::SpouseLast);
  lblCustSpouse.SetCaption(spouseLast.empty() ? text(customer::Spouse) : spouseLast + " " + text(customer::Spouse));
  lblCustAddr.SetCaption(text(customer::Address));
  lblCustCSZ.SetCaption(text(customer::City) + ", " + text(customer::State) + " " + text(customer::Zip));
  lblCustPhoneH.SetCaption(text(customer::HomePhone));
  const std::string extension = text(customer::WorkExt);
  lblCustPhoneW.SetCaption(text(customer::WorkPhone) + (extension.empty() ? "" : " x " + extension));
  lblCustPhoneO.SetCaption(text(customer::OtherPhone));
}

// From the estimate's own snapshot, not from the vehicle file.
void DetailPane::ShowVehicle() {
  const Estimate& estimate = Current();
  lblVehYMM.SetCaption(estimate.VehYear + " " + estimate.VehMake + " " + estimate.VehModel);
  lblVehVIN.SetCaption(estimate.VehVIN);
  lblVehLic.SetCaption(estimate.VehLic);
  lblVehDate.SetCaption(estimate.VehDate);
  lblVehMileage.SetCaption(estimate.VehMileage);
  const std::string engine = Trim(estimate.VehEng);
  lblEngTrans.SetCaption(engine + (engine.empty() ? "" : " ") + Trim(estimate.VehTrans));
}

void DetailPane::RefreshTotals() {
  const SystemRecord& system = shop_.records.system.SysRec;
  const bool exempt = !estimateCustomer_.Get(customer::tax_id_number).empty();
  double hours = 0;
  double labor = 0;
  double parts = 0;
  for (const ui::ListRow& row : listLabor.Rows()) {
    if (row.text.empty() || row.text[0] == ' ') continue;  // a line of the description
    const double total = TotalOfRow(row.text);
    if (total > 0) labor += total;  // hours already applied take off hours, not money
    hours += HoursOfLaborRow(row.text);
  }
  for (const ui::ListRow& row : listParts.Rows()) parts += TotalOfRow(row.text);
  double tax = 0;
  if (!exempt) {
    tax += TaxOn(labor, system.Get(sysrec::tax_rate_labor));
    tax += TaxOn(parts, system.Get(sysrec::tax_rate_parts));
  }
  const ExtraSum sublets =
      SumExtras(Data().SubletsForEstimate(displayedEstimate_), system.Get(sysrec::tax_rate_sublet));
  CommandPane::Mark(commands_.cmdEstimateSublets, sublets.any);
  const ExtraSum waste = SumExtras(Data().WasteForEstimate(displayedEstimate_), system.Get(sysrec::tax_rate_waste));
  CommandPane::Mark(commands_.cmdEstimateWaste, waste.any);
  tax += sublets.tax;
  tax += waste.tax;
  txtTotalHours.SetText(FormatFixed(hours, 2));
  txtTotalLabor.SetText(FormatFixed(labor, 2));
  txtTotalParts.SetText(FormatFixed(parts, 2));
  txtTotalSublet.SetText(FormatFixed(sublets.price, 2));
  txtTotalWaste.SetText(FormatFixed(waste.price, 2));
  txtTotalTax.SetText(FormatFixed(tax, 2));
  txtTotalCost.SetText(FormatFixed(labor + parts + sublets.price + waste.price + tax, 2));
}

void DetailPane::ShowNotesMark() {
  Recordset& notes = Data().NotesForEstimate(displayedEstimate_);
  CommandPane::Mark(commands_.cmdEstimateNotes, !notes.Eof());
  notes.Close();
}

void DetailPane::SaveComments() {
  if (displayedEstimate_ == 0) return;
  const std::string comments = Trim(txtComments.Text());
  Data().SetComments(comments, std::to_string(displayedEstimate_));
  savedComment_ = comments;
  if (Current().EstimateNumber == displayedEstimate_) Current().Comments = comments;
}

void DetailPane::KeepUnsavedComments() {
  if (Trim(txtComments.Text()) != savedComment_) SaveComments();
}

void DetailPane::StoreComments(const std::string& comments) {
  txtComments.SetText(comments);
  Data().SetComments(comments, std::to_string(displayedEstimate_));
  savedComment_ = Trim(comments);
  Current().Comments = comments;
}

void DetailPane::AddScheduledHours(Hundredths hours) {
  if (modEstimates::CountsTowardDay(Current().Status)) state_.capacity.ScheduledHours[state_.selectedDay] += hours;
}

}  // namespace lantos
