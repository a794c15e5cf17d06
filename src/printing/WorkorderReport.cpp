#include "printing/WorkorderReport.h"

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "printing/Letterhead.h"
#include "printing/PaperMargins.h"
#include "printing/PrintUtil.h"
#include "printing/ReportDesigns.h"
#include "printing/ShowReport.h"
#include "printing/WorkorderBody.h"
#include "records/Statements.h"

namespace lantos {

namespace {

constexpr const char* kNoDisclaimer =
    "***********************************\r\n"
    "* Disclaimer text file not found! *\r\n"
    "***********************************";

std::int64_t SubtotalOf(const WoTotals& totals, WoCategory category) {
  return totals.Get(wototals::Subtotal[static_cast<std::size_t>(category)]);
}

}  // namespace

ui::Report WorkorderReport::Make(const Workorder& order) const {
  const WorkorderBody body(order, environment_.shopOptions.PaymentMethodNames);
  ui::Report report{WorkorderDesign(), "Workorder " + std::to_string(order.WorkorderNumber), body.Lines().Rows(),
                    body.Lines().Kinds(), body.Frames()};
  report.margins = WorkorderMargins();
  SetLabels(report, order);
  SetTotals(report, order);
  report.SetLabel("lblDisclaimer", Disclaimer());
  return report;
}

void WorkorderReport::SetLabels(ui::Report& report, const Workorder& order) const {
  FillCompany(report, system_);
  FillCustomer(report, order.Customer);
  FillVehicle(report, order.Vehicle);
  FillPrintTime(report, environment_.clock.Now());
  const FileDate opened = order.Totals.Get(wototals::DateOpen);
  const std::string salesperson = Trim(order.Customer.Get(customer::salesperson));
  report.SetLabel("lblWONumber", std::to_string(order.WorkorderNumber));
  report.SetLabel("lblType", Trim(order.Type));
  report.SetLabel("lblDate", opened < 1 ? "Unknown" : FormatDate(FromFileDate(opened)));
  report.SetLabel("lblStatus", Trim(order.Status));
  report.SetLabel("lblMechNumber", salesperson.empty() ? "None" : salesperson);
  report.SetLabel("Label5", environment_.fleetVersion ? "Unit #" : "License");
}

void WorkorderReport::SetTotals(ui::Report& report, const Workorder& order) {
  const WoTotals& totals = order.Totals;
  const auto set = [&report](const char* label, std::int64_t cents) {
    report.SetLabel(label, FormatHundredths(cents));
  };
  set("lblTotalLabor", SubtotalOf(totals, WoCategory::Labor));
  set("lblTotalParts", SubtotalOf(totals, WoCategory::Parts));
  set("lblTotalSublet", SubtotalOf(totals, WoCategory::Sublet) + SubtotalOf(totals, WoCategory::NonTaxSublet));
  set("lblTotalWaste", SubtotalOf(totals, WoCategory::Waste) + SubtotalOf(totals, WoCategory::NonTaxWaste));
  set("lblTotalTax", totals.Get(wototals::WorkorderTax));
  set("lblTotal", totals.Get(wototals::WorkorderTotal));
  set("lblBalance", BalanceOf(order));
}

std::string WorkorderReport::Disclaimer() const {
  const bool isThere = environment_.files.FileExists(kWorkorderDisclaimer);
  return isThere ? ReadStatement(environment_, kWorkorderDisclaimer) : kNoDisclaimer;
}

void PrintWorkorder(Shop& shop, const Workorders& workorders) {
  const ui::Report report = WorkorderReport(shop.environment, shop.records.system.SysRec).Make(workorders.Current);
  PrintUtil printer(shop.desktop, report.design.name, report.title);
  printer.BeginPrintJob();
  ShowReport(shop.desktop, shop.environment, report, PaperWay::Preview);
  printer.EndPrintJob();
}

}  // namespace lantos
