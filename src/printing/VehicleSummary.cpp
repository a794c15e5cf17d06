#include "printing/VehicleSummary.h"

#include <algorithm>
#include <utility>

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "records/Customers.h"
#include "records/Vehicles.h"
#include "workorders/TagScan.h"

namespace lantos {

namespace {

constexpr const char* kNotesRule = "*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*";
constexpr const char* kNotesHeading = "*-*-*-*-*-*-*-*-*-*-*-*-*-* Workorder Notes *-*-*-*-*-*-*-*-*-*-*-*-*-*";

// The same day of an earlier year; of a year without that day the day before it.
DaySerial YearsBack(DaySerial day, int years) {
  CivilDate date = FromSerial(day);
  date.year = std::max(date.year - years, 100);
  if (!IsValid(date)) date.day = 28;
  return ToSerial(date);
}

}  // namespace

VehicleSummary::VehicleSummary(Environment& environment, ui::Desktop& desktop, Records& records)
    : environment_(environment),
      desktop_(desktop),
      checkList_(records.checkList),
      workorders_(environment, desktop, records, checkList_) {
  workorders_.onUnknownEntry = [this](const std::string& name) {
    if (std::find(unknown_.begin(), unknown_.end(), name) == unknown_.end()) unknown_.push_back(name);
  };
}

void VehicleSummary::Compose(std::string_view vin, ReportLines& lines) {
  lines.AddHeading("***** Vehicle Summary *****");
  lines.AddBlank();
  const PrintOptions& options = environment_.printOptions;
  ComposeWorkorders(vin, {options.VehSummaryYears, options.VehSummaryLaborLines}, lines);
}

void VehicleSummary::ComposeWorkorders(std::string_view vin, Extent extent, ReportLines& lines) {
  const DaySerial today = environment_.Today();
  const TagScan scan(environment_, workorders_);
  const TagScan::Wanted wanted{vin, ToFileDate(YearsBack(today, extent.years)), ToFileDate(today)};
  for (const ActiveWoTag& tag : scan.Active(wanted)) {
    workorders_.CurrentActiveTag = tag;
    if (workorders_.GetCurrWoRec()) PrintWorkorder(DayOf(tag), extent.laborLines, lines);
  }
  for (const ArchivedWoTag& tag : scan.Archived(wanted, "cmdPrintWorksheet")) {
    const FileLink offset = tag.Get(wotag::MasterOffset);
    if (offset == kNoLink) continue;  // active still, and printed above
    if (!workorders_.GetArchWo(tag.Get(wotag::WorkorderNumber), offset)) continue;
    PrintWorkorder(DayOf(tag), extent.laborLines, lines);
  }
  TellUnknownEntries(desktop_, std::exchange(unknown_, {}));
}

void VehicleSummary::PrintWorkorder(FileDate date, int laborLines, ReportLines& lines) const {
  const Workorder& order = workorders_.Current;
  lines.AddLeading("Workorder: " + FormatZeros(order.WorkorderNumber, 6) + " " + FormatDate(FromFileDate(date)) +
                   " Mileage: " + std::to_string(order.Vehicle.Get(vehicle::Mileage)) + " Customer: " +
                   order.Customer.Get(customer::Lastname) + ", " + order.Customer.Get(customer::Firstname));
  order.Labor.ForEach([&](const WoLaborLine& labor) {
    for (std::size_t i = 0; i < labor.Desc.size(); ++i) {
      if (i == 0 || (static_cast<int>(i) < laborLines && !Trim(labor.Desc[i]).empty()))
        lines.Add("       " + labor.Desc[i]);
    }
  });
  bool any = false;
  for (const WoNote& note : order.Notes) {
    for (const std::string& line : note) {
      if (Trim(line).empty()) continue;
      if (!any) lines.Add(kNotesHeading);
      any = true;
      lines.Add(line);
    }
  }
  if (any) lines.Add(kNotesRule);
  lines.AddBlank();
}

}  // namespace lantos
