#include "printing/ReportDesigns.h"

namespace lantos {

namespace {

using ui::Align;
using ui::Band;
using ui::ReportDesign;
using ui::ReportLabel;

constexpr double kRow = 13;  // points from line to line of a block of labels
constexpr double kMiddle = 0.5;
constexpr double kInset = 0.012;
constexpr double kWritingLine = 20;  // seven millimeters and a bit, for a pen

enum class Weight { Plain, Bold };

ReportLabel Text(double left, double top, double width, std::string text, double size = 9,
                 Weight weight = Weight::Plain, Align align = Align::Left, Band band = Band::PageHeader) {
  return {"", band, left, top, width, size, align, weight == Weight::Bold, false, std::move(text)};
}

ReportLabel Field(std::string name, double left, double top, double width, double size = 9,
                  Weight weight = Weight::Plain, Align align = Align::Left, Band band = Band::PageHeader) {
  return {std::move(name), band, left, top, width, size, align, weight == Weight::Bold, false, ""};
}

void Add(ReportDesign& design, std::initializer_list<ReportLabel> labels) {
  design.labels.insert(design.labels.end(), labels);
}

// A caption and the field behind it.
void AddPair(ReportDesign& design, const std::string& caption, const std::string& name, double left, double top,
             double captionWidth, double fieldWidth) {
  Add(design, {Text(left, top, captionWidth, caption, 8), Field(name, left + captionWidth, top, fieldWidth)});
}

constexpr double kBlockHeight = 5 * kRow + 8;

void AddCustomerBlock(ReportDesign& design, double top) {
  double row = top + 4;
  for (const char* name : {"lblCustName", "lblSpouse", "lblAddress", "lblCSZ", "lblPhone"}) {
    Add(design, {Field(name, kInset, row, kMiddle - 2 * kInset, 9, row == top + 4 ? Weight::Bold : Weight::Plain)});
    row += kRow;
  }
}

// The caption of the licence has a name of its own where it is another one in a fleet shop.
void AddVehicleRows(ReportDesign& design, double left, double top, double blockWidth, const char* license = "") {
  constexpr double kCaption = 0.09;
  const double width = blockWidth - 2 * kInset;
  Add(design, {Field("lblMake", left + kInset, top + 4, width, 9, Weight::Bold),
               Field("lblEngTran", left + kInset, top + 4 + kRow, width)});
  AddPair(design, "VIN", "lblVIN", left + kInset, top + 4 + 2 * kRow, kCaption, width - kCaption);
  AddPair(design, "License", "lblLic", left + kInset, top + 4 + 3 * kRow, kCaption, width - kCaption);
  (design.labels.end() - 2)->name = license;
}

constexpr double kCompanyHeight = 86;

void AddCompany(ReportDesign& design) {
  Add(design, {Field("lblCompanyName", 0, 0, 0.64, 14, Weight::Bold), Field("lblCompanyName2", 0, 19, 0.64, 10),
               Field("lblCompanyAddress", 0, 32, 0.64), Field("lblCompanyCSZ", 0, 44, 0.64),
               Field("lblCompanyPhone", 0, 56, 0.64), Field("lblCompanyTaxID", 0, 69, 1, 7.5)});
}

constexpr double kTotalsLeft = 0.66;

void AddTotal(ReportDesign& design, double row, const char* caption, const char* name, Weight weight) {
  Add(design, {Text(kTotalsLeft + kInset, row, 0.14, caption, 9, weight, Align::Left, Band::ReportFooter),
               Field(name, kTotalsLeft + 0.14, row, 0.2 - kInset, 9, weight, Align::Right, Band::ReportFooter)});
}

// Behind all that stands in the footer.
void AddDisclaimer(ReportDesign& design) {
  ReportLabel disclaimer =
      Field("lblDisclaimer", 0, design.footerHeight, 1, 8, Weight::Plain, Align::Left, Band::ReportFooter);
  disclaimer.grows = true;
  design.labels.push_back(disclaimer);
}

constexpr double kStateHeight = kRow + 5;

// What became of the work order, in one row below customer and vehicle.
void AddWorkorderState(ReportDesign& design, double top) {
  design.boxes.push_back({Band::PageHeader, 0, top, 1, kStateHeight});
  const double row = top + 2.5;
  AddPair(design, "Type", "lblType", kInset, row, 0.05, 0.14);
  AddPair(design, "Status", "lblStatus", 0.21, row, 0.06, 0.13);
  AddPair(design, "Salesperson", "lblMechNumber", 0.41, row, 0.10, 0.24);
  AddPair(design, "Printed", "lblPrintDate", 0.745, row, 0.065, 0.10);
  Add(design, {Field("lblPrintTime", 0.88, row, 0.12 - kInset, 9, Weight::Plain, Align::Right)});
}

void AddWorkorderTotals(ReportDesign& design) {
  constexpr double kTop = 6, kGap = 3;
  double row = kTop + 4;
  for (const auto& [caption, name] : {std::pair{"Labor", "lblTotalLabor"},
                                      {"Parts", "lblTotalParts"},
                                      {"Sublets", "lblTotalSublet"},
                                      {"Waste/Misc", "lblTotalWaste"},
                                      {"Tax", "lblTotalTax"}}) {
    AddTotal(design, row, caption, name, Weight::Plain);
    row += kRow;
  }
  for (const auto& [caption, name] : {std::pair{"Total", "lblTotal"}, {"Balance", "lblBalance"}}) {
    design.boxes.push_back({Band::ReportFooter, kTotalsLeft, row + kGap - 2, 1 - kTotalsLeft, 0});
    AddTotal(design, row + kGap, caption, name, Weight::Bold);
    row += kRow + kGap;
  }
  design.boxes.push_back({Band::ReportFooter, kTotalsLeft, kTop, 1 - kTotalsLeft, row - kTop});
  design.footerHeight = row + 12;
}

}  // namespace

ReportDesign EstimateDesign(EstimatePaper paper) {
  const bool withDisclosure = paper == EstimatePaper::WithDisclosure;
  ReportDesign design;
  design.name = withDisclosure ? "rptEstimate2" : "rptEstimate";
  design.caption = "Estimate";
  constexpr double kBlockTop = kCompanyHeight;
  AddCompany(design);
  Add(design, {Text(0.64, 0, 0.36, "ESTIMATE", 16, Weight::Bold, Align::Right)});
  double row = 22;
  for (const auto& [caption, name] : {std::pair{"Estimate #", "lblWONumber"}, {"Scheduled", "lblDate"}}) {
    Add(design, {Text(0.66, row, 0.18, caption, 8, Weight::Plain, Align::Right),
                 Field(name, 0.85, row, 0.15, 9, Weight::Bold, Align::Right)});
    row += kRow;
  }
  Add(design, {Text(0.60, row, 0.15, "Printed", 8, Weight::Plain, Align::Right),
               Field("lblPrintDate", 0.75, row, 0.13, 8, Weight::Plain, Align::Right),
               Field("lblPrintTime", 0.88, row, 0.12, 8, Weight::Plain, Align::Right)});
  design.boxes = {{Band::PageHeader, 0, kBlockTop, kMiddle - 0.005, kBlockHeight},
                  {Band::PageHeader, kMiddle + 0.005, kBlockTop, kMiddle - 0.005, kBlockHeight}};
  AddCustomerBlock(design, kBlockTop);
  AddVehicleRows(design, kMiddle + 0.005, kBlockTop, kMiddle - 0.005);
  AddPair(design, "Mileage", "lblMileage", kMiddle + 0.005 + kInset, kBlockTop + 4 + 4 * kRow, 0.09, 0.3);
  design.headerHeight = kBlockTop + kBlockHeight + 8;
  if (withDisclosure) {
    ReportLabel disclosure = Field("lblDisclosure", 0, design.headerHeight, 1, 8);
    disclosure.grows = true;
    design.labels.push_back(disclosure);
  }

  design.characters = 71;  // a number of a technician, a blank and a line of labor
  design.columns = {{"DataLine", 0, 0.66, Align::Left, "Description"},
                    {"Amt1", 0.66, 0.11, Align::Right, "Hours/Qty"},
                    {"Amt2", 0.77, 0.11, Align::Right, "Rate/Price"},
                    {"Amt3", 0.88, 0.12, Align::Right, "Total"}};

  row = 10;
  const auto total = [&](const char* caption, const char* name, Weight weight) {
    AddTotal(design, row, caption, name, weight);
    row += kRow;
  };
  total("Labor", "lblLabor", Weight::Plain);
  total("Parts", "lblParts", Weight::Plain);
  total("Sublets", "lblSublet", Weight::Plain);
  total("Waste", "lblWaste", Weight::Plain);
  total("Tax", "lblTax", Weight::Plain);
  row += 3;
  total("Total", "lblTotal", Weight::Bold);
  const double height = row - 4;
  design.boxes.push_back({Band::ReportFooter, kTotalsLeft, 6, 1 - kTotalsLeft, height});
  design.boxes.push_back({Band::ReportFooter, kTotalsLeft, row - kRow - 2, 1 - kTotalsLeft, 0});
  design.footerHeight = height + 18;
  AddDisclaimer(design);
  return design;
}

ReportDesign WorkorderDesign() {
  constexpr double kBlockTop = kCompanyHeight;
  ReportDesign design;
  design.name = "rptWorkorder";
  design.caption = "Workorder";
  AddCompany(design);
  Add(design, {Text(0.64, 0, 0.36, "WORK ORDER", 16, Weight::Bold, Align::Right)});
  double row = 24;
  for (const auto& [caption, name] : {std::pair{"Work Order #", "lblWONumber"}, {"Date", "lblDate"}}) {
    Add(design, {Text(0.62, row + 1, 0.2, caption, 8, Weight::Plain, Align::Right),
                 Field(name, 0.83, row, 0.17, 10, Weight::Bold, Align::Right)});
    row += kRow + 2;
  }
  design.boxes = {{Band::PageHeader, 0, kBlockTop, kMiddle - 0.005, kBlockHeight},
                  {Band::PageHeader, kMiddle + 0.005, kBlockTop, kMiddle - 0.005, kBlockHeight}};
  AddCustomerBlock(design, kBlockTop);
  AddVehicleRows(design, kMiddle + 0.005, kBlockTop, kMiddle - 0.005, "Label5");
  AddPair(design, "Mileage", "lblMileage", kMiddle + 0.005 + kInset, kBlockTop + 4 + 4 * kRow, 0.09, 0.3);
  AddWorkorderState(design, kBlockTop + kBlockHeight + 5);
  design.headerHeight = kBlockTop + kBlockHeight + 5 + kStateHeight + 6;

  // What a part number, a line of 44 characters and amounts of 32 bits take; longer lines go on below.
  design.characters = 44;
  design.wraps = true;
  design.aboveHeading = 7;
  design.columns = {{"DataLine", 0.183, 0.386, Align::Left, ""}, {"Num", 0, 0.18, Align::Left, ""},
                    {"Qty", 0.569, 0.097, Align::Right, ""},     {"Prc", 0.666, 0.1055, Align::Right, ""},
                    {"Lst", 0.7715, 0.1055, Align::Right, ""},   {"Ext", 0.877, 0.123, Align::Right, ""}};
  AddWorkorderTotals(design);
  AddDisclaimer(design);
  return design;
}

ReportDesign WorksheetDesign(WorksheetPaper paper) {
  const bool withCustomer = paper == WorksheetPaper::WithCustomer;
  ReportDesign design;
  design.name = withCustomer ? "rptWorksheet2" : "rptWorksheet1";
  design.caption = withCustomer ? "Technician Worksheet" : "Mechanic Worksheet";
  Add(design, {Field("lblCompanyName", 0, 0, 0.6, 12, Weight::Bold),
               Text(0.6, 0, 0.4, design.caption, 13, Weight::Bold, Align::Right),
               Text(0.66, 19, 0.18, "Estimate #", 8, Weight::Plain, Align::Right),
               Field("lblWONumber", 0.85, 19, 0.15, 10, Weight::Bold, Align::Right),
               Text(0.66, 19 + kRow, 0.18, "Scheduled", 8, Weight::Plain, Align::Right),
               Field("lblDate", 0.85, 19 + kRow, 0.15, 9, Weight::Bold, Align::Right)});
  constexpr double kTop = 48;
  const double vehicleLeft = withCustomer ? kMiddle + 0.005 : 0;
  const double vehicleWidth = withCustomer ? kMiddle - 0.005 : 1;
  AddVehicleRows(design, vehicleLeft, kTop, vehicleWidth);
  const double row = kTop + 4 + 4 * kRow;
  AddPair(design, "Last seen", "lblLastSeen", vehicleLeft + kInset, row, 0.09, 0.13);
  AddPair(design, "at", "lblLastMiles", vehicleLeft + kInset + 0.22, row, 0.03, 0.2);
  design.boxes.push_back({Band::PageHeader, vehicleLeft, kTop, vehicleWidth, kBlockHeight});
  if (withCustomer) {
    AddCustomerBlock(design, kTop);
    design.boxes.push_back({Band::PageHeader, 0, kTop, kMiddle - 0.005, kBlockHeight});
  }
  design.headerHeight = kTop + kBlockHeight + 8;
  design.characters = 101;  // the rule for the hours of a technician
  design.wraps = true;      // comments are of any length
  design.ruleHeight = kWritingLine;
  design.aboveHeading = 9;
  design.columns = {{"DataLine", 0, 1, Align::Left, ""}};
  return design;
}

ReportDesign DayViewDesign() {
  ReportDesign design;
  design.name = "rptDayView";
  design.caption = "Day View";
  design.orientation = ui::Orientation::Landscape;
  Add(design, {Text(0, 0, 0.5, "Day View", 14, Weight::Bold), Field("lblCompanyName", 0, 19, 0.5, 9),
               Field("lblHeading1", 0.5, 2, 0.5, 11, Weight::Bold, Align::Right)});
  design.boxes = {{Band::PageHeader, 0, 34, 1, 0}};
  design.headerHeight = 40;
  design.characters = 122;  // a main line of the day list
  design.wraps = true;      // with its comments
  design.columns = {{"DataLine", 0, 1, Align::Left, ""}};
  return design;
}

ReportDesign GenericDesign() {
  ReportDesign design;
  design.name = "rptGeneric";
  design.caption = "Report";
  Add(design, {Field("lblCompanyName", 0, 0, 0.6, 12, Weight::Bold),
               Field("lblReportName", 0.4, 0, 0.6, 12, Weight::Bold, Align::Right), Field("lblHeading1", 0, 20, 0.6, 9),
               Field("lblHeading2", 0.4, 20, 0.6, 9, Weight::Plain, Align::Right)});
  design.boxes = {{Band::PageHeader, 0, 36, 1, 0}};
  design.headerHeight = 42;
  design.characters = 100;
  design.columns = {{"DataLine", 0, 1, Align::Left, ""}};
  return design;
}

}  // namespace lantos
