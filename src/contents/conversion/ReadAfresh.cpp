#include "contents/conversion/ReadAfresh.h"

#include <optional>

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"

namespace lantos {

namespace {

// As a conversion begins the comments.
constexpr std::string_view kConvertedMark = "Workorder # ";

std::optional<Estimate> OnFile(de& data, std::int32_t number) {
  Recordset& row = data.EstimateByNumber(number);
  std::optional<Estimate> found;
  if (!row.Eof()) modEstimates::ReadRow(row, found.emplace());
  row.Close();
  return found;
}

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

}  // namespace

Meanwhile ReadAfresh(Shop& shop, EstimateDatabase& database, const std::string& title) {
  Estimate& current = database.estimates.CurrentEstimate;
  const std::string name = "Estimate # " + FormatZeros(current.EstimateNumber, 6);
  const std::optional<Estimate> now = OnFile(database.lantosData, current.EstimateNumber);
  if (!now) {
    shop.desktop.Tell(name + " was deleted by another user.", title, ui::Icon::Exclamation);
    return Meanwhile::Stops;
  }
  const std::string happened = WhatHappened(database.estimates, current, *now);
  if (happened.empty()) return Meanwhile::Nothing;
  database.estimates.LoadEstimate(current.EstimateNumber);
  const ui::Answer answer = shop.desktop.Ask(
      name + " was changed by another user since it was shown here.\r" + happened + "\r\rDo you wish to continue?",
      title, ui::Buttons::YesNo, ui::Icon::Question);
  return answer == ui::Answer::Yes ? Meanwhile::GoesOn : Meanwhile::Stops;
}

}  // namespace lantos
