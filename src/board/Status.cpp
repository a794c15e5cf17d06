#include "board/Continue.h"
#include "board/DayLines.h"
#include "board/StatusChange.h"
#include "board/frmEstStatus.h"
#include "board/frmMain.h"
#include "board/frmReschedule.h"
#include "frame/Text.h"

// The status of the current estimate, changed by hand, and its word in the lists.
namespace lantos {

// May make a No-show of a past Scheduled estimate, in the record in memory alone.
std::string frmMain::StatusText(Estimate& estimate) {
  return database_.estimates.StatusText(estimate.Status, estimate.SchedDate);
}

void frmMain::ShowStatusPopup() {
  const StatusOptions& options = shop_.environment.statusOptions;
  const std::int16_t current = Current().Status;
  for (std::size_t i = 0; i < kStatusCount; ++i) {
    const auto entry = static_cast<std::int16_t>(i);
    popupStatus_[i]->SetVisible(PopupOffers(options, current, entry));
    popupStatus_[i]->SetChecked(entry == current);
  }
  shop_.desktop.PopupMenu(*this, *statusPopup_);
}

bool frmMain::LoadWeekIfCountChanged(std::int16_t oldStatus) {
  if (modEstimates::CountsTowardDay(oldStatus) == modEstimates::CountsTowardDay(Current().Status)) return false;
  LoadWeek(Current().SchedDate);
  return true;
}

// Chosen, though the lists may have been filled anew since and the detail view be empty.
bool frmMain::HasCurrentEstimate(const std::string& title, const std::string& text) {
  if (Current().EstimateNumber > 0) return true;
  shop_.desktop.Tell(text, title, ui::Icon::Information);
  return false;
}

void frmMain::ChangeStatusClick() {
  CheckDayRollover();
  if (!HasCurrentEstimate("Change Status")) return;
  ui::Hourglass hourglass(shop_.desktop);
  const std::int16_t oldStatus = Current().Status;
  frmEstStatus form(shop_, database_, Continuing());
  form.ShowModal();
  form.Unload();
  RefreshStatusText(StatusText(Current()));
  if (LoadWeekIfCountChanged(oldStatus)) ShowEstimateDetail();
}

ContinueEstimate frmMain::Continuing() {
  return [this] {
    KeepUnsavedComments();
    return ContinueCurrentEstimate(shop_, database_);
  };
}

void frmMain::RescheduleClick() {
  CheckDayRollover();
  if (!HasCurrentEstimate("Reschedule")) return;
  ui::Hourglass hourglass(shop_.desktop);
  KeepUnsavedComments();
  frmReschedule form(shop_, database_, lastSelectedDate_);
  form.ShowModal();
  const bool moved = form.ok;
  const DaySerial date = form.newDate;
  form.Unload();
  if (!moved) return;
  MonthView1.SetValue(date);
  LoadWeek(date);
  DayViewClick();
}

void frmMain::RefreshStatusText(const std::string& word) {
  RefreshDetailCaption(word);
  RefreshDayListStatus(word);
  RefreshWeekListStatus(word);
}

void frmMain::RefreshDayListStatus(const std::string& word) {
  const int row = List2.ListIndex();
  if (row < 0 || List2.List(row).starts_with(' ')) return;
  int statusRow = row + 1;
  if (statusRow < List2.ListCount() && List2.List(statusRow).starts_with(" -")) ++statusRow;
  if (statusRow >= List2.ListCount()) return;
  List2.RemoveItem(statusRow);
  // The new line is left without the estimate's number; a click on it still moves up to the main line.
  List2.InsertItem(statusRow, StatusLine(Current(), word));
}

void frmMain::RefreshWeekListStatus(const std::string& word) {
  ui::ListBox& list = List1[selectedDayIndex_];
  int row = list.ListIndex();
  if (row < 0) return;
  if (row > 0 && list.List(row).starts_with(' ')) --row;
  if (list.List(row).starts_with(' ')) return;
  list.SetList(row, Left(list.List(row), 7) + word);
}

}  // namespace lantos
