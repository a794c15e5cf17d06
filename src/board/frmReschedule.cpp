#include "board/frmReschedule.h"

#include "contents/conversion/ReadAfresh.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr std::size_t kCommentsWidth = 255;
constexpr const char* kTitle = "Reschedule";

}  // namespace

frmReschedule::frmReschedule(Shop& shop, EstimateDatabase& database, DaySerial proposed)
    : OkCancelForm(shop.desktop, shop.keys, "frmReschedule", "Reschedule"),
      shop_(shop),
      database_(database),
      copy_(shop, database, kTitle) {
  SetSize(6000, 2400);
  SetCaption("Reschedule - Est. # " + FormatZeros(database.estimates.CurrentEstimate.EstimateNumber, 6));
  const bool wasSet = proposed >= ToSerial({2003, 1, 1});
  DTPicker1.SetValue(wasSet ? proposed : shop.environment.Today());
  cmdOK.SetToolTip("Copy the estimate to that day, and mark this one <F10>");
  cmdCancel.SetToolTip("Leave the estimate where it is <Esc>");
  UseButtons(cmdOK, cmdCancel);
}

void frmReschedule::Accept() {
  if (ReadAfresh(shop_, database_, kTitle) == Meanwhile::Stops) return;
  const DaySerial date = DTPicker1.Value();
  copy_.Make(date, kScheduled, {.rest = [&] { Mark(date); }});
  ok = true;
  newDate = date;
  Hide();
}

// The copy keeps the old comments: it is made before they are changed.
void frmReschedule::Mark(DaySerial date) {
  Estimate& current = database_.estimates.CurrentEstimate;
  Engine& connection = database_.lantosData.Connection();
  connection.Apart([this] { MarkStatus(); });
  const std::string mark = current.Status == kEstimateOnly ? "Scheduled for " : "Rescheduled for ";
  const std::string comments = Trim(Left(mark + FormatDate(date) + ". " + Trim(current.Comments), kCommentsWidth));
  connection.Apart([&] { database_.lantosData.SetComments(comments, current.EstimateNumber); });
  current.Comments = comments;
}

void frmReschedule::MarkStatus() {
  Estimate& current = database_.estimates.CurrentEstimate;
  if (current.Status == kEstimateOnly) return;
  database_.lantosData.SetStatus(kRescheduled, current.EstimateNumber);
  current.Status = kRescheduled;
}

}  // namespace lantos
