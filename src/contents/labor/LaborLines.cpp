#include "contents/labor/LaborLines.h"

#include <algorithm>

#include "contents/Changing.h"
#include "contents/EstimateTotals.h"
#include "contents/LineNumbers.h"
#include "contents/labor/LaborRows.h"
#include "contents/labor/frmLabor.h"
#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "records/LaborText.h"
#include "records/modSystem.h"

namespace lantos {

namespace {

const std::string kChangeLabor = "Change Labor";
const std::string kRemoveLabor = "Remove Labor";

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

std::string NameOf(const WoLaborLine& line) { return "The labor line \"" + FirstText(line) + "\""; }

}  // namespace

std::string LaborLines::EstimateDate() const { return FormatDate(bench_.database.estimates.CurrentEstimate.SchedDate); }

void LaborLines::AddLaborLine(const WoLaborLine& line) { Show(Store(line)); }

bool LaborLines::EditAndAdd(const WoLaborLine& line) {
  const std::optional<Stored> stored = EditAndStore(line);
  if (stored) Show(*stored);
  return stored.has_value();
}

// The screen is gone before anything of the line is seen elsewhere.
std::optional<LaborLines::Stored> LaborLines::EditAndStore(const WoLaborLine& line, Replaced* replaced) {
  frmLabor form(bench_, line);
  form.LoadForm();
  if (!form.HasEmployees()) return std::nullopt;
  std::optional<Stored> stored;
  form.StoreBy({[&] {
                  if (replaced != nullptr) {
                    stored = StoreInPlace(form.CurrentLabor, *replaced);
                  } else {
                    stored = Store(form.CurrentLabor);
                  }
                },
                [&form] { return NameOf(form.CurrentLabor); }});
  form.ShowModal();
  return stored;
}

std::optional<LaborLines::Stored> LaborLines::StoreInPlace(const WoLaborLine& line, Replaced& replaced) {
  std::optional<Stored> stored;
  const auto store = [&] { stored = Store(line, &replaced); };
  const bool isStored =
      replaced.line.Store(bench_.shop.desktop, kChangeLabor, ValuesOf(line), {store, [this] { FollowDatabase(); }});
  return isStored ? stored : std::nullopt;
}

LaborLines::Stored LaborLines::Store(WoLaborLine line, Replaced* replaced) {
  for (std::string& text : line.Desc) text = TrimNull(text);
  Stored stored;
  stored.line = std::move(line);
  const auto transaction = [&] { stored.refusal = surcharge_.StoreWithSurcharge([&] { Write(stored, replaced); }); };
  StoreOrReload([&] { TakeNumberAndStore(transaction); }, [this] { FollowDatabase(); });
  return stored;
}

void LaborLines::Write(Stored& stored, Replaced* replaced) {
  de& data = bench_.Data();
  const WoLaborLine& line = stored.line;
  if (replaced != nullptr) {
    stored.number = replaced->number;
    replaced->line.Expect(ValuesStored(stored.number));
    data.DeleteLabor(bench_.Number(), stored.number);
  } else {
    stored.number = NumberForNewLine(data.LaborForEstimate(bench_.Number()), "LaborNumber", list_.NextNumber());
  }
  data.AddLabor(bench_.Number(), stored.number, JoinLaborText(line.Desc), line.Hours, line.Rate, line.Total,
                line.Mechanic);
}

std::optional<LineValues> LaborLines::ValuesStored(std::int32_t number) {
  return StoredValues(
      bench_.Data().LaborForEstimate(bench_.Number()),
      [number](const Recordset& row) { return row.Long("LaborNumber") == number; },
      [](const Recordset& row) { return ValuesOf(ReadLaborLine(row)); });
}

void LaborLines::Show(const Stored& stored) {
  if (!list_.IsBehindUnseen(stored.number)) {
    PutStored(stored);
    return ShowWhatFollows(stored.refusal);
  }
  const auto show = [&] {
    const bool isRead = list_.Contains(stored.number);
    if (!isRead) PutStored(stored);
    list_.Select(stored.number);
    if (!isRead) ShowWhatFollows(stored.refusal);
  };
  ShowStored(
      NameOf(stored.line), [this] { GoBack(); }, show);
  surcharge_.ApplySurcharge();
  ShowWhatFollows(nullptr);
}

void LaborLines::PutStored(const Stored& stored) {
  if (list_.Contains(stored.number)) AddToTheDay(-list_[stored.number].Hours);
  list_.Put(stored.number, stored.line);
  list_.Select(stored.number);
  AddToTheDay(stored.line.Hours);
}

void LaborLines::ShowWhatFollows(const Surcharge::Refusal& refusal) {
  surcharge_.TellRefusal(refusal);
  bench_.estimate.RefreshTotals();
  bench_.estimate.RefreshDay();
}

void LaborLines::LoadLaborList() {
  Recordset& labor = bench_.Data().LaborForEstimate(bench_.Number());
  LaborByNumber lines;
  for (; !labor.Eof(); labor.MoveNext()) lines.insert_or_assign(labor.Long("LaborNumber"), ReadLaborLine(labor));
  labor.Close();
  list_.StartAnew();
  for (const auto& [number, line] : lines) list_.Put(number, line);
  hoursOfTheDay_ = 0;
  for (const auto& [number, line] : list_.Lines()) hoursOfTheDay_ += line.Hours;
}

// Where no estimate is on show the lines of the next one follow.
void LaborLines::ClearLaborList() { bench_.Number() == 0 ? list_.StartAnew() : list_.Clear(); }

// What another workstation has added or taken away is seen from then on, and counts on the day. A list that was emptied
// on the screen has counted all the time.
void LaborLines::GoBack() {
  const std::optional<std::int32_t> selected = list_.Selected();
  const std::int64_t hoursBefore = hoursOfTheDay_;
  LoadLaborList();
  if (selected) list_.Select(*selected);
  bench_.estimate.AddScheduledHours(LongOrOverflow(hoursOfTheDay_ - hoursBefore));
}

void LaborLines::FollowDatabase() {
  const std::int64_t sumBefore = LaborSum(list_.Lines());
  GoBack();
  if (LaborSum(list_.Lines()) != sumBefore) surcharge_.ApplySurcharge();
  ShowWhatFollows(nullptr);
}

void LaborLines::AddToTheDay(Hundredths hours) {
  hoursOfTheDay_ += hours;
  bench_.estimate.AddScheduledHours(hours);
}

void LaborLines::RemoveLaborLine(std::int32_t number) {
  ListedLine listed(ValuesOf(list_[number]));
  Surcharge::Refusal refusal;
  const auto remove = [&] {
    listed.Expect(ValuesStored(number));
    bench_.Data().DeleteLabor(bench_.Number(), number);
  };
  const auto transaction = [&] {
    StoreOrReload([&] { refusal = surcharge_.StoreWithSurcharge(remove); }, [this] { FollowDatabase(); });
  };
  if (!RemoveAsListed(bench_.shop.desktop, kRemoveLabor, NameOf(list_[number]) + " was",
                      {transaction, [this] { FollowDatabase(); }})) {
    return;
  }
  AddToTheDay(-list_[number].Hours);
  list_.Remove(number);
  ShowWhatFollows(refusal);
}

void LaborLines::Add() {
  WoLaborLine line;
  line.Rate = bench_.System().Get(sysrec::shop_rate);
  line.Date = EstimateDate();
  EditAndAdd(line);
}

void LaborLines::Change() {
  const std::optional<std::int32_t> number = list_.Selected();
  if (!number) {
    bench_.shop.desktop.Tell("Must select a labor item in order to change it.", kChangeLabor);
    return;
  }
  WoLaborLine line = AsListed(list_[*number]);
  line.Date = EstimateDate();
  Replaced replaced{*number, ListedLine(ValuesOf(list_[*number]))};
  if (const std::optional<Stored> stored = EditAndStore(line, &replaced)) Show(*stored);
}

void LaborLines::Remove() {
  const std::optional<std::int32_t> number = list_.Selected();
  ui::Desktop& desktop = bench_.shop.desktop;
  if (!number) {
    desktop.Tell("Must select a labor item in order to remove it.", kRemoveLabor);
    return;
  }
  if (desktop.Ask("Remove\r    " + FirstText(list_[*number]) + "\rfrom this estimate?", kRemoveLabor,
                  ui::Buttons::YesNo) == ui::Answer::No) {
    return;
  }
  RemoveLaborLine(*number);
}

}  // namespace lantos
