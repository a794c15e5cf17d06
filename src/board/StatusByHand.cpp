#include "board/StatusByHand.h"

#include "board/BoardMenus.h"
#include "board/Continue.h"
#include "board/frmEstStatus.h"
#include "board/frmReschedule.h"
#include "contents/Changing.h"

namespace lantos {

void StatusByHand::PopupOf(std::int32_t estimate) {
  if (estimate != Current().EstimateNumber) {
    board_.Choose(estimate);
    parts_.detail.ShowEstimateDetail();
  }
  const std::int16_t oldStatus = Current().Status;
  menus_.PopupStatus(oldStatus);
  board_.RefreshStatusText();
  board_.LoadWeekIfCountChanged(oldStatus);
}

void StatusByHand::PopupOnDetail() {
  if (Current().EstimateNumber == 0) return;
  const std::int16_t oldStatus = Current().Status;
  menus_.PopupStatus(oldStatus);
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
  frmEstStatus form(parts_.shop, parts_.database, Continuing());
  form.ShowModal();
  form.Unload();
  board_.FollowStatus(oldStatus);
}

ContinueEstimate StatusByHand::Continuing() {
  return [this] {
    parts_.detail.KeepUnsavedComments();
    DaySerial next = kNotContinued;
    ChangeOrGoBack([&] { next = ContinueCurrentEstimate(parts_.shop, parts_.database); }, [this] { ShowCopies(); });
    return next;
  };
}

void StatusByHand::Reschedule() {
  const ui::Hourglass hourglass(parts_.shop.desktop);
  parts_.detail.KeepUnsavedComments();
  const std::int16_t oldStatus = Current().Status;
  frmReschedule form(parts_.shop, parts_.database, parts_.state.lastSelectedDate);
  form.ShowModal();
  const bool moved = form.ok;
  const bool copied = form.HasCopied();
  const DaySerial date = form.newDate;
  form.Unload();
  if (!moved) {
    // The database may have refused what comes behind the copy, or behind the status.
    if (Current().Status != oldStatus) board_.FollowStatus(oldStatus);
    if (copied) ShowCopies();
    return;
  }
  board_.LoadWeek(date);
  parts_.commands.cmdDayView.OnClick();
  board_.GoOnWithTheDay();
}

// A copy that was made before a step failed stays; the person must see it before trying again.
void StatusByHand::ShowCopies() {
  board_.LoadWeek(parts_.state.dayOnShow);
  parts_.detail.ShowEstimateDetail();
}

}  // namespace lantos
