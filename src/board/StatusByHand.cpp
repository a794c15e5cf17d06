#include "board/StatusByHand.h"

#include <utility>

#include "board/BoardMenus.h"
#include "board/Continue.h"
#include "board/frmEstStatus.h"
#include "board/frmReschedule.h"
#include "contents/conversion/ReadAfresh.h"

namespace lantos {

void StatusByHand::PopupOf(std::int32_t estimate) {
  if (estimate != Current().EstimateNumber) {
    board_.Choose(estimate);
    parts_.detail.ShowEstimateDetail();
  }
  const std::int16_t oldStatus = Current().Status;
  copy_ = Board::Copy::None;
  menus_.PopupStatus(oldStatus);
  if (copy_ == Board::Copy::Made) return board_.FollowStatus(oldStatus, copy_);
  board_.RefreshStatusText();
  board_.LoadWeekIfCountChanged(oldStatus);
}

void StatusByHand::PopupOnDetail() {
  if (Current().EstimateNumber == 0) return;
  const std::int16_t oldStatus = Current().Status;
  copy_ = Board::Copy::None;
  menus_.PopupStatus(oldStatus);
  if (copy_ == Board::Copy::Made) return board_.FollowStatus(oldStatus, copy_);
  if (Current().Status == oldStatus) return parts_.detail.RefreshDetailCaption("");
  board_.RefreshStatusText();
  if (board_.LoadWeekIfCountChanged(oldStatus) == Board::WeekLoad::Done) parts_.detail.ShowEstimateDetail();
}

void StatusByHand::ChangeTo(std::int16_t status) {
  ChangeStatusByHand(parts_.shop, parts_.database, Continuing(), status);
}

void StatusByHand::Change() {
  const ui::Hourglass hourglass(parts_.shop.desktop);
  const std::int16_t oldStatus = Current().Status;
  copy_ = Board::Copy::None;
  frmEstStatus form(parts_.shop, parts_.database, Continuing());
  form.ShowModal();
  form.Unload();
  board_.FollowStatus(oldStatus, copy_);
}

// Where it fails on its way the copy may stand already.
ContinueEstimate StatusByHand::Continuing() {
  return [this] {
    if (IsGivenUp("Continue")) return kNotContinued;
    const Board::Copy before = std::exchange(copy_, Board::Copy::Made);
    const Continued continued = ContinueCurrentEstimate(parts_.shop, parts_.database);
    if (!continued.hasCopied) copy_ = before;
    return continued.next;
  };
}

// For what another copy has made of the estimate. What was typed here is saved once it is known whose comments count.
bool StatusByHand::IsGivenUp(const std::string& title) {
  const Meanwhile meanwhile = ReadAfresh(parts_.shop, parts_.database, parts_.detail.contents.bench.estimate, title);
  parts_.detail.KeepUnsavedComments();
  return meanwhile == Meanwhile::Stops;
}

void StatusByHand::Reschedule() {
  const ui::Hourglass hourglass(parts_.shop.desktop);
  const std::int16_t oldStatus = Current().Status;
  if (IsGivenUp("Reschedule")) return board_.FollowStatus(oldStatus, Board::Copy::None);
  frmReschedule form(parts_.shop, parts_.database, parts_.state.lastSelectedDate);
  form.ShowModal();
  const bool moved = form.ok;
  const DaySerial date = form.newDate;
  const auto copy = form.HasCopied() ? Board::Copy::Made : Board::Copy::None;
  form.Unload();
  if (!moved) {
    // The database may have refused what comes behind the copy or the status.
    if (copy == Board::Copy::Made || Current().Status != oldStatus) board_.FollowStatus(oldStatus, copy);
    return;
  }
  board_.LoadWeek(date);
  parts_.commands.cmdDayView.OnClick();
  board_.GoOnWithTheDay();
}

}  // namespace lantos
