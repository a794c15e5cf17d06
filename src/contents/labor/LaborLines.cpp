#include "contents/labor/LaborLines.h"

#include <algorithm>

#include "contents/labor/LaborRows.h"
#include "contents/labor/frmLabor.h"
#include "frame/Dates.h"
#include "frame/Text.h"
#include "records/LaborText.h"
#include "records/modSystem.h"

namespace lantos {

namespace {

bool IsNumberRow(const std::string& row) { return !row.empty() && row[0] != ' '; }

}  // namespace

void LaborLines::ClearLaborLine(Cents rate) {
  CurrentLabor = {};
  CurrentLabor.Rate = rate;
}

std::string LaborLines::EstimateDate() const { return FormatDate(bench_.database.estimates.CurrentEstimate.SchedDate); }

void LaborLines::AddLaborLine(std::int32_t& laborNumber) {
  if (laborNumber == kNextNumber) laborNumber = LastLaborNumber + 1;
  LastLaborNumber = std::max(LastLaborNumber, laborNumber);
  for (std::string& line : CurrentLabor.Desc) line = TrimNull(line);
  bench_.Data().AddLabor(bench_.Number(), laborNumber, JoinLaborText(CurrentLabor.Desc), CurrentLabor.Hours,
                         CurrentLabor.Rate, CurrentLabor.Total, CurrentLabor.Mechanic);
  ShowLaborLine(laborNumber);
  bench_.estimate.AddScheduledHours(CurrentLabor.Hours);
  surcharge_.ApplySurcharge();
  bench_.estimate.RefreshTotals();
  bench_.estimate.RefreshDay();
}

// In the order of the numbers, as the next load will show it.
void LaborLines::ShowLaborLine(std::int32_t laborNumber) {
  lines_[laborNumber] = CurrentLabor;
  ui::ListBox& list = bench_.estimate.LaborList();
  int row = 0;
  while (row < list.ListCount() && !(IsNumberRow(list.List(row)) && list.ItemData(row) > laborNumber)) ++row;
  const int numberRow = row;
  for (std::string& text : LaborRows(CurrentLabor)) {
    list.InsertItem(row, std::move(text), row == numberRow ? laborNumber : 0);
    ++row;
  }
  list.SetListIndex(numberRow);
}

void LaborLines::LoadLaborList() {
  lines_.clear();
  LastLaborNumber = 0;
  ui::ListBox& list = bench_.estimate.LaborList();
  Recordset& labor = bench_.Data().LaborForEstimate(bench_.Number());
  for (; !labor.Eof(); labor.MoveNext()) {
    std::int32_t number = labor.Long("LaborNumber");
    LastLaborNumber = std::max(LastLaborNumber, number);
    const WoLaborLine& line = lines_[number] = ReadLaborLine(labor);
    for (std::string& row : LaborRows(line)) {
      list.AddItem(std::move(row), number);
      number = 0;  // only the number row carries it
    }
  }
  labor.Close();
}

int LaborLines::SelectedNumberRow() const {
  const ui::ListBox& list = bench_.estimate.LaborList();
  int row = list.ListIndex();
  while (row > 0 && !IsNumberRow(list.List(row))) --row;
  return row;
}

void LaborLines::RemoveLaborLine(int numberRow) {
  ui::ListBox& list = bench_.estimate.LaborList();
  const std::int32_t number = list.ItemData(numberRow);
  bench_.Data().DeleteLabor(bench_.Number(), number);
  bench_.estimate.AddScheduledHours(-lines_[number].Hours);
  lines_.erase(number);
  do {
    list.RemoveItem(numberRow);
  } while (numberRow < list.ListCount() && !IsNumberRow(list.List(numberRow)));
  bench_.estimate.RefreshDay();
}

bool LaborLines::EditLaborLine() {
  frmLabor form(bench_, CurrentLabor);
  form.LoadForm();
  if (!form.HasEmployees()) return false;
  form.ShowModal();
  return form.ok;
}

void LaborLines::Add() {
  ClearLaborLine(bench_.System().Get(sysrec::shop_rate));
  CurrentLabor.Date = EstimateDate();
  if (!EditLaborLine()) return;
  std::int32_t number = kNextNumber;
  AddLaborLine(number);
}

void LaborLines::Change() {
  const int row = SelectedNumberRow();
  if (row < 0) {
    bench_.shop.desktop.Tell("Must select a labor item in order to change it.", "Change Labor");
    return;
  }
  std::int32_t number = bench_.estimate.LaborList().ItemData(row);
  const WoLaborLine stored = lines_.at(number);
  // What the list shows of it, and no more: followup fields aren't kept, and empty lines have no row.
  ClearLaborLine(stored.Rate);
  CurrentLabor.Date = EstimateDate();
  CurrentLabor.Mechanic = stored.Mechanic;
  CurrentLabor.Hours = stored.Hours;
  CurrentLabor.Total = stored.Total;
  std::copy_if(stored.Desc.begin(), stored.Desc.end(), CurrentLabor.Desc.begin(),
               [](const std::string& line) { return !TrimView(line).empty(); });
  if (!EditLaborLine()) return;
  // Between the two the line is in memory alone: it is lost when it can't be added.
  RemoveLaborLine(row);
  AddLaborLine(number);
}

void LaborLines::Remove() {
  const int row = SelectedNumberRow();
  ui::Desktop& desktop = bench_.shop.desktop;
  if (row < 0) {
    desktop.Tell("Must select a labor item in order to remove it.", "Remove Labor");
    return;
  }
  const ui::ListBox& list = bench_.estimate.LaborList();
  const bool hasText = row + 1 < list.ListCount() && !IsNumberRow(list.List(row + 1));
  const std::string text = hasText ? Trim(list.List(row + 1)) : std::string();
  if (desktop.Ask("Remove\r    " + text + "\rfrom this estimate?", "Remove Labor", ui::Buttons::YesNo) ==
      ui::Answer::No) {
    return;
  }
  RemoveLaborLine(row);
  surcharge_.ApplySurcharge();
  bench_.estimate.RefreshTotals();
}

}  // namespace lantos
