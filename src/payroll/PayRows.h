#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "estimatedb/de.h"
#include "payroll/PayDate.h"
#include "payroll/Withholding.h"
#include "records/Payroll.h"

namespace lantos {

// The columns of the list of pay records. The first is seen by nobody: it holds the mark of a row that is to be
// deleted.
enum class PayColumn {
  Mark,
  Date,
  Hours,
  Gross,
  FICA,
  Medicare,
  FUTA,
  SUTA,
  Federal,
  State,
  Local,
  AddlFed,
  AddlState,
  AddlLocal,
  Insurance,
  Uniform,
  Savings,
  Net,
  Count
};
inline constexpr std::size_t kPayColumnCount = static_cast<std::size_t>(PayColumn::Count);
inline constexpr std::array<std::string_view, kPayColumnCount> kPayColumnNames = {
    "X",     "Date",  "Hours",    "Gross",      "FICA",       "Medicare",  "Futa",    "Suta",    "Federal",
    "State", "Local", "Addl Fed", "Addl State", "Addl Local", "Insurance", "Uniform", "Savings", "Net"};

// A row as it reads. What isn't known is an empty text.
struct PayRow {
  std::array<std::string, kPayColumnCount> cells;
  std::string sortDate;  // "yyyy/mm/dd"

  const std::string& operator[](PayColumn column) const { return cells[static_cast<std::size_t>(column)]; }
  std::string& operator[](PayColumn column) { return cells[static_cast<std::size_t>(column)]; }
  bool IsMarked() const { return !(*this)[PayColumn::Mark].empty(); }
};

// What was withheld beyond the rules, in cents.
struct AdditionalWithholding {
  std::int32_t federal = 0;
  std::int32_t state = 0;
  std::int32_t local = 0;
  bool isKnown = true;
};
// Of one employee, by the payroll's date in "mm/dd/yyyy".
using AdditionalByDate = std::map<std::string, AdditionalWithholding>;
AdditionalByDate LoadAdditionalWithholding(de2& korvel, std::int32_t employee);

// The net isn't known without what is additional.
PayRow MakePayRow(const PayRecord& record, const Withholding& withheld, const AdditionalWithholding& additional);

// The row's amounts of the same year up to its date, in cents: those of all rows that aren't marked. Nothing when one
// of them isn't known.
std::optional<std::int64_t> YearToDate(const std::vector<PayRow>& rows, const PayRow& upTo, PayColumn column);

}  // namespace lantos
