#include "payroll/PayRows.h"

#include <fmt/core.h>

#include <cmath>

#include "frame/Numbers.h"
#include "frame/Text.h"

namespace lantos {

namespace {

struct Plain {
  PayColumn column;
  LongField field;
};
constexpr Plain kPlain[] = {
    {PayColumn::Hours, payrecord::Hours},         {PayColumn::Gross, payrecord::Gross},
    {PayColumn::FICA, payrecord::FICA},           {PayColumn::Medicare, payrecord::Medicare},
    {PayColumn::FUTA, payrecord::FUTA},           {PayColumn::SUTA, payrecord::SUTA},
    {PayColumn::Insurance, payrecord::Insurance}, {PayColumn::Uniform, payrecord::Uniform},
    {PayColumn::Savings, payrecord::Savings},
};

std::string TextOf(const std::optional<std::int64_t>& cents) { return cents ? FormatHundredths(*cents) : ""; }

std::string SortTextOf(FileDate date) {
  const std::optional<DaySerial> serial = PayDay(date);
  if (!serial) return "0000/00/00";
  const CivilDate day = FromSerial(*serial);
  return fmt::format("{:04}/{:02}/{:02}", day.year, day.month, day.day);
}

}  // namespace

AdditionalByDate LoadAdditionalWithholding(de2& korvel, std::int32_t employee) {
  AdditionalByDate found;
  Recordset& rows = korvel.EmpPRHist();
  for (; !rows.Eof(); rows.MoveNext()) {
    if (rows.Long("EmployeeNumber") != employee) continue;
    found[rows.Text("PayrollDate")] = {rows.Long("AdditionalFederal"), rows.Long("AdditionalState"),
                                       rows.Long("AdditionalLocal")};
  }
  rows.Close();
  return found;
}

PayRow MakePayRow(const PayRecord& record, const Withholding& withheld, const AdditionalWithholding& additional) {
  PayRow row;
  const FileDate date = record.Get(payrecord::PayrollDate);
  row.sortDate = SortTextOf(date);
  row[PayColumn::Date] = TextOfPayDate(date);
  for (const Plain& plain : kPlain) row[plain.column] = FormatHundredths(record.Get(plain.field));
  row[PayColumn::Federal] = TextOf(withheld.federal);
  row[PayColumn::State] = TextOf(withheld.state);
  row[PayColumn::Local] = TextOf(withheld.local);
  if (!additional.isKnown) return row;
  row[PayColumn::AddlFed] = FormatHundredths(additional.federal);
  row[PayColumn::AddlState] = FormatHundredths(additional.state);
  row[PayColumn::AddlLocal] = FormatHundredths(additional.local);
  if (withheld.net) {
    row[PayColumn::Net] = FormatHundredths(*withheld.net - additional.federal - additional.state - additional.local);
  }
  return row;
}

std::optional<std::int64_t> YearToDate(const std::vector<PayRow>& rows, const PayRow& upTo, PayColumn column) {
  const std::string start = Left(upTo.sortDate, 4) + "/01/01";
  std::int64_t sum = 0;
  for (const PayRow& row : rows) {
    if (row.IsMarked() || row.sortDate < start || row.sortDate > upTo.sortDate) continue;
    if (row[column].empty()) return std::nullopt;
    sum += std::llround(ToNumber(row[column]) * 100);
  }
  return sum;
}

}  // namespace lantos
