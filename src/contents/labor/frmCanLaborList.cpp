#include "contents/labor/frmCanLaborList.h"

#include <utility>

#include "contents/labor/frmCanLabor.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "printing/ListReport.h"
#include "printing/ShowReport.h"
#include "records/LaborText.h"
#include "records/modSystem.h"

namespace lantos {

namespace {

constexpr ui::Twips kWidth = 9600;
constexpr ui::Twips kHeight = 6300;

// All lines in one row, without the code.
std::string Description(const CannedLabor& entry) {
  std::string text = Trim(entry.FirstLine());
  for (std::size_t i = 1; i < entry.Desc.size(); ++i) {
    if (!entry.Desc[i].empty()) text += (text.empty() ? "" : " ") + entry.Desc[i];
  }
  return text;
}

void Press(ui::Button& button) {
  if (button.IsUsable()) button.OnClick();
}

}  // namespace

frmCanLaborList::frmCanLaborList(Workbench& bench)
    : SizedForm(bench.shop.desktop, bench.shop.keys, bench.shop.environment.settings, "frmCanLaborList",
                "Canned Labor List"),
      bench_(bench),
      file_(bench.shop.environment, kCannedLaborFile) {
  SetDesignedSize(kWidth, kHeight);
  DataGrid1.SetSpokenName("Canned labor");
  UpdList.SetSpokenName("Canned labor to update");
  DataGrid1.SetColumns({{"ArrayIndex", "ArrayIndex", true, true},
                        {"Code", "Code"},
                        {"Description", "Description"},
                        {"Hours", "Hours", true},
                        {"Rate", "Rate", true},
                        {"Total", "Total", true}});
  UpdList.SetCheckBoxes(true);
  UpdList.SetFace(ui::FontFace::FixedPitch);
  UpdList.SetVisible(false);
  txtCode.OnChange = txtDesc.OnChange = [this] { Search(); };
  DataGrid1.OnDoubleClick = [this] { Press(cmdSelect); };
  UseButtons(cmdSelect, cmdClose);
  cmdAdd.OnClick = [this] { Add(); };
  cmdEdit.OnClick = [this] { Edit(); };
  cmdDelete.OnClick = [this] { Delete(); };
  cmdUpdateRate.OnClick = [this] { UpdateRate(); };
  cmdPrint.OnClick = [this] { Print(); };
  cmdSelect.SetToolTip("Add to workorder <F10>");
  cmdAdd.SetToolTip("Add canned labor item <Insert>");
  cmdEdit.SetToolTip("Edit canned labor item <F4>");
  cmdDelete.SetToolTip("Delete canned labor item <Delete>");
  cmdUpdateRate.SetToolTip("Set the rate of several items to the shop rate");
  cmdPrint.SetToolTip("Print canned labor items");
  cmdClose.SetToolTip("Close <Esc>");
}

void frmCanLaborList::OnLoad() {
  SizedForm::OnLoad();
  entries_ = CannedLaborIn(file_.Read());
  FillGrid();
}

void frmCanLaborList::OnKeyDown(ui::KeyPress& key) {
  if (key.Is("F10")) {
    key.Clear();
    return Press(cmdSelect);
  }
  const bool inText = txtCode.HasFocus() || txtDesc.HasFocus();
  if (inText && GoToHits(key)) return key.Clear();
  ui::Button* button = key.Is("Insert")              ? &cmdAdd
                       : key.Is("F4")                ? &cmdEdit
                       : key.Is("Delete") && !inText ? &cmdDelete
                                                     : nullptr;
  if (button == nullptr) return SizedForm::OnKeyDown(key);
  key.Clear();
  Press(*button);
}

// From what is looked for to what was found, of which the next Enter takes one.
bool frmCanLaborList::GoToHits(const ui::KeyPress& key) {
  const bool goes = (key.Is("Enter") || key.Is("Down")) && DataGrid1.IsShown() && DataGrid1.RowCount() > 0;
  if (!goes) return false;
  if (DataGrid1.Row() < 0) DataGrid1.SetRow(0);
  DataGrid1.SetFocus();
  return true;
}

void frmCanLaborList::Search() {
  FillGrid();
  if (DataGrid1.RowCount() > 0 && DataGrid1.Row() < 0) DataGrid1.SetRow(0);
}

bool frmCanLaborList::IsListed(const CannedLabor& entry) const {
  if (entry.IsDeleted()) return false;
  const std::string code = entry.Code();
  const std::string description = Description(entry);
  if (txtCode.Text().empty() && txtDesc.Text().empty()) return !code.empty() || !description.empty();
  return ContainsIgnoringCase(code, txtCode.Text()) && ContainsIgnoringCase(description, txtDesc.Text());
}

void frmCanLaborList::FillGrid() {
  const int current = DataGrid1.Row();
  const int kept = current < 0 ? -1 : DataGrid1.RowAt(current).data;
  std::vector<ui::GridRow> rows;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    const CannedLabor& entry = entries_[i];
    if (!IsListed(entry)) continue;
    rows.push_back({{std::to_string(i), entry.Code(), Description(entry), FormatHundredths(entry.Hours),
                     FormatHundredths(entry.Rate), FormatHundredths(entry.Total)},
                    static_cast<std::int32_t>(i)});
  }
  DataGrid1.SetRows(std::move(rows));
  if (kept >= 0) MakeCurrent(static_cast<std::size_t>(kept));
}

void frmCanLaborList::MakeCurrent(std::size_t entry) {
  for (int row = 0; row < DataGrid1.RowCount(); ++row) {
    if (DataGrid1.RowAt(row).data == static_cast<std::int32_t>(entry)) return DataGrid1.SetRow(row);
  }
}

void frmCanLaborList::FillRateList() {
  UpdList.Clear();
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    const CannedLabor& entry = entries_[i];
    if (entry.IsDeleted()) continue;
    UpdList.AddItem(LeftJustify(entry.Code(), kLaborCodeWidth) + " " + RightJustify(FormatHundredths(entry.Rate), 8) +
                        "  " + Description(entry),
                    static_cast<std::int32_t>(i));
  }
}

int frmCanLaborList::SelectedEntry() {
  const int row = DataGrid1.Row();
  if (row >= 0) return DataGrid1.RowAt(row).data;
  bench_.shop.desktop.Tell("Must select entry in grid.", Caption());
  return -1;
}

void frmCanLaborList::Add() {
  frmCanLabor editor(bench_, frmCanLabor::Mode::Add, {});
  editor.ShowModal();
  if (!editor.Saved()) return;
  entries_.push_back(editor.Entry);
  changed_ = true;
  FillGrid();
  MakeCurrent(entries_.size() - 1);
  if (showing_ == Showing::RateList) FillRateList();
}

void frmCanLaborList::Edit() {
  const int index = SelectedEntry();
  if (index < 0) return;
  CannedLabor& entry = entries_[static_cast<std::size_t>(index)];
  frmCanLabor editor(bench_, frmCanLabor::Mode::Edit, entry);
  editor.ShowModal();
  if (!editor.Saved()) return;
  entry = editor.Entry;
  changed_ = true;
  FillGrid();
}

void frmCanLaborList::Delete() {
  const int index = SelectedEntry();
  if (index < 0) return;
  CannedLabor& entry = entries_[static_cast<std::size_t>(index)];
  if (bench_.shop.desktop.Ask("Delete " + entry.Desc[0] + "?", Caption(), ui::Buttons::YesNo) != ui::Answer::Yes) {
    return;
  }
  entry.Desc[0] = kDeletedEntry;
  changed_ = true;
  FillGrid();
}

// All entries, whatever the grid is filtered by.
void frmCanLaborList::Print() {
  Environment& environment = bench_.shop.environment;
  if (bench_.shop.desktop.Ask("Print Canned Labor List?", Caption(), ui::Buttons::YesNo) != ui::Answer::Yes) return;
  ReportLines lines(ReportLines::Amounts::Three);
  for (const CannedLabor& entry : entries_) {
    if (entry.IsDeleted()) continue;
    lines.Add(LeftJustify(entry.Code(), kLaborCodeWidth) + " " + entry.FirstLine(), FormatHundredths(entry.Hours),
              FormatHundredths(entry.Rate), FormatHundredths(entry.Total));
    for (std::size_t i = 1; i < entry.Desc.size(); ++i) {
      if (!entry.Desc[i].empty()) lines.Add(std::string(kLaborCodeWidth + 1, ' ') + entry.Desc[i]);
    }
  }
  constexpr AmountHeadings kHeadings{"Hours", "Rate", "Price"};
  environment.printOptions = LoadPrintOptions(environment.Profile());
  ShowReport(bench_.shop.desktop, environment,
             ListReport("Canned Labor List", environment.Today(), bench_.System(), lines, &kHeadings),
             PaperWay::Printer);
}

void frmCanLaborList::UpdateRate() {
  if (showing_ == Showing::Grid) {
    FillRateList();
    return SwitchTo(Showing::RateList);
  }
  UpdateTicked();
  FillGrid();
  SwitchTo(Showing::Grid);
}

// All totals before the first entry is changed: one that doesn't fit leaves them all as they are.
void frmCanLaborList::UpdateTicked() {
  const Cents rate = bench_.System().Get(sysrec::shop_rate);
  std::vector<std::pair<CannedLabor*, Cents>> totals;
  for (const ui::ListRow& row : UpdList.Rows()) {
    if (!row.checked) continue;
    CannedLabor& entry = entries_[static_cast<std::size_t>(row.data)];
    totals.emplace_back(&entry, LongOrOverflow(DivideHalfEven(static_cast<std::int64_t>(entry.Hours) * rate, 100)));
  }
  for (const auto& [entry, total] : totals) {
    entry->Rate = rate;
    entry->Total = total;
    changed_ = true;
  }
}

// The grid to choose a job from, or the list to tick those whose rate is to follow the shop's.
void frmCanLaborList::SwitchTo(Showing showing) {
  showing_ = showing;
  const bool isGrid = showing == Showing::Grid;
  DataGrid1.SetVisible(isGrid);
  UpdList.SetVisible(!isGrid);
  for (ui::Button* button : {&cmdDelete, &cmdEdit, &cmdSelect, &cmdPrint}) button->SetEnabled(isGrid);
  cmdUpdateRate.SetCaption(isGrid ? "Update Rate" : "Update Now");
}

void frmCanLaborList::Accept() {
  const int index = SelectedEntry();
  if (index < 0) return;
  const CannedLabor& entry = entries_[static_cast<std::size_t>(index)];
  CurrentLabor = {};
  CurrentLabor.Date = FormatDate(bench_.shop.environment.Today());
  CurrentLabor.Hours = entry.Hours;
  CurrentLabor.Rate = entry.Rate;
  CurrentLabor.Total = entry.Total;
  CurrentLabor.Desc = entry.Desc;
  CurrentLabor.Desc[0] = entry.FirstLine();
  PickedCode = entry.Code();
  if (!SaveIfChanged()) return;
  picked_ = true;
  Hide();
}

void frmCanLaborList::Cancel() {
  if (SaveIfChanged()) Hide();
}

bool frmCanLaborList::SaveIfChanged() {
  if (!changed_) return true;
  const bool isStored = file_.Store(bench_.shop.desktop, Caption(), LinesOf(entries_));
  changed_ = false;
  if (isStored) return true;
  entries_ = CannedLaborIn(file_.Lines());
  FillGrid();
  FillRateList();
  return false;
}

}  // namespace lantos
