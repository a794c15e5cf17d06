#include <algorithm>

#include "printing/PrintingBench.h"
#include "printing/ReportDesigns.h"
#include "printing/ReportLines.h"
#include "printing/ShowReport.h"

namespace lantos {
namespace {

using test::Rows;

std::vector<std::string> ColumnsOf(const ui::ReportDesign& design) {
  std::vector<std::string> names;
  for (const ui::ReportColumn& column : design.columns) names.push_back(column.name);
  return names;
}

const ui::ReportLabel* Find(const ui::ReportDesign& design, std::string_view name) {
  const auto found = std::find_if(design.labels.begin(), design.labels.end(),
                                  [name](const ui::ReportLabel& label) { return label.name == name; });
  return found == design.labels.end() ? nullptr : &*found;
}

// Whether the label stands in that band of the design.
bool StandsIn(const ui::ReportDesign& design, std::string_view name, ui::Band band) {
  const ui::ReportLabel* label = Find(design, name);
  return label != nullptr && label->band == band;
}

TEST(ReportLines, AreCutAtTheWidthOfTheirColumns) {
  ReportLines lines(ReportLines::Amounts::Three);
  lines.Add(std::string(256, 'x'), std::string(21, '1'), std::string(20, '2'), "");
  EXPECT_EQ(lines.Rows(), (Rows{{std::string(255, 'x'), std::string(20, '1'), std::string(20, '2'), ""}}));
}

TEST(ReportLines, AmountsThatAreNotNamedAreABlank) {
  ReportLines lines(ReportLines::Amounts::Three);
  lines.Add("____Labor____");
  lines.AddBlank();
  EXPECT_EQ(lines.Rows(), (Rows{{"____Labor____", " ", " ", " "}, {" ", " ", " ", " "}}));
}

TEST(ReportLines, ARowHasAllItsColumnsAndNoMore) {
  ReportLines lines(ReportLines::Amounts::Five);
  lines.AddRow(ui::LineKind::Across, "text");
  lines.AddRow(ui::LineKind::Heading, std::string(256, 'x'), {"1", std::string(21, '2'), "3", "4", "5", "6"});
  EXPECT_EQ(lines.Rows(),
            (Rows{{"text", "", "", "", "", ""}, {std::string(255, 'x'), "1", std::string(20, '2'), "3", "4", "5"}}));
  EXPECT_EQ(lines.Kinds(), (std::vector<ui::LineKind>{ui::LineKind::Across, ui::LineKind::Heading}));
}

TEST(ReportLines, WithoutAmountsHaveOneColumn) {
  ReportLines lines(ReportLines::Amounts::None);
  lines.Add("text", "1", "2", "3");
  lines.AddBlank();
  EXPECT_EQ(lines.Rows(), (Rows{{"text"}, {" "}}));
}

TEST(ReportDesigns, HaveTheirNamesCaptionsAndFields) {
  const std::vector<std::string> amounts = {"DataLine", "Amt1", "Amt2", "Amt3"}, line = {"DataLine"},
                                 five = {"DataLine", "Num", "Qty", "Prc", "Lst", "Ext"};
  struct Wanted {
    ui::ReportDesign design;
    std::string name, caption;
    std::vector<std::string> columns;
  };
  for (const Wanted& wanted :
       {Wanted{EstimateDesign(EstimatePaper::Plain), "rptEstimate", "Estimate", amounts},
        Wanted{EstimateDesign(EstimatePaper::WithDisclosure), "rptEstimate2", "Estimate", amounts},
        Wanted{WorksheetDesign(WorksheetPaper::Plain), "rptWorksheet1", "Mechanic Worksheet", line},
        Wanted{WorksheetDesign(WorksheetPaper::WithCustomer), "rptWorksheet2", "Technician Worksheet", line},
        Wanted{WorkorderDesign(), "rptWorkorder", "Workorder", five},
        Wanted{GenericDesign(), "rptGeneric", "Report", line},
        Wanted{DayViewDesign(), "rptDayView", "Day View", line}}) {
    EXPECT_EQ(wanted.design.name, wanted.name);
    EXPECT_EQ(wanted.design.caption, wanted.caption);
    EXPECT_EQ(ColumnsOf(wanted.design), wanted.columns) << wanted.name;
  }
}

TEST(ReportDesigns, TotalsAndDisclaimerStandBehindTheLinesAndTheDisclosureAhead) {
  for (const EstimatePaper paper : {EstimatePaper::Plain, EstimatePaper::WithDisclosure}) {
    const ui::ReportDesign design = EstimateDesign(paper);
    for (const char* name : {"lblLabor", "lblParts", "lblSublet", "lblWaste", "lblTax", "lblTotal", "lblDisclaimer"}) {
      EXPECT_TRUE(StandsIn(design, name, ui::Band::ReportFooter)) << name;
    }
    EXPECT_TRUE(StandsIn(design, "lblCompanyName", ui::Band::PageHeader));
    EXPECT_EQ(StandsIn(design, "lblDisclosure", ui::Band::PageHeader), paper == EstimatePaper::WithDisclosure);
  }
}

TEST(ReportDesigns, AWorkOrderHasItsTotalsAndDisclaimerBehindTheLines) {
  const ui::ReportDesign design = WorkorderDesign();
  for (const char* name : {"lblTotalLabor", "lblTotalParts", "lblTotalSublet", "lblTotalWaste", "lblTotalTax",
                           "lblTotal", "lblBalance", "lblDisclaimer"}) {
    EXPECT_TRUE(StandsIn(design, name, ui::Band::ReportFooter)) << name;
  }
  for (const char* name :
       {"lblCompanyName", "lblCompanyName2", "lblCompanyAddress", "lblCompanyCSZ", "lblCompanyPhone", "lblCompanyTaxID",
        "lblPrintDate",   "lblPrintTime",    "lblCustName",       "lblSpouse",     "lblAddress",      "lblCSZ",
        "lblPhone",       "lblMake",         "lblEngTran",        "lblVIN",        "lblLic",          "lblMileage",
        "lblWONumber",    "lblType",         "lblDate",           "lblStatus",     "lblMechNumber",   "Label5"}) {
    EXPECT_TRUE(StandsIn(design, name, ui::Band::PageHeader)) << name;
  }
}

TEST(ReportDesigns, ACaptionIsSetByTheNameOfItsLabel) {
  ui::Report report{GenericDesign(), "Report", {}};
  for (const char* name : {"lblCompanyName", "lblReportName", "lblHeading1", "lblHeading2"}) {
    report.SetLabel(name, name);
    EXPECT_EQ(test::LabelOf(report, name), name);
  }
  EXPECT_THROW(report.SetLabel("lblTotal", ""), std::logic_error);
}

class ShownReport : public testing::Test, protected test::TestShop {
 protected:
  ui::Report report{GenericDesign(), "Some title", {}};
};

TEST_F(ShownReport, WithPreviewItIsShownAndItsPlaceKept) {
  desktop.movePreviewTo = ui::ControlPlace{1, 2, 3, 4, 0};
  ShowReport(desktop, environment, report, PaperWay::Preview);
  EXPECT_EQ(desktop.previews.size(), 1u);
  EXPECT_TRUE(desktop.printed.empty());
  EXPECT_EQ(Setting("Report Top"), "1");
  EXPECT_EQ(Setting("Report Left"), "2");
  EXPECT_EQ(Setting("Report Width"), "3");
  EXPECT_EQ(Setting("Report Height"), "4");
  EXPECT_EQ(Setting("Report State"), "0");
}

TEST_F(ShownReport, LeftMaximizedItKeepsItsStateAlone) {
  settings.Save("Report Top", "600");
  desktop.movePreviewTo = ui::ControlPlace{1, 2, 3, 4, 2};
  ShowReport(desktop, environment, report, PaperWay::Preview);
  EXPECT_EQ(Setting("Report State"), "2");
  EXPECT_EQ(Setting("Report Top"), "600");
}

TEST_F(ShownReport, WithoutPreviewItIsPrintedThroughTheDialogWhereTheShopWantsThat) {
  environment.printOptions.ShowPrinterDialog = true;
  ShowReport(desktop, environment, report, PaperWay::Printer);
  EXPECT_EQ(desktop.printerDialogs, 1);
  environment.printOptions.ShowPrinterDialog = false;
  ShowReport(desktop, environment, report, PaperWay::Printer);
  EXPECT_EQ(desktop.printerDialogs, 1);
  EXPECT_EQ(desktop.printed.size(), 2u);
  EXPECT_TRUE(desktop.previews.empty());
}

}  // namespace
}  // namespace lantos
