#include "board/DetailPane.h"

#include <utility>

#include "board/KeptChoice.h"
#include "contents/EstimateTotals.h"
#include "estimatedb/CommentMarks.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "records/Customers.h"
#include "records/modSystem.h"

namespace lantos {

namespace {

constexpr std::size_t kCommentsWidth = 255;

CustomerRecord UnknownCustomer() {
  CustomerRecord record;
  record.Put(customer::Lastname, "CUSTOMER");
  record.Put(customer::Firstname, "UNKNOWN");
  record.Put(customer::VLink, kNoLink);
  return record;
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
  frameComments.Holds(txtComments, lblChanged);
  lblChanged.SetVisible(false);
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
  isTheirsTold_ = false;
  TellChange("");
  contents.labor.ClearLaborList();
  contents.parts.ClearPartList();
}

void DetailPane::ShowEstimateDetail() {
  KeepUnsavedComments();
  ClearDetail();
  if (Current().EstimateNumber == 0) return;
  displayedEstimate_ = Current().EstimateNumber;
  // Before anything that can fail: leaving the field writes what stands in it.
  ShowComments(Current().Comments);
  RefreshDetailCaption("");
  ShowCustomerOnFile();
  ShowVehicle();
  ShowLines(Strangers::Told);
}

void DetailPane::ShowLines(Strangers strangers) {
  Data().ReadLinesAhead(displayedEstimate_, [this, strangers] {
    contents.parts.LoadPartList();
    contents.labor.LoadLaborList();
    if (listLabor.ListCount() > 0) listLabor.SetListIndex(0);
    RefreshTotals();
    LoadEstimateChecklist(contents.bench, strangers);
    ShowNotesMark();
  });
}

void DetailPane::ShowAnew(const std::string& whoChanged) {
  if (displayedEstimate_ == 0 || Current().EstimateNumber != displayedEstimate_) return;
  const bool isTyped = Trim(txtComments.Text()) != savedComment_;
  const Customers::Quietly quietly(shop_.records.customers);
  KeptChoice labor(listLabor);
  KeptChoice parts(listParts);
  database_.estimates.LoadEstimate(displayedEstimate_);
  // Before anything that can fail: the person is asked about theirs where the comments are left.
  const std::string theirs = Trim(Current().Comments);
  isTheirsTold_ = isTyped && (isTheirsTold_ || theirs != savedComment_);
  if (!isTyped) ShowComments(Current().Comments);
  RefreshDetailCaption("");
  ShowCustomerOnFile();
  ShowVehicle();
  ShowLines(Strangers::Unsaid);
  labor.Restore();
  parts.Restore();
  TellChange(isTheirsTold_ ? (whoChanged.empty() ? "Changed elsewhere" : whoChanged) + ": \"" + theirs + "\""
                           : whoChanged);
}

void DetailPane::TellChange(const std::string& text) {
  lblChanged.SetCaption(text);
  lblChanged.SetVisible(!text.empty());
}

void DetailPane::ShowCustomerOnFile() {
  const CustomerRecord* known = shop_.records.customers.LookupCustomer(Current().CustomerNumber);
  ShowCustomer(known != nullptr ? *known : UnknownCustomer());
}

void DetailPane::ReadCustomerAgain() {
  if (displayedEstimate_ == 0) return;
  ShowCustomerOnFile();
  RefreshTotals();
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
  Data().ReadChargesAhead(displayedEstimate_, [this] { ShowTotals(); });
}

void DetailPane::ShowTotals() {
  const std::vector<Charge> sublets = ReadCharges(Data().SubletsForEstimate(displayedEstimate_));
  CommandPane::Mark(commands_.cmdEstimateSublets, !sublets.empty());
  const std::vector<Charge> waste = ReadCharges(Data().WasteForEstimate(displayedEstimate_));
  CommandPane::Mark(commands_.cmdEstimateWaste, !waste.empty());
  const EstimateTotals totals = TotalsOf(
      {contents.lines.labor.Lines(), contents.lines.parts, sublets, waste}, TaxRatesOf(shop_.records.system.SysRec),
      estimateCustomer_.View(customer::tax_id_number).empty() ? TaxStanding::Taxed : TaxStanding::Exempt);
  txtTotalHours.SetText(FormatHundredths(totals.hours));
  txtTotalLabor.SetText(FormatHundredths(totals.labor));
  txtTotalParts.SetText(FormatHundredths(totals.parts));
  txtTotalSublet.SetText(FormatHundredths(totals.sublets));
  txtTotalWaste.SetText(FormatHundredths(totals.waste));
  txtTotalTax.SetText(FormatHundredths(totals.tax));
  txtTotalCost.SetText(FormatHundredths(totals.cost));
}

void DetailPane::ShowNotesMark() {
  Recordset& notes = Data().NotesForEstimate(displayedEstimate_);
  CommandPane::Mark(commands_.cmdEstimateNotes, !notes.Eof());
  notes.Close();
}

void DetailPane::SaveComments() {
  if (displayedEstimate_ == 0) return;
  const std::string comments = Trim(txtComments.Text());
  const std::string stored = CommentsOnFile();
  const bool isAsked = std::exchange(isTheirsTold_, false) || WouldWipeMark(stored, comments);
  if (isAsked && !WantsOurs(stored, comments)) {
    // The current estimate stays as it was shown, so that a conversion or a move still tells of the other copy's.
    txtComments.SetText(stored);
    savedComment_ = stored;
    return;
  }
  Data().SetComments(comments, displayedEstimate_);
  savedComment_ = comments;
  if (Current().EstimateNumber == displayedEstimate_) Current().Comments = comments;
}

// Empty for an estimate that is gone.
std::string DetailPane::CommentsOnFile() {
  Recordset& row = Data().EstimateByNumber(displayedEstimate_);
  const std::string comments = row.Eof() ? std::string() : Trim(row.Text("Comments"));
  row.Close();
  return comments;
}

// Of plain comments the later writer's stay, on purpose. Both the field and the current estimate must have had the
// mark: either may have been read afresh without the other.
bool DetailPane::WouldWipeMark(const std::string& stored, const std::string& ours) {
  const std::string_view mark = MarkIn(stored);
  if (mark.empty() || (ours.starts_with(mark) && ours != savedComment_)) return false;
  const bool isCurrent = Current().EstimateNumber == displayedEstimate_;
  return !savedComment_.starts_with(mark) || (isCurrent && !Trim(Current().Comments).starts_with(mark));
}

bool DetailPane::WantsOurs(const std::string& stored, const std::string& ours) {
  if (ours == savedComment_ || ours == stored) return false;
  const std::string text = "Estimate # " + FormatZeros(displayedEstimate_, 6) +
                           " was changed by another user since it was shown here.\rIts comments:\r\r\"" + stored +
                           "\" is stored, \"" + ours +
                           "\" is yours\r\rDo you want to store yours?\rNo keeps what is stored.";
  return shop_.desktop.Ask(text, "Comments", ui::Buttons::YesNo, ui::Icon::Question) == ui::Answer::Yes;
}

void DetailPane::KeepUnsavedComments() {
  if (Trim(txtComments.Text()) != savedComment_) SaveComments();
}

void DetailPane::StoreComments(const std::string& comments) {
  Data().SetComments(comments, displayedEstimate_);
  ShowComments(comments);
  Current().Comments = comments;
}

void DetailPane::ShowComments(const std::string& comments) {
  txtComments.SetText(comments);
  savedComment_ = Trim(comments);
}

// The hours of an estimate that the status filter keeps out aren't in the day's.
void DetailPane::AddScheduledHours(Hundredths hours) {
  const auto panel = state_.PanelOf(Current().SchedDate);
  if (!panel || !modEstimates::CountsTowardDay(Current().Status)) return;
  if (IsListed(*panel, Current().EstimateNumber)) state_.capacity.ScheduledHours[*panel] += hours;
}

}  // namespace lantos
