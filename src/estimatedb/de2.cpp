#include "estimatedb/de.h"

// The commands of Korvel.mdb.
namespace lantos {

namespace {

Value Long(std::int32_t value) { return std::int64_t{value}; }
Value Text(std::string_view value) { return std::string(value); }

constexpr const char* kEmpPRInfo = "EmpPRInfo";
constexpr const char* kEmployeeNumber = "EmployeeNumber";

void OnlyOf(Recordset& rows, std::int32_t employee) {
  rows.Filter([employee](const Recordset& row) { return row.Long(kEmployeeNumber) == employee; });
}

}  // namespace

Recordset& de2::SelectQuery() { return Run("SelectQuery", {}); }

void de2::UpdateQuery() { Run("UpdateQuery", {}); }

Recordset& de2::EmpPRInfo() { return Run("EmpPRInfo", {}); }

Recordset& de2::EmpPRHist() { return Run("EmpPRHist", {}); }

void de2::DeletePRHist(std::int32_t employee, std::string_view payrollDate) {
  Run("DeletePRHist", {Long(employee), Text(payrollDate)});
}

Recordset& de2::FollowUps() { return Run("FollowUps", {}); }

Recordset& de2::RepairCodes() { return Run("RepairCodes", {}); }

void de2::AddRepairCode(std::string_view code, std::string_view description) {
  Run("AddRepairCode", {Text(code), Text(description)});
}

de2::PRInfo de2::PRInfoOf(std::int32_t employee) {
  Recordset& rows = EmpPRInfo();
  OnlyOf(rows, employee);
  PRInfo info;
  if (!rows.Eof()) {
    info = {rows.Long("AdditionalFederal"), rows.Long("AdditionalState"), rows.Long("AdditionalLocal"),
            rows.Long("PrintSSN") != 0};
  }
  rows.Close();
  return info;
}

void de2::SavePRInfo(std::int32_t employee, const PRInfoChange& change) {
  Connection().Together([&] {
    Recordset& rows = EmpPRInfo();
    OnlyOf(rows, employee);
    const bool isNew = rows.Eof();
    rows.Close();
    std::vector<std::string> columns;
    std::vector<Value> values;
    const auto take = [&](const char* column, const auto& value) {
      if (!value && !isNew) return;
      columns.emplace_back(column);
      values.push_back(Long(value ? static_cast<std::int32_t>(*value) : 0));
    };
    if (isNew) take(kEmployeeNumber, std::optional(employee));
    take("AdditionalFederal", change.AdditionalFederal);
    take("AdditionalState", change.AdditionalState);
    take("AdditionalLocal", change.AdditionalLocal);
    take("PrintSSN", change.PrintSSN);
    if (isNew) {
      Connection().Insert(kEmpPRInfo, columns, values);
    } else if (!columns.empty()) {
      Connection().UpdateFirst(kEmpPRInfo, columns, values, {kEmployeeNumber, Long(employee)});
    }
  });
}

}  // namespace lantos
