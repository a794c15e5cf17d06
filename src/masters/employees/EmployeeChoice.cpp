#include "masters/employees/EmployeeChoice.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "screens/EmployeeList.h"

namespace lantos {

namespace {

bool IsActive(const EmployeeRecord& record) { return record.Get(employee::DateTerminated) <= 0; }

// The first of each number: the others of a damaged file can't be told from it.
std::vector<const EmployeeRecord*> ByName(const std::vector<EmployeeRecord>& employees, bool activeOnly) {
  std::vector<const EmployeeRecord*> listed;
  std::set<std::int32_t> seen{kNoEmployeeNumber};
  for (const EmployeeRecord& record : employees) {
    const bool isFirst = seen.insert(record.Get(employee::EmpNumber)).second;
    if (isFirst && (!activeOnly || IsActive(record))) listed.push_back(&record);
  }
  const auto key = [](const EmployeeRecord* record) {
    return std::pair(ToLower(record->View(employee::Name)), record->Get(employee::EmpNumber));
  };
  std::sort(listed.begin(), listed.end(),
            [&](const EmployeeRecord* a, const EmployeeRecord* b) { return key(a) < key(b); });
  return listed;
}

}  // namespace

EmployeeChoice::EmployeeChoice(Shop& shop, ui::ComboBox& list, ui::CheckBox& activeOnly, Events events)
    : shop_(shop), list_(list), activeOnly_(activeOnly), events_(std::move(events)) {
  list_.OnClick = [this] { Picked(); };
  activeOnly_.OnClick = [this] { ActiveOnlyClicked(); };
}

void EmployeeChoice::Read(std::int32_t chosen) {
  shop_.records.employees.LoadEmployees();
  List(chosen);
}

void EmployeeChoice::List(std::int32_t chosen) {
  ShowNames();
  Choose(list_.FindData(chosen) < 0 ? kNoEmployeeNumber : chosen);
  ShowChosen();
}

const EmployeeRecord* EmployeeChoice::Look() {
  if (chosen_ == kNoEmployeeNumber) return nullptr;
  modEmployees& employees = shop_.records.employees;
  employees.LookAgain();
  const EmployeeRecord* record = employees.Find(chosen_);
  if (record == nullptr) TellThatGone();
  return record;
}

void EmployeeChoice::TellThatGone() {
  chosen_ = kNoEmployeeNumber;
  ShowNames();
  ShowChosen();
  shop_.desktop.Tell("This employee has been deleted by another user.", list_.Owner().Caption(), ui::Icon::Exclamation);
}

void EmployeeChoice::Picked() {
  if (listing_) return;
  const std::int32_t number = list_.ItemData(list_.ListIndex());
  if (number == chosen_) return;
  if (!events_.mayLeave()) return ShowChosen();
  Choose(number);
}

// Whoever has left the shop goes from the list, and so from the screen.
void EmployeeChoice::ActiveOnlyClicked() {
  if (listing_) return;
  const EmployeeRecord* record = shop_.records.employees.Find(chosen_);
  const bool leaves = activeOnly_.Value() && record != nullptr && !IsActive(*record);
  if (leaves && !events_.mayLeave()) {
    listing_ = true;
    activeOnly_.SetValue(false);
    listing_ = false;
    return;
  }
  ShowNames();
  if (leaves) Choose(kNoEmployeeNumber);
  ShowChosen();
}

void EmployeeChoice::Choose(std::int32_t number) {
  chosen_ = number;
  events_.wasChosen();
}

void EmployeeChoice::ShowNames() {
  list_.Clear();
  list_.AddItem(std::string(kNoEmployee), kNoEmployeeNumber);
  for (const EmployeeRecord* record : ByName(shop_.records.employees.Employees(), activeOnly_.Value())) {
    list_.AddItem(record->Get(employee::Name), record->Get(employee::EmpNumber));
  }
}

void EmployeeChoice::ShowChosen() {
  listing_ = true;
  list_.SetListIndex(std::max(list_.FindData(chosen_), 0));
  listing_ = false;
}

}  // namespace lantos
