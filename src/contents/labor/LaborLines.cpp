#include "contents/labor/LaborLines.h"

#include <algorithm>

#include "contents/Changing.h"
#include "contents/EstimateTotals.h"
#include "contents/labor/LaborRows.h"
#include "contents/labor/frmLabor.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/PlainWords.h"
#include "frame/Text.h"
#include "records/LaborText.h"
#include "records/modSystem.h"

namespace lantos {

namespace {

// What the list shows of it, and no more: followup fields aren't kept, and empty lines have no row.
WoLaborLine AsListed(const WoLaborLine& stored) {
  WoLaborLine line;
  line.Mechanic = stored.Mechanic;
  line.Hours = stored.Hours;
  line.Rate = stored.Rate;
  line.Total = stored.Total;
  std::copy_if(stored.Desc.begin(), stored.Desc.end(), line.Desc.begin(),
               [](const std::string& text) { return !TrimView(text).empty(); });
  return line;
}

std::string FirstText(const WoLaborLine& line) {
  const auto text =
      std::find_if(line.Desc.begin(), line.Desc.end(), [](const std::string& each) { return !each.empty(); });
  return text == line.Desc.end() ? std::string() : Trim(*text);
}

}  // namespace

std::string LaborLines::EstimateDate() const { return FormatDate(bench_.database.estimates.CurrentEstimate.SchedDate); }

void LaborLines::AddLaborLine(const WoLaborLine& line) {
  const std::int32_t number = list_.NextNumber();
  Make([&] { StoreLaborLine(number, line); });
}

void LaborLines::StoreLaborLine(std::int32_t number, WoLaborLine line) {
  for (std::string& text : line.Desc) text = TrimNull(text);
  bench_.Data().AddLabor(bench_.Number(), number, JoinLaborText(line.Desc), line.Hours, line.Rate, line.Total,
                         line.Mechanic);
  list_.Put(number, line);
  list_.Select(number);
  AddToTheDay(line.Hours);
}

void LaborLines::Make(const std::function<void()>& change) {
  const std::int64_t sumBefore = LaborSum(list_.Lines());
  ChangeOrGoBack(change, [&] {
    GoBack();
    if (LaborSum(list_.Lines()) != sumBefore) surcharge_.ApplySurcharge();
    bench_.estimate.RefreshTotals();
    bench_.estimate.RefreshDay();
  });
  surcharge_.ApplySurcharge();
  bench_.estimate.RefreshTotals();
  bench_.estimate.RefreshDay();
}

void LaborLines::LoadLaborList() {
  Recordset& labor = bench_.Data().LaborForEstimate(bench_.Number());
  list_.StartAnew();
  for (; !labor.Eof(); labor.MoveNext()) list_.Put(labor.Long("LaborNumber"), ReadLaborLine(labor));
  labor.Close();
  hoursOfTheDay_ = 0;
  for (const auto& [number, line] : list_.Lines()) hoursOfTheDay_ += line.Hours;
}

// What another workstation has added or taken away is seen from then on, and counts on the day. A list that was emptied
// on the screen has counted all the time.
void LaborLines::GoBack() {
  const std::optional<std::int32_t> selected = list_.Selected();
  const std::int64_t hoursBefore = hoursOfTheDay_;
  LoadLaborList();
  if (selected) list_.Select(*selected);
  bench_.estimate.AddScheduledHours(LongOrOverflow(hoursOfTheDay_ - hoursBefore));
}

void LaborLines::AddToTheDay(Hundredths hours) {
  hoursOfTheDay_ += hours;
  bench_.estimate.AddScheduledHours(hours);
}

void LaborLines::RemoveLaborLine(std::int32_t number) {
  bench_.Data().DeleteLabor(bench_.Number(), number);
  AddToTheDay(-list_[number].Hours);
  list_.Remove(number);
}

std::optional<WoLaborLine> LaborLines::EditLaborLine(const WoLaborLine& line) {
  frmLabor form(bench_, line);
  form.LoadForm();
  if (!form.HasEmployees()) return std::nullopt;
  form.ShowModal();
  return form.Saved() ? std::optional(form.CurrentLabor) : std::nullopt;
}

void LaborLines::Add() {
  WoLaborLine line;
  line.Rate = bench_.System().Get(sysrec::shop_rate);
  line.Date = EstimateDate();
  if (const auto edited = EditLaborLine(line)) AddLaborLine(*edited);
}

void LaborLines::Change() {
  const std::optional<std::int32_t> number = list_.Selected();
  if (!number) {
    bench_.shop.desktop.Tell("Must select a labor item in order to change it.", "Change Labor");
    return;
  }
  WoLaborLine line = AsListed(list_[*number]);
  line.Date = EstimateDate();
  const std::optional<WoLaborLine> edited = EditLaborLine(line);
  if (!edited) return;
  // Between the two the line is in memory alone: it is lost when it can't be added, and the person must know.
  const std::string lost =
      "The line \"" + FirstText(line) + "\" is no longer on the estimate, since its change couldn't be stored:\r\r";
  Make([&] {
    RemoveLaborLine(*number);
    try {
      StoreLaborLine(*number, *edited);
    } catch (const std::exception& error) {
      throw WordedError(lost + error.what(), lost + WordsFor(error));
    }
  });
}

void LaborLines::Remove() {
  const std::optional<std::int32_t> number = list_.Selected();
  ui::Desktop& desktop = bench_.shop.desktop;
  if (!number) {
    desktop.Tell("Must select a labor item in order to remove it.", "Remove Labor");
    return;
  }
  if (desktop.Ask("Remove\r    " + FirstText(list_[*number]) + "\rfrom this estimate?", "Remove Labor",
                  ui::Buttons::YesNo) == ui::Answer::No) {
    return;
  }
  Make([&] { RemoveLaborLine(*number); });
}

}  // namespace lantos
