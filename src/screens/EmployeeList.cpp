#include "screens/EmployeeList.h"

#include "frame/Numbers.h"
#include "records/modEmployees.h"

namespace lantos {
namespace {

constexpr std::size_t kNameWidth = 31;
constexpr const char* kTitle = "Load Employee List";

std::string LineOf(std::string_view name, std::int32_t number) {
  return LeftJustify(name, kNameWidth) + FormatZeros(number, 6);
}

// Nobody is told: who filled the list has been.
std::string NameOf(Shop& shop, std::int32_t number) {
  try {
    for (const EmployeeName& employee : shop.records.employees.LoadEmployeeList()) {
      if (employee.Number == number) return employee.Name;
    }
  } catch (const FileError& error) {
    shop.environment.log.Write(error.what());
  }
  return "(not listed)";
}

}  // namespace

bool FillEmployeeList(Shop& shop, ui::RowControl& list, const EmployeeListChoice& choice) {
  list.Clear();
  if (choice.withNone) list.AddItem(std::string(kNoEmployee));
  std::vector<EmployeeName> employees;
  try {
    employees = shop.records.employees.LoadEmployeeList();
  } catch (const FileError& error) {
    shop.environment.log.Write(error.what());
    shop.desktop.Tell("Could not access employee master file!", list.Owner().Caption());
    return false;
  }
  bool any = choice.withNone;
  for (const EmployeeName& employee : employees) {
    if (choice.activeOnly && !employee.IsActive()) continue;
    list.AddItem(LineOf(employee.Name, employee.Number), employee.Number);
    any = true;
  }
  if (!any) shop.desktop.Tell("There are no employees!", kTitle);
  return any;
}

int RowOfEmployee(Shop& shop, ui::RowControl& list, std::int32_t number) {
  for (int row = 0; row < list.ListCount(); ++row) {
    if (EmployeeNumberOf(list.List(row)) == number) return row;
  }
  return list.AddItem(LineOf(NameOf(shop, number), number), number);
}

std::string EmployeeNameOf(std::string_view line) {
  return line == kNoEmployee ? std::string() : Trim(Left(line, kNameWidth));
}

std::int32_t EmployeeNumberOf(std::string_view line) { return ToLongOrZero(Trim(Mid(line, kNameWidth + 1))); }

}  // namespace lantos
