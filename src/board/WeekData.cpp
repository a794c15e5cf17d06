#include "board/WeekData.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

#include "board/DayLines.h"
#include "frame/Text.h"

namespace lantos {

namespace {

const std::string kBehindLabor = " ";
constexpr std::string_view kByNumber = "EstimateNumber ASC";
constexpr std::size_t kMostRefreshed = 100;

std::int32_t NumberOf(const BoardRow& row) { return row.estimate.EstimateNumber; }

void AddRow(const Recordset& estimates, std::vector<BoardRow>& rows) {
  BoardRow& row = rows.emplace_back();
  modEstimates::ReadRow(estimates, row.estimate);
  row.estimate.Comments = Trim(row.estimate.Comments);
}

void TakeTotals(const Recordset& totals, Estimate& estimate) {
  estimate.TotalHours = totals.Eof() ? 0 : totals.Long("TotalHours");
  estimate.TotalLabor = totals.Eof() ? 0 : totals.Long("TotalLabor");
}

std::vector<BoardRow> FetchDay(de& database, DaySerial date, std::string_view order) {
  std::vector<BoardRow> rows;
  Recordset& estimates = database.GetEstimatesByDate(date);
  estimates.Sort(order);
  for (; !estimates.Eof(); estimates.MoveNext()) AddRow(estimates, rows);
  estimates.Close();
  return rows;
}

void FetchTotalsOfWeek(de& database, DaySerial sunday, WeekData& week) {
  std::unordered_multimap<std::int32_t, Estimate*> estimates;
  for (std::vector<BoardRow>& rows : week.days) {
    for (BoardRow& row : rows) estimates.emplace(row.estimate.EstimateNumber, &row.estimate);
  }
  Recordset& totals = database.TotalsOfWeek(sunday);
  for (; !totals.Eof(); totals.MoveNext()) {
    const auto [begin, end] = estimates.equal_range(totals.Long("EstimateNumber"));
    for (auto at = begin; at != end; ++at) TakeTotals(totals, *at->second);
  }
  totals.Close();
}

// As FetchLaborLines makes them of each.
void FetchLaborOfDay(de& database, DaySerial date, std::vector<BoardRow>& rows) {
  std::unordered_map<std::int32_t, std::vector<std::string>> lines;
  Recordset& labor = database.LaborOfDay(date);
  for (; !labor.Eof(); labor.MoveNext()) lines[labor.Long("EstimateNumber")].push_back(LaborLine(labor));
  labor.Close();
  for (BoardRow& row : rows) {
    row.laborLines = lines[row.estimate.EstimateNumber];
    row.laborLines.push_back(kBehindLabor);
  }
}

void FetchAtOnce(de& database, DaySerial sunday, std::string_view order, std::optional<DaySerial> laborOf,
                 WeekData& week) {
  const auto panelOf = [sunday](DaySerial day) { return static_cast<std::size_t>(day - sunday); };
  database.ForeseeWeek(sunday, laborOf);
  week.capacity.LoadStandardHours(database);
  for (std::size_t i = 0; i < kWeekdays; ++i) {
    week.capacity.LoadSpecialDay(database, sunday + static_cast<DaySerial>(i), i);
  }
  Recordset& estimates = database.EstimatesOfWeek(sunday);
  estimates.Sort(order);
  for (; !estimates.Eof(); estimates.MoveNext()) AddRow(estimates, week.days.at(panelOf(estimates.Date("SchedDate"))));
  estimates.Close();
  FetchTotalsOfWeek(database, sunday, week);
  if (laborOf) FetchLaborOfDay(database, *laborOf, week.days.at(panelOf(*laborOf)));
}

void FetchInParts(de& database, DaySerial sunday, std::string_view order, std::optional<DaySerial> laborOf,
                  WeekData& week) {
  database.ForeseeDays(sunday);
  week.capacity.LoadStandardHours(database);
  std::vector<std::int32_t> totalsWanted;
  std::vector<std::int32_t> laborWanted;
  for (std::size_t i = 0; i < kWeekdays; ++i) {
    const DaySerial day = sunday + static_cast<DaySerial>(i);
    week.capacity.LoadSpecialDay(database, day, i);
    week.days[i] = FetchDay(database, day, order);
    for (const BoardRow& row : week.days[i]) {
      totalsWanted.push_back(row.estimate.EstimateNumber);
      if (day == laborOf) laborWanted.push_back(row.estimate.EstimateNumber);
    }
  }
  // Of the whole week at once: a server is asked for all of it in one go.
  database.ForeseeLines(totalsWanted, laborWanted);
  for (std::size_t i = 0; i < kWeekdays; ++i) {
    for (BoardRow& row : week.days[i]) {
      ReadTotals(database, row.estimate);
      if (sunday + static_cast<DaySerial>(i) != laborOf) continue;
      row.laborLines = FetchLaborLines(database, row.estimate.EstimateNumber);
    }
  }
}

}  // namespace

WeekData FetchWeek(de& database, DaySerial sunday, std::string_view order, DaySerial laborOf, WeekAsked asked) {
  WeekData week{.sunday = sunday, .order = std::string(order), .laborOf = laborOf};
  std::optional<DaySerial> ofDay;
  if (laborOf >= sunday && laborOf < sunday + static_cast<DaySerial>(kWeekdays)) ofDay = laborOf;
  database.Connection().ReadTogether([&] {
    const auto fetch = asked == WeekAsked::InParts ? FetchInParts : FetchAtOnce;
    fetch(database, sunday, order, ofDay, week);
  });
  return week;
}

bool IsWorthRefreshing(de& database, const WeekData& week, std::size_t changed) {
  return week.sunday != kNoDay && week.order == kByNumber && changed <= kMostRefreshed && database.Connection().IsFar();
}

void RefreshWeek(de& database, WeekData& week, const std::set<std::int32_t>& changed) {
  if (changed.empty()) return;
  std::vector<BoardRow> rows;
  database.Connection().ReadTogether([&] {
    rows.clear();
    database.ForeseeEstimates({changed.begin(), changed.end()});
    for (const std::int32_t number : changed) {
      Recordset& estimates = database.EstimateByNumber(number);
      const std::size_t first = rows.size();
      for (; !estimates.Eof(); estimates.MoveNext()) AddRow(estimates, rows);
      estimates.Close();
      for (std::size_t i = first; i < rows.size(); ++i) {
        ReadTotals(database, rows[i].estimate);
        if (rows[i].estimate.SchedDate == week.laborOf) rows[i].laborLines = FetchLaborLines(database, number);
      }
    }
  });
  for (std::vector<BoardRow>& day : week.days) {
    std::erase_if(day, [&](const BoardRow& row) { return changed.contains(NumberOf(row)); });
  }
  for (BoardRow& row : rows) {
    const DaySerial weekday = row.estimate.SchedDate - week.sunday;
    if (weekday < 0 || weekday >= static_cast<DaySerial>(kWeekdays)) continue;
    std::vector<BoardRow>& day = week.days[static_cast<std::size_t>(weekday)];
    day.insert(std::ranges::upper_bound(day, NumberOf(row), {}, NumberOf), std::move(row));
  }
}

void ReadTotals(de& database, Estimate& estimate) {
  Recordset& totals = database.TotalsForEstimate(estimate.EstimateNumber);
  TakeTotals(totals, estimate);
  totals.Close();
}

std::vector<std::string> FetchLaborLines(de& database, std::int32_t estimate) {
  std::vector<std::string> lines;
  Recordset& labor = database.LaborForEstimate(estimate);
  for (; !labor.Eof(); labor.MoveNext()) lines.push_back(LaborLine(labor));
  labor.Close();
  lines.push_back(kBehindLabor);
  return lines;
}

}  // namespace lantos
