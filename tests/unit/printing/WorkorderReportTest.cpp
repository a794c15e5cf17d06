#include "printing/WorkorderReport.h"

#include <algorithm>
#include <filesystem>

#include "printing/PaperMargins.h"
#include "printing/WorkorderBench.h"
#include "records/modSystem.h"

namespace lantos {
namespace {

using test::LabelOf;
using test::WorkorderOnPaper;

TEST_F(WorkorderOnPaper, HasThePrintStyleThree) { EXPECT_EQ(WorkorderPrintStyle(), 3); }

TEST_F(WorkorderOnPaper, IsShownWithAPlaceOfItsOwnAndNothingElseIsPrinted) {
  desktop.movePreviewTo = ui::ControlPlace{1, 2, 3, 4, 0};
  PrintWorkorder(shop, workorders);
  ASSERT_EQ(desktop.previews.size(), 1U);
  EXPECT_EQ(desktop.previews[0].design.name, "rptWorkorder");
  EXPECT_EQ(desktop.previews[0].title, "Workorder 4711");
  EXPECT_TRUE(desktop.printed.empty());
  EXPECT_EQ(Setting("Workorder Width"), "3");
}

TEST_F(WorkorderOnPaper, BearsTheShopTheCustomerAndTheVehicle) {
  records.system.SysRec.Put(sysrec::company_name, "Miller's Garage");
  records.system.SysRec.Put(sysrec::company_phone1, "937-555-0100");
  records.system.SysRec.Put(sysrec::fed_id_number, "12-345");
  order.Customer.Put(customer::Firstname, "Beth");
  order.Customer.Put(customer::Lastname, "Adams");
  order.Customer.Put(customer::City, "Dayton");
  order.Customer.Put(customer::State, "OH");
  order.Customer.Put(customer::Zip, "45402");
  order.Vehicle.Put(vehicle::Year, "1999");
  order.Vehicle.Put(vehicle::Make, "Ford");
  order.Vehicle.Put(vehicle::Model, "Focus");
  order.Vehicle.Put(vehicle::EngineSize, "2.0L");
  order.Vehicle.Put(vehicle::Transmission, "Auto");
  order.Vehicle.Put(vehicle::VIN, "1FAFP");
  order.Vehicle.Put(vehicle::LicenseNumber, "ABC 123");
  order.Vehicle.Put(vehicle::Mileage, 51234);
  const ui::Report report = Make();
  const std::vector<std::pair<const char*, const char*>> labels = {{"lblCompanyName", "Miller's Garage"},
                                                                   {"lblCompanyPhone", "937-555-0100"},
                                                                   {"lblCompanyTaxID", "Federal ID Number: 12-345"},
                                                                   {"lblCustName", "Beth Adams"},
                                                                   {"lblCSZ", "Dayton, OH 45402"},
                                                                   {"lblMake", "1999 Ford Focus"},
                                                                   {"lblEngTran", "2.0L Auto"},
                                                                   {"lblVIN", "1FAFP"},
                                                                   {"lblLic", "ABC 123"},
                                                                   {"lblMileage", "51234"},
                                                                   {"lblWONumber", "4711"},
                                                                   {"lblType", "Repair"},
                                                                   {"lblDate", "09/30/2003"},
                                                                   {"lblStatus", "OPEN"},
                                                                   {"lblMechNumber", "None"},
                                                                   {"lblPrintDate", "09/30/2003"},
                                                                   {"lblPrintTime", "08:15 AM"},
                                                                   {"Label5", "License"},
                                                                   {"lblDisclaimer", "As is."}};
  for (const auto& [name, text] : labels) EXPECT_EQ(LabelOf(report, name), text) << name;
}

TEST_F(WorkorderOnPaper, SaysWhatIsUnknown) {
  order.Totals.Put(wototals::DateOpen, 0);
  order.Customer.Put(customer::salesperson, "  ");
  EXPECT_EQ(LabelOf(Make(), "lblDate"), "Unknown");
  EXPECT_EQ(LabelOf(Make(), "lblMechNumber"), "None");
  order.Totals.Put(wototals::DateOpen, -1);
  order.Customer.Put(customer::salesperson, "KIM JONES");
  EXPECT_EQ(LabelOf(Make(), "lblDate"), "Unknown");
  EXPECT_EQ(LabelOf(Make(), "lblMechNumber"), "KIM JONES");
}

TEST_F(WorkorderOnPaper, AFleetShopHasUnits) {
  environment.fleetVersion = true;
  EXPECT_EQ(LabelOf(Make(), "Label5"), "Unit #");
}

TEST_F(WorkorderOnPaper, TheTotalsOfSubletsAndWasteHaveWhatIsNotTaxedToo) {
  const Cents subtotals[] = {100, 200, 300, 400, 5000, 60000};
  for (std::size_t i = 0; i < std::size(subtotals); ++i) order.Totals.Put(wototals::Subtotal[i], subtotals[i]);
  order.Totals.Put(wototals::WorkorderTax, 70);
  SetTotal(66070);
  order.AmountDue = 123;
  const ui::Report report = Make();
  EXPECT_EQ(LabelOf(report, "lblTotalParts"), "1.00");
  EXPECT_EQ(LabelOf(report, "lblTotalLabor"), "2.00");
  EXPECT_EQ(LabelOf(report, "lblTotalSublet"), "53.00");
  EXPECT_EQ(LabelOf(report, "lblTotalWaste"), "604.00");
  EXPECT_EQ(LabelOf(report, "lblTotalTax"), "0.70");
  EXPECT_EQ(LabelOf(report, "lblTotal"), "660.70");
  EXPECT_EQ(LabelOf(report, "lblBalance"), "1.23");
  for (std::size_t i = 0; i < 6; ++i) order.Totals.Put(wototals::Subtotal[i], 2147483647);
  EXPECT_EQ(LabelOf(Make(), "lblTotalSublet"), "42949672.94");
}

TEST_F(WorkorderOnPaper, TheDisclaimerIsPrintedAsItsFileHasIt) {
  directory.Put("DISCLAIM.TXT", "1. Parts\r\n   are sold as they are.\r\n");
  EXPECT_EQ(LabelOf(Make(), "lblDisclaimer"), "1. Parts\r\n   are sold as they are.");
  directory.Put("DISC_EST.TXT", "Of estimates alone.");
  EXPECT_EQ(LabelOf(Make(), "lblDisclaimer").substr(0, 8), "1. Parts");
}

TEST_F(WorkorderOnPaper, AMissingDisclaimerIsToldInThreeLinesAndStopsNothing) {
  std::filesystem::remove(directory / "DISCLAIM.TXT");
  EXPECT_EQ(LabelOf(Make(), "lblDisclaimer"),
            "***********************************\r\n"
            "* Disclaimer text file not found! *\r\n"
            "***********************************");
}

TEST_F(WorkorderOnPaper, ADisclaimerThatSomebodyHoldsIsAnError) {
  const SharedFile held(directory / "DISCLAIM.TXT", Access::ReadWrite, Deny::All);
  EXPECT_THROW(Make(), FileError);
}

// The paper is read off the order, which stays as it is.
TEST_F(WorkorderOnPaper, NothingOfTheWorkOrderIsChanged) {
  SetTotal(100);
  SetMethod("Split");
  AddSplit(0, "Cash", 50, 0);
  order.Parts.Add({"PAD-9", "PADS", 2, 1, 2, 3});
  const WoTotals totals = order.Totals;
  PrintWorkorder(shop, workorders);
  EXPECT_TRUE(std::ranges::equal(order.Totals.Bytes(), totals.Bytes()));
  EXPECT_EQ(order.Parts.Size(), 2U);
  EXPECT_EQ(order.AmountDue, 50);
}

// The main application's settings lie in the current directory.
class MarginsOfWorkorders : public WorkorderOnPaper {
 protected:
  MarginsOfWorkorders() { std::filesystem::current_path(directory.Path()); }
  ~MarginsOfWorkorders() override { std::filesystem::current_path(before_); }
  void Put(const std::string& top, const std::string& left, const char* name = "Korvel.ini") {
    directory.Put(name, "[Printer Setup]\r\nWOTopMargin=" + top + "\r\nWOLeftMargin=" + left + "\r\n");
  }
  // Of the paper, in points.
  std::pair<double, double> TopAndLeft() {
    const ui::ReportLayout layout = LayOut(Make());
    return {layout.top, layout.left};
  }

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
};

using Margins = std::pair<double, double>;

TEST_F(MarginsOfWorkorders, AreHalfAnInchWithoutASetting) {
  EXPECT_EQ(TopAndLeft(), Margins(36, 36));
  Put("0", "");
  EXPECT_EQ(TopAndLeft(), Margins(36, 36));
}

TEST_F(MarginsOfWorkorders, AreTwipsFromTheEdges) {
  Put("2160", "1440");
  EXPECT_EQ(TopAndLeft(), Margins(108, 72));
  const ui::ReportLayout layout = LayOut(Make());
  EXPECT_EQ(layout.width, 612 - 72 - 36);
}

TEST_F(MarginsOfWorkorders, AreNeverLessThanWhatPrintersLeaveFree) {
  Put("100", "-999");
  EXPECT_EQ(TopAndLeft(), Margins(36, 36));
}

TEST_F(MarginsOfWorkorders, AreCutAtFourCharacters) {
  Put("21600", "14401");
  EXPECT_EQ(TopAndLeft(), Margins(108, 72));
}

TEST_F(MarginsOfWorkorders, LeaveHalfOfThePaper) {
  Put("9999", "9999");
  EXPECT_EQ(TopAndLeft(), Margins(396, 306));
}

TEST_F(MarginsOfWorkorders, ThatAreNoNumbersAreNone) {
  Put("wide", "1x");
  EXPECT_EQ(TopAndLeft(), Margins(36, 36));
}

TEST_F(MarginsOfWorkorders, AreFoundInEitherCase) {
  Put("2000", "2000", "KORVEL.INI");
  EXPECT_EQ(TopAndLeft(), Margins(100, 100));
}

// The designs of the paper hold what it is given.
TEST_F(WorkorderOnPaper, AmountsStandInColumnsThatHoldThem) {
  const ui::Report report = Make();
  const ui::ReportLayout layout = LayOut(report);
  const std::vector<std::pair<const char*, std::size_t>> wanted = {{"DataLine", 44}, {"Num", 20}, {"Qty", 11},
                                                                   {"Prc", 12},      {"Lst", 12}, {"Ext", 14}};
  ASSERT_EQ(report.design.columns.size(), wanted.size());
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    const ui::ReportColumn& column = report.design.columns[i];
    EXPECT_EQ(column.name, wanted[i].first);
    EXPECT_GE(column.width * layout.width / layout.characterWidth + 0.01, static_cast<double>(wanted[i].second))
        << column.name;
  }
  EXPECT_GT(layout.detailSize, 7.5);
}

TEST_F(WorkorderOnPaper, LongLinesGoOnBelowBesideTheirAmountsOnce) {
  WoLaborLine labor = Labor({"REPLACE THE FRONT BRAKE PADS, TURN BOTH ROTORS, BLEED THE LINES"});
  labor.Total = 9750;
  order.Labor.Add(labor);
  const ui::ReportLayout layout = LayOut(Make());
  ASSERT_GT(layout.lines.size(), 3U);
  EXPECT_TRUE(layout.lines[1].begins);
  EXPECT_FALSE(layout.lines[2].begins);
  EXPECT_EQ(layout.lines[1].text + " " + layout.lines[2].text, labor.Desc[0]);
}

TEST_F(WorkorderOnPaper, OfManyPagesTheLastHasTheTotals) {
  for (int i = 0; i < 250; ++i) order.Parts.Add({"P-" + std::to_string(i), "PART", 1, 1, 2, 3});
  for (const ui::Paper paper : {ui::kLetterPaper, ui::kA4Paper}) {
    const ui::ReportLayout layout = LayOut(Make(), paper);
    ASSERT_GE(layout.pages.size(), 5U);
    for (std::size_t page = 0; page < layout.pages.size(); ++page) {
      EXPECT_EQ(layout.pages[page].hasFooter, page + 1 == layout.pages.size()) << page;
    }
  }
}

}  // namespace
}  // namespace lantos
