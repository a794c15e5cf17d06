#include "masters/employees/StoredEmployee.h"

namespace lantos {

std::optional<modEmployees::Updated> StoreEmployee(Shop& shop, std::int32_t number, std::span<const MergedField> fields,
                                                   const EmployeeRecord& read, const EmployeeRecord& ours,
                                                   const std::string& title) {
  RecordMerge merge(fields, read, ours);
  modEmployees::Updated updated = modEmployees::Updated::IsGone;
  const auto save = [&] {
    updated = shop.records.employees.UpdateEmployee(number, [&](EmployeeRecord& record) { merge.Into(record); });
  };
  if (!merge.Run(shop.desktop, title, save)) return std::nullopt;
  return updated;
}

}  // namespace lantos
