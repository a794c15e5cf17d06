#include <fmt/format.h>

#include <QImage>
#include <QPainter>
#include <cstdlib>

#include "admin/TestShop.h"
#include "printing/WorkorderReport.h"
#include "qt/ReportBench.h"
#include "qt/ScriptedPerson.h"
#include "records/modSystem.h"
#include "ui/qt/QtDesktop.h"
#include "ui/qt/ReportPainter.h"

// The paper of a work order as it comes from the printer. With LANTOS_PICTURES set to a directory its pages are left
// there.
namespace lantos {
namespace {

using test::CanReadPdf;
using test::CountOf;
using test::TextsOf;

class PaperOfWorkorder : public testing::Test, protected test::TestShop {
 protected:
  PaperOfWorkorder() {
    windows.PrintTo(directory.Path());
    FillShop();
    FillOwner();
    FillMoney();
    WoLaborLine oil = Labor("OIL CHANGE, WITH FILTER", 50, 3250);
    oil.FollowupDays = 90;
    oil.FollowupDate = ToFileDate(Today() + 90);
    order.Labor.Add(oil);
    WoLaborLine pads = Labor("REPLACE FRONT BRAKE PADS AND RESURFACE BOTH ROTORS, ROAD TEST", 150, 9750);
    pads.Desc[1] = "CUSTOMER STATES THAT THE PEDAL PULSATES";
    pads.FollowupMiles = 12000;
    order.Labor.Add(pads);
    order.Parts.Add({"51394", "OIL FILTER", 1, 300, 899, 999});
    order.Parts.Add({"MOTORCRAFT-BR-1234-X", "BRAKE PAD SET, FRONT, CERAMIC, PREMIUM", 1, 2100, 4995, 5995});
    WoExtraLine sublet{"ACE MACHINE SHOP", "A-1007", 3000, 4500, "TURN ROTORS\tBOTH SIDES", 'Y'};
    order.Sublets.Add(sublet);
    order.Waste.Add({"SAFETY DISPOSAL", "", 100, 250, "USED OIL", 'N'});
    order.Credits.Add({1000, {"COUPON"}});
    order.Notes[0] = {"Right rear tire is near its end.", "Customer declined an alignment."};
  }

  void FillShop() {
    directory.Put("DISCLAIM.TXT",
                  "I hereby authorize the above repair work to be done along with the necessary material, and grant "
                  "permission to operate the vehicle for testing.\r\n\r\nSigned: ______________________________");
    SystemRecord& system = records.system.SysRec;
    system.Put(sysrec::company_name, "Miller's Garage");
    system.Put(sysrec::extra_company_name, "Import and Domestic");
    system.Put(sysrec::company_address, "12 Main Street");
    system.Put(sysrec::company_city, "Dayton");
    system.Put(sysrec::company_state, "OH");
    system.Put(sysrec::company_zip, "45402");
    system.Put(sysrec::company_phone1, "937-555-0100");
    system.Put(sysrec::company_phone2, "937-555-0101");
    system.Put(sysrec::fed_id_number, "31-1234567");
    system.Put(sysrec::state_id_number, "OH-998877");
  }
  void FillOwner() {
    order.WorkorderNumber = 4711;
    order.Status = "PAID";
    order.Type = "Repair";
    order.Customer.Put(customer::Firstname, "Mar\355a");
    order.Customer.Put(customer::Lastname, "L\363pez");
    order.Customer.Put(customer::Spouse, "Carl");
    order.Customer.Put(customer::SpouseLast, "Lee");
    order.Customer.Put(customer::Address, "4 Elm Road");
    order.Customer.Put(customer::City, "Dayton");
    order.Customer.Put(customer::State, "OH");
    order.Customer.Put(customer::Zip, "45402");
    order.Customer.Put(customer::HomePhone, "937-555-0142");
    order.Customer.Put(customer::salesperson, "KIM JONES");
    order.Vehicle.Put(vehicle::Year, "1999");
    order.Vehicle.Put(vehicle::Make, "Ford");
    order.Vehicle.Put(vehicle::Model, "Focus");
    order.Vehicle.Put(vehicle::EngineSize, "2.0L");
    order.Vehicle.Put(vehicle::Transmission, "Auto");
    order.Vehicle.Put(vehicle::VIN, "1FAFP34P3XW123456");
    order.Vehicle.Put(vehicle::LicenseNumber, "ABC 123");
    order.Vehicle.Put(vehicle::Mileage, 51234);
  }
  void FillMoney() {
    WoTotals& totals = order.Totals;
    totals.Put(wototals::DateOpen, ToFileDate(Today()));
    totals.Put(wototals::Subtotal[0], 5894);
    totals.Put(wototals::Subtotal[1], 13000);
    totals.Put(wototals::Subtotal[2], 4500);
    totals.Put(wototals::Subtotal[5], 250);
    totals.Put(wototals::Discount[1], 100000);
    totals.Put(wototals::WorkorderTax, 412);
    totals.Put(wototals::WorkorderTotal, 21756);
    totals.Put(wototals::PaymentMethod, std::uint8_t{12});
    totals.Put(wototals::SplitType(0), std::uint8_t{1});
    totals.Put(wototals::SplitAmount(0), 10000);
    totals.Put(wototals::SplitDate(0), ToFileDate(Today()));
    totals.Put(wototals::SplitType(1), std::uint8_t{3});
    totals.Put(wototals::SplitAmount(1), 11000);
    totals.Put(wototals::SplitDate(1), ToFileDate(Today() + 1));
    order.AmountDue = 756;
  }
  static WoLaborLine Labor(const std::string& text, Hundredths hours, Cents total) {
    WoLaborLine labor;
    labor.Mechanic = 4;
    labor.Hours = hours;
    labor.Rate = 6500;
    labor.Total = total;
    labor.Desc[0] = text;
    return labor;
  }
  void AddParts(int count) {
    for (int i = 0; i < count; ++i) {
      order.Parts.Add({fmt::format("P-{:04}", i), fmt::format("PART {:04}", i), 2, 100, 250, 300});
    }
  }
  ui::Report Make() { return WorkorderReport(environment, records.system.SysRec).Make(order); }

  // The pages on both papers, for somebody to look at.
  static void LeavePictures(const ui::Report& report, const std::string& name) {
    const char* folder = std::getenv("LANTOS_PICTURES");
    if (folder == nullptr) return;
    for (const auto& [paper, word] : {std::pair{ui::kLetterPaper, "letter"}, {ui::kA4Paper, "a4"}}) {
      const ui::ReportPainter painter(report, paper);
      for (std::size_t page = 0; page < painter.PageCount(); ++page) {
        QImage picture(static_cast<int>(2 * paper.width), static_cast<int>(2 * paper.height), QImage::Format_RGB32);
        picture.setDotsPerMeterX(5669);
        picture.setDotsPerMeterY(5669);
        picture.fill(Qt::white);
        QPainter on(&picture);
        painter.PaintPage(on, page);
        picture.save(QString::fromStdString(fmt::format("{}/{}-{}-{}.png", folder, name, word, page + 1)));
      }
    }
  }

  test::ScriptedPerson person;
  ui::QtDesktop windows{&person};
  Workorder order;
};

std::string OneBlank(const std::string& text) {
  std::string words;
  for (const char c : text) {
    if (c != ' ' || (!words.empty() && words.back() != ' ')) words += c;
  }
  while (!words.empty() && words.back() == ' ') words.pop_back();
  return words;
}

// A row as it is read across the paper: the number stands ahead of the text.
std::string AcrossThePaper(const std::vector<std::string>& row) {
  return OneBlank(row[1] + " " + row[0] + " " + row[2] + " " + row[3] + " " + row[4] + " " + row[5]);
}

TEST_F(PaperOfWorkorder, HasEveryRowInItsOrder) {
  const ui::Report report = Make();
  LeavePictures(report, "workorder");
  windows.PrintReport(report, ui::PrinterDialog::Skipped);
  if (!CanReadPdf()) return;
  const std::vector<std::string> pages = TextsOf(person.jobs.back().pdf);
  std::string all;
  for (const std::string& page : pages) all += page;
  std::vector<std::string> rows;
  for (const std::string& line : ui::LinesOf(all)) rows.push_back(OneBlank(line));
  std::size_t at = 0;
  for (const std::vector<std::string>& line : report.lines) {
    const std::string wanted = OneBlank(AcrossThePaper(line));
    if (wanted.empty() || line[0].size() > 44) continue;  // those go on below
    const auto found = std::find(rows.begin() + static_cast<std::ptrdiff_t>(at), rows.end(), ToUtf8(wanted));
    ASSERT_NE(found, rows.end()) << wanted << " in\n" << all;
    at = static_cast<std::size_t>(found - rows.begin()) + 1;
  }
  for (const ui::ReportLabel& label : report.design.labels) {
    if (label.grows) continue;
    EXPECT_GE(CountOf(OneBlank(ToUtf8(label.text)), OneBlank(all)), 1U) << label.name << ": " << label.text;
  }
  EXPECT_EQ(pages.size(), LayOut(report).pages.size());
}

TEST_F(PaperOfWorkorder, OfTwoAndOfFivePagesHasItsHeadOnEachAndItsTotalsOnTheLast) {
  for (const auto& [parts, count] : {std::pair{30, 2U}, {180, 5U}}) {
    order.Parts.Clear();
    AddParts(parts);
    const ui::Report report = Make();
    LeavePictures(report, fmt::format("workorder{}", count));
    windows.PrintReport(report, ui::PrinterDialog::Skipped);
    if (!CanReadPdf()) return;
    const std::vector<std::string> pages = TextsOf(person.jobs.back().pdf);
    ASSERT_EQ(pages.size(), count);
    for (std::size_t page = 0; page < pages.size(); ++page) {
      EXPECT_EQ(CountOf("Miller's Garage", pages[page]), 1U);
      EXPECT_EQ(CountOf("4711", pages[page]), 1U);
      EXPECT_EQ(CountOf(fmt::format("Page {} of {}", page + 1, count), pages[page]), 1U);
      EXPECT_EQ(CountOf("217.56", pages[page]), page + 1 == pages.size() ? 1U : 0U);
    }
    std::string all;
    for (const std::string& page : pages) all += page;
    for (int i = 0; i < parts; ++i) EXPECT_EQ(CountOf(fmt::format("PART {:04}", i), all), 1U);
  }
}

// What is cut off isn't on the paper at all: every text of the widest row is there to its last character.
TEST_F(PaperOfWorkorder, HoldsTheWidestAmounts) {
  order.Parts.Add({"12345678901234567890", "12345678901234567890123456789012345678", -32768, 0, 999999, -999998});
  const ui::Report report = Make();
  windows.PrintReport(report, ui::PrinterDialog::Skipped);
  if (!CanReadPdf()) return;
  const std::string page = TextsOf(person.jobs.back().pdf)[0];
  for (const char* text : {"12345678901234567890 12345678901234567890123456789012345678", "-32768", " 9999.99",
                           " -9999.98", "-327679672.32"}) {
    EXPECT_EQ(CountOf(text, OneBlank(page)), 1U) << text << " in\n" << page;
  }
}

}  // namespace
}  // namespace lantos
