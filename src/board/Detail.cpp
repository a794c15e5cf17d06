#include "board/frmMain.h"
#include "contents/EstimateTotals.h"
#include "contents/notes/EstimateChecklist.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "records/Customers.h"
#include "records/modSystem.h"

// The detail view: one estimate in full, and its totals, which are stored nowhere.
namespace lantos {

namespace {

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
  contents_.labor.ClearLaborList();
  contents_.parts.ClearPartList();
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
  const std::vector<Charge> sublets = ReadCharges(Data().SubletsForEstimate(displayedEstimate_));
  Mark(cmdEstimateSublets, !sublets.empty());
  const std::vector<Charge> waste = ReadCharges(Data().WasteForEstimate(displayedEstimate_));
  Mark(cmdEstimateWaste, !waste.empty());
  const EstimateTotals totals = TotalsOf(
      {contents_.lines.labor.Lines(), contents_.lines.parts, sublets, waste}, TaxRatesOf(shop_.records.system.SysRec),
      estimateCustomer_.View(customer::tax_id_number).empty() ? TaxStanding::Taxed : TaxStanding::Exempt);
  txtTotalHours.SetText(FormatHundredths(totals.hours));
  txtTotalLabor.SetText(FormatHundredths(totals.labor));
  txtTotalParts.SetText(FormatHundredths(totals.parts));
  txtTotalSublet.SetText(FormatHundredths(totals.sublets));
  txtTotalWaste.SetText(FormatHundredths(totals.waste));
  txtTotalTax.SetText(FormatHundredths(totals.tax));
  txtTotalCost.SetText(FormatHundredths(totals.cost));
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
  Data().SetComments(comments, std::to_string(displayedEstimate_));
  savedComment_ = comments;
  if (Current().EstimateNumber == displayedEstimate_) Current().Comments = comments;
}

// Before the view is filled anew: a menu doesn't take the focus from the comments, and the database may have refused
// them when they were left.
void frmMain::KeepUnsavedComments() {
  if (Trim(txtComments.Text()) != savedComment_) SaveComments();
}

}  // namespace lantos
