#include "contents/conversion/ReadAfresh.h"

#include "estimatedb/VehicleSnapshots.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"

namespace lantos {

namespace {

// As a conversion begins the comments.
constexpr std::string_view kConvertedMark = "Workorder # ";

// The mark with its number and the blank behind it; empty where the comments name no work order.
std::string WorkorderIn(const std::string& comments) {
  if (!comments.starts_with(kConvertedMark)) return {};
  const std::size_t end = comments.find(' ', kConvertedMark.size());
  return comments.substr(0, end);
}

// A paragraph for each; empty when all is as it was shown.
std::string WhatHappened(const modEstimates& estimates, const Estimate& shown, Estimate now) {
  std::string text;
  const std::string workorder = WorkorderIn(now.Comments);
  if (!workorder.empty() && workorder != WorkorderIn(shown.Comments)) text += "\rIt is " + workorder + ".";
  if (now.SchedDate != shown.SchedDate) text += "\rIts day is " + FormatDate(now.SchedDate) + ".";
  Estimate before = shown;
  const std::string statusShown = estimates.StatusText(before.Status, shown.SchedDate);
  const std::string status = estimates.StatusText(now.Status, now.SchedDate);
  if (now.Status != before.Status) text += "\rIts status is '" + status + "', not '" + statusShown + "'.";
  return text;
}

// Whose comments count, where another copy has written some and there may be unsaved ones on show.
void SettleComments(Shop& shop, EstimateOnShow& onShow, const std::string& stored, const std::string& title) {
  const std::string ours = Trim(onShow.CommentsOnShow());
  const std::string theirs = Trim(stored);
  if (theirs == onShow.CommentsAsStored() || theirs == ours) return;
  if (ours == onShow.CommentsAsStored()) return onShow.ShowComments(stored);
  const ui::Answer answer =
      shop.desktop.Ask("Somebody else has changed this meanwhile:\r\rComments: \"" + theirs + "\" is stored, \"" +
                           ours + "\" is yours\r\rDo you want to store yours?\rNo keeps what is stored.",
                       title, ui::Buttons::YesNo, ui::Icon::Question);
  answer == ui::Answer::Yes ? onShow.StoreComments(ours) : onShow.ShowComments(stored);
}

// As the columns hold them: a text that is longer is cut there.
bool HasVehicleOf(const Estimate& one, const Estimate& other) {
  constexpr std::string Estimate::*kTexts[] = {&Estimate::VehYear,    &Estimate::VehMake, &Estimate::VehModel,
                                               &Estimate::VehVIN,     &Estimate::VehLic,  &Estimate::VehDate,
                                               &Estimate::VehMileage, &Estimate::VehEng,  &Estimate::VehTrans};
  static_assert(std::size(kTexts) == std::size(kSnapshotColumns));
  for (std::size_t i = 0; i < std::size(kTexts); ++i) {
    const std::size_t width = kSnapshotColumns[i].width;
    if (Trim(Left(one.*kTexts[i], width)) != Trim(Left(other.*kTexts[i], width))) return false;
  }
  return true;
}

}  // namespace

bool HasCustomerAndVehicleOf(const Estimate& one, const Estimate& other) {
  return one.CustomerNumber == other.CustomerNumber && HasVehicleOf(one, other);
}

std::optional<Estimate> OnFile(de& data, const Estimate& shown) {
  Recordset& row = data.EstimateByNumber(shown.EstimateNumber);
  std::optional<Estimate> found;
  if (!row.Eof()) modEstimates::ReadRow(row, found.emplace(shown));
  row.Close();
  return found;
}

bool StoreUnlessChanged(Shop& shop, EstimateDatabase& database, const std::string& title,
                        const std::function<void()>& store) {
  Estimate& current = database.estimates.CurrentEstimate;
  for (;;) {
    const Estimate before = current;
    bool isStored = false;
    try {
      database.lantosData.Connection().Together([&] {
        std::optional<Estimate> now = OnFile(database.lantosData, current);
        if (!now || !WhatHappened(database.estimates, current, *now).empty()) return;
        now->Status = current.Status;
        current = *now;
        store();
        isStored = true;
      });
    } catch (...) {
      current = before;
      throw;
    }
    if (isStored) return true;
    if (ReadAfresh(shop, database, title) == Meanwhile::Stops) return false;
  }
}

// What happens while the question is up is asked about as well.
Meanwhile ReadAfresh(Shop& shop, EstimateDatabase& database, const std::string& title) {
  Estimate& current = database.estimates.CurrentEstimate;
  const std::string name = "Estimate # " + FormatZeros(current.EstimateNumber, 6);
  for (Meanwhile meanwhile = Meanwhile::Nothing;; meanwhile = Meanwhile::GoesOn) {
    std::optional<Estimate> now = OnFile(database.lantosData, current);
    if (!now) {
      shop.desktop.Tell(name + " was deleted by another user.", title, ui::Icon::Exclamation);
      return Meanwhile::Stops;
    }
    const std::string happened = WhatHappened(database.estimates, current, *now);
    // A No-show may be one in memory alone.
    if (happened.empty()) now->Status = current.Status;
    current = *now;
    if (happened.empty()) return meanwhile;
    const ui::Answer answer = shop.desktop.Ask(
        name + " was changed by another user since it was shown here.\r" + happened + "\r\rDo you wish to continue?",
        title, ui::Buttons::YesNo, ui::Icon::Question);
    if (answer != ui::Answer::Yes) return Meanwhile::Stops;
  }
}

Meanwhile ReadAfresh(Shop& shop, EstimateDatabase& database, EstimateOnShow& onShow, const std::string& title) {
  const Meanwhile meanwhile = ReadAfresh(shop, database, title);
  const Estimate& current = database.estimates.CurrentEstimate;
  if (onShow.DisplayedEstimate() == current.EstimateNumber) SettleComments(shop, onShow, current.Comments, title);
  return meanwhile;
}

}  // namespace lantos
