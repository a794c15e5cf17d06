#include <algorithm>

#include "caretaker/check/Kinds.h"
#include "caretaker/check/Words.h"
#include "records/Customers.h"
#include "records/modEmployees.h"
#include "workorders/TagScan.h"

namespace lantos {

namespace {

// A damaged record may bear any number; no counter goes on from one that can't be shown.
class Highest {
 public:
  void Take(std::int64_t number) {
    if (number <= kHighestNumber) highest_ = std::max(highest_, static_cast<std::int32_t>(number));
  }
  std::int32_t Get() const { return highest_; }

 private:
  std::int32_t highest_ = 0;
};

template <class RecordType>
std::int32_t HighestOf(ShopView& shop, std::string_view file, LongField field) {
  Highest highest;
  for (const RecordType& record : shop.flat.Records<RecordType>(file)) highest.Take(record.Get(field));
  return highest.Get();
}

template <class Tag>
void TakeTags(ShopView& shop, std::string_view file, Highest& highest) {
  for (const Tag& tag : shop.flat.Records<Tag>(file)) {
    if (LooksLikeATag(tag)) highest.Take(tag.Get(wotag::WorkorderNumber));
  }
}

std::int32_t HighestWorkorder(ShopView& shop) {
  Highest highest;
  TakeTags<ActiveWoTag>(shop, kActiveTagFile, highest);
  TakeTags<ArchivedWoTag>(shop, kArchivedTagFile, highest);
  return highest.Get();
}

std::int32_t HighestEstimate(ShopView& shop) {
  Highest highest;
  for (const EstimateRows::Estimate& estimate : shop.Estimates().estimates) highest.Take(estimate.number);
  return highest.Get();
}

}  // namespace

void FindCounters(ShopView& shop, const Tell& tell) {
  const auto system = shop.flat.Records<SystemRecord>(kSystemFile);
  if (system.empty()) return;
  struct Counter {
    const char* name;
    LongField field;
    std::int32_t highest;
  };
  const Counter counters[] = {
      {"last_workorder_number", sysrec::last_workorder_number, HighestWorkorder(shop)},
      {"last_estimate_number", sysrec::last_estimate_number, HighestEstimate(shop)},
      {"last_customer_number", sysrec::last_customer_number,
       HighestOf<CustomerTag>(shop, kCustomerTagFile, customertag::Number)},
      {"last_employee_number", sysrec::last_employee_number,
       HighestOf<EmployeeRecord>(shop, kEmployeeFile, employee::EmpNumber)},
  };
  for (const Counter& counter : counters) {
    const std::int32_t next = system.front().Get(counter.field);
    if (next > counter.highest && next > 0) continue;
    tell({std::string(kSystemFile),
          "",
          counter.name,
          fmt::format("it hands out {:06} next, and {:06} is given already", next, counter.highest),
          {fmt::format("it hands out {:06} next from here on", counter.highest + 1),
           {{std::string(kSystemFile), counter.field.offset, LongBytes(counter.highest + 1)}}}});
  }
}

}  // namespace lantos
