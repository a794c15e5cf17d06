#include "board/frmMain.h"
#include "contents/RowTotals.h"
#include "contents/notes/EstimateChecklist.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "records/Customers.h"
#include "records/modSystem.h"

// The detail view: one estimate in full, and its totals, which are stored nowhere.
namespace lantos {

namespace {

constexpr double kWholeRate = 1000000;  // 100 %
constexpr int kPlainPoints = 8;
constexpr int kMarkedPoints = 10;

// A button whose screen has something to show stands out.
void Mark(ui::Button& button, bool marked) {
  button.SetBold(marked);
  button.SetFontSize(marked ? kMarkedPoints : kPlainPoints);
}

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

void frmMain::ClearDetail() {
  displayedEstimate_ = 0;
  frameDetailView.SetCaption("");
  for (ui::Label* label :
       {&lblCustName, &lblCustSpouse, &lblCustAddr, &lblCustCSZ, &lblCustPhoneH, &lblCustPhoneW, &lblCustPhoneO,
        &lblVehYMM, &lblVehVIN, &lblVehLic, &lblVehDate, &lblVehMileage, &lblEngTrans}) {
    label->SetCaption("");
  }
  for (ui::TextBox* total :
       {&txtTotalHours, &txtTotalLabor, &txtTotalParts, &txtTotalSublet, &txtTotalWaste, &txtTotalTax, &txtTotalCost}) {
    total->SetText("");
  }
  txtComments.SetText("");
  savedComment_.clear();
  listLabor.Clear();
  listParts.Clear();
}

void frmMain::ShowEstimateDetail() {
  KeepUnsavedComments();
  ClearDetail();
  if (Current().EstimateNumber == 0) return;
  displayedEstimate_ = Current().EstimateNumber;
  // Before anything that can fail: leaving the field writes what stands in it.
  txtComments.SetText(Current().Comments);
  savedComment_ = Trim(Current().Comments);
  RefreshDetailCaption(StatusText(Current()));
  const bool known = shop_.records.customers.LookupCustomer(Current().CustomerNumber, kNoLink);
  estimateCustomer_ = known ? shop_.records.customers.CurrentCustomer : UnknownCustomer();
  ShowCustomer();
  ShowVehicle();
  contents_.parts.LoadPartList();
  contents_.labor.LoadLaborList();
  if (listLabor.ListCount() > 0) listLabor.SetListIndex(0);
  RefreshTotals();
  LoadEstimateChecklist(contents_.bench);
  ShowNotesMark();
}

void frmMain::RefreshDetailCaption(const std::string& text) {
  frameDetailView.SetCaption("Est. # " + FormatZeros(Current().EstimateNumber, 6) + "  " +
                             FormatDate(Current().SchedDate) + "  " + (text.empty() ? StatusText(Current()) : text));
}

void frmMain::ShowCustomer() {
  const CustomerRecord& record = estimateCustomer_;
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
void frmMain::ShowVehicle() {
  const Estimate& estimate = Current();
  lblVehYMM.SetCaption(estimate.VehYear + " " + estimate.VehMake + " " + estimate.VehModel);
  lblVehVIN.SetCaption(estimate.VehVIN);
  lblVehLic.SetCaption(estimate.VehLic);
  lblVehDate.SetCaption(estimate.VehDate);
  lblVehMileage.SetCaption(estimate.VehMileage);
  const std::string engine = Trim(estimate.VehEng);
  lblEngTrans.SetCaption(engine + (engine.empty() ? "" : " ") + Trim(estimate.VehTrans));
}

void frmMain::RefreshTotals() {
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
  Mark(cmdEstimateSublets, sublets.any);
  const ExtraSum waste = SumExtras(Data().WasteForEstimate(displayedEstimate_), system.Get(sysrec::tax_rate_waste));
  Mark(cmdEstimateWaste, waste.any);
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

void frmMain::ShowNotesMark() {
  Recordset& notes = Data().NotesForEstimate(displayedEstimate_);
  Mark(cmdEstimateNotes, !notes.Eof());
  notes.Close();
}

// Written every time the field is left, changed or not.
void frmMain::SaveComments() {
  if (displayedEstimate_ == 0) return;
  const std::string comments = Trim(txtComments.Text());
  Data().SetComments(comments, displayedEstimate_);
  savedComment_ = comments;
  if (Current().EstimateNumber == displayedEstimate_) Current().Comments = comments;
}

// Before the view is filled anew: a menu doesn't take the focus from the comments, and the database may have refused
// them when they were left.
void frmMain::KeepUnsavedComments() {
  if (Trim(txtComments.Text()) != savedComment_) SaveComments();
}

}  // namespace lantos
