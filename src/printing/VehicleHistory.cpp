#include "printing/VehicleHistory.h"

#include "frame/Text.h"
#include "printing/ReportDesigns.h"
#include "printing/ShowReport.h"
#include "printing/VehicleSummary.h"
#include "records/modSystem.h"

namespace lantos {

namespace {

constexpr const char* kTitle = "Vehicle History by VIN";
constexpr VehicleSummary::Extent kExtent{3, 8};  // years, and all lines of each labor

}  // namespace

bool VehicleHistoryReport(Shop& shop, std::string_view vin, const std::string& vehicle) {
  const std::string wanted = Trim(vin);
  if (wanted.empty()) return false;
  ReportLines lines(ReportLines::Amounts::None);
  VehicleSummary(shop.environment, shop.desktop, shop.records).ComposeWorkorders(wanted, kExtent, lines);
  if (lines.Rows().empty()) return false;
  ui::Report report{GenericDesign(), kTitle, lines.Rows(), lines.Kinds()};
  report.design.caption = kTitle;  // its window has a place of its own
  report.design.wraps = true;      // notes are of any length
  report.SetLabel("lblCompanyName", shop.records.system.SysRec.Get(sysrec::company_name));
  report.SetLabel("lblReportName", kTitle);
  report.SetLabel("lblHeading1", "VIN: " + wanted);
  report.SetLabel("lblHeading2", vehicle);
  ShowReport(shop.desktop, shop.environment, report, PaperWay::Preview);
  return true;
}

}  // namespace lantos
