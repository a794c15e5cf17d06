#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "printing/ReportLines.h"
#include "records/CheckList.h"
#include "records/Record.h"
#include "workorders/Workorders.h"

namespace lantos {

// What was done to a vehicle in the last years: its work orders, newest first, the active ones before the archived.
// Only the tags that belong to it lead to a text.
class VehicleSummary {
 public:
  VehicleSummary(Environment& environment, ui::Desktop& desktop, Records& records);

  // Under a heading, as far as the print options want it.
  void Compose(std::string_view vin, ReportLines& lines);

  // The work orders alone, of so many calendar years up to today, by the exact VIN, which isn't blank. Of each labor so
  // many lines at most, and the first one always. One box at the end tells the check list entries that the work orders
  // name and the shop hasn't any more.
  struct Extent {
    int years = 0;
    int laborLines = 0;
  };
  void ComposeWorkorders(std::string_view vin, Extent extent, ReportLines& lines);

 private:
  void PrintWorkorder(FileDate date, int laborLines, ReportLines& lines) const;

  Environment& environment_;
  ui::Desktop& desktop_;
  // Past work orders are read into places of their own: the current one and its check list stay as they are.
  CheckListTable checkList_;
  Workorders workorders_;
  std::vector<std::string> unknown_;  // names of entries, each once
};

}  // namespace lantos
