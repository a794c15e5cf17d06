#include "board/WeekData.h"

#include <optional>
#include <unordered_map>

#include "board/DayLines.h"
#include "frame/Text.h"

namespace lantos {

namespace {

std::vector<BoardRow> FetchDay(de& database, DaySerial date, std::string_view order) {
  std::vector<BoardRow> rows;
  Recordset& estimates = database.GetEstimatesByDate(date);
  estimates.Sort(order);
  for (; !estimates.Eof(); estimates.MoveNext()) {
    BoardRow& row = rows.emplace_back();
    modEstimates::ReadRow(estimates, row.estimate);
    row.estimate.Comments = Trim(row.estimate.Comments);
  }
  estimates.Close();
  return rows;
}

void TakeTotals(const Recordset& totals, Estimate& estimate) {
  estimate.TotalHours = totals.Eof() ? 0 : totals.Long("TotalHours");
  estimate.TotalLabor = totals.Eof() ? 0 : totals.Long("TotalLabor");
}

void FetchTotals(de& database, DaySerial date, std::vector<BoardRow>& rows) {
  std::unordered_map<std::int32_t, Estimate*> estimates;
  for (BoardRow& row : rows) estimates.emplace(row.estimate.EstimateNumber, &row.estimate);
  Recordset& totals = database.TotalsByDate(date);
  for (; !totals.Eof(); totals.MoveNext()) {
    const auto estimate = estimates.find(totals.Long("EstimateNumber"));
    if (estimate != estimates.end()) TakeTotals(totals, *estimate->second);
  }
  totals.Close();
}

// Of the whole week at once: a server is asked for all of it in one go.
void FetchLines(de& database, WeekData& week, std::optional<std::size_t> withLabor, TotalsAsked totals) {
  std::vector<std::int32_t> totalsOf;
  std::vector<std::int32_t> laborOf;
  for (std::size_t i = 0; i < kWeekdays; ++i) {
    for (const BoardRow& row : week.days[i]) {
      if (totals == TotalsAsked::OfEach) totalsOf.push_back(row.estimate.EstimateNumber);
      if (i == withLabor) laborOf.push_back(row.estimate.EstimateNumber);
    }
  }
  database.ForeseeLines(totalsOf, laborOf);
  for (std::size_t i = 0; i < kWeekdays; ++i) {
    for (BoardRow& row : week.days[i]) {
      if (totals == TotalsAsked::OfEach) ReadTotals(database, row.estimate);
      if (i == withLabor) row.laborLines = FetchLaborLines(database, row.estimate.EstimateNumber);
    }
  }
}

}  // namespace

WeekData FetchWeek(de& database, DaySerial sunday, std::string_view order, DaySerial laborOf, TotalsAsked totals) {
  WeekData week;
  database.Connection().ReadTogether([&] {
    const bool isByDay = totals == TotalsAsked::OfDays;
    database.ForeseeDays(sunday, kWeekdays, isByDay ? de::DayTotals::Asked : de::DayTotals::NotAsked);
    week.capacity.LoadStandardHours(database);
    std::optional<std::size_t> withLabor;
    for (std::size_t i = 0; i < kWeekdays; ++i) {
      const DaySerial day = sunday + static_cast<DaySerial>(i);
      week.capacity.LoadSpecialDay(database, day, i);
      week.days[i] = FetchDay(database, day, order);
      if (isByDay) FetchTotals(database, day, week.days[i]);
      if (day == laborOf) withLabor = i;
    }
    FetchLines(database, week, withLabor, totals);
  });
  return week;
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
  lines.push_back(" ");
  return lines;
}

}  // namespace lantos
