#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "board/DayCapacityDatabase.h"
#include "frame/Text.h"
#include "records/Customers.h"
#include "records/Fixture.h"
#include "workorders/Workorders.h"

namespace lantos::test {

using Rows = std::vector<std::vector<std::string>>;

inline std::string LabelOf(const ui::Report& report, std::string_view name) {
  for (const ui::ReportLabel& label : report.design.labels) {
    if (label.name == name) return label.text;
  }
  ADD_FAILURE() << report.design.name << " has no label " << name;
  return "";
}

// Estimate 1001 of today, with a disclaimer in the directory. The clock stands at 8:15 on Tuesday, 30 September 2003.
struct PrintingBench : BoardShop {
  PrintingBench() {
    directory.Put("DISCLAIM.TXT", "As is.");
    MakeCurrent(1001, Today(), 0);
  }

  PrintOptions& Options() { return environment.printOptions; }
  Workorders workorders{environment, desktop, records};
  CustomerRecord customer;
};

}  // namespace lantos::test
