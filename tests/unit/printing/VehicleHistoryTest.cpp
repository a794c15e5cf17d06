#include "printing/VehicleHistory.h"

#include <memory>

#include "frame/Dates.h"
#include "printing/PrintingBench.h"
#include "records/modSystem.h"

namespace lantos {
namespace {

using test::Image;
using test::LabelOf;

constexpr std::string_view kVin = "1FAFP34P3XW123456";
constexpr const char* kCar = "1999 Ford Focus";

class VehicleHistory : public testing::Test, protected test::PrintingBench {
 protected:
  bool Show(std::string_view vin = kVin) { return VehicleHistoryReport(shop, vin, kCar); }
  std::vector<std::string> Lines() {
    std::vector<std::string> lines;
    for (const auto& row : desktop.previews.back().lines) {
      EXPECT_EQ(row.size(), 1U);
      lines.push_back(row.front());
    }
    return lines;
  }
  std::vector<std::string> Numbers() {
    std::vector<std::string> numbers;
    for (const std::string& line : Lines()) {
      if (line.starts_with("Workorder: ")) numbers.push_back(line.substr(11, 6));
    }
    return numbers;
  }
  static Image Tag(std::size_t length, std::int32_t number, DaySerial paid) {
    return Image(length).Long(0, number).Text(40, kVin).Text(72, "\x02").Long(83, ToFileDate(paid));
  }
  static std::string TextOf(std::int32_t number, const std::string& sections = "") {
    return "[Workorder]\r\nWorkorderNumber=" + std::string(number < 1000 ? "000" : "00") + std::to_string(number) +
           "\r\n\r\n" + sections;
  }
  void PutActive(std::int32_t number, DaySerial paid, const std::string& sections = "") {
    const std::string name = Workorders::FileNameOf(number);
    active_.Append(Tag(302, number, paid).Text(286, name));
    directory.Put("TQOPENWO.DAT", active_);
    directory.Put(name, TextOf(number, sections));
  }
  void PutArchived(std::int32_t number, DaySerial paid) {
    archived_.Append(Tag(290, number, paid).Long(286, static_cast<std::int32_t>(archive_.size())));
    archive_ += TextOf(number);
    directory.Put("TQINCTAG.DAT", archived_);
    directory.Put("TQINVOIC.DAT", archive_);
  }

 private:
  Image active_, archived_;
  std::string archive_;
};

TEST_F(VehicleHistory, ABlankVinHasNone) {
  PutActive(4001, Today());
  EXPECT_FALSE(Show(""));
  EXPECT_FALSE(Show("   "));
  EXPECT_TRUE(desktop.previews.empty());
}

TEST_F(VehicleHistory, NothingWithinThreeYearsIsNone) {
  directory.Put("TQINCTAG.DAT", "");
  EXPECT_FALSE(Show());
  PutActive(4001, ToSerial({2000, 9, 29}));
  PutActive(4002, Today() + 1);
  EXPECT_FALSE(Show());
  EXPECT_TRUE(desktop.previews.empty());
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(VehicleHistory, AWorkOrderExactlyThreeYearsOldIsIncluded) {
  PutActive(4001, ToSerial({2000, 9, 30}));
  PutActive(4002, ToSerial({2000, 9, 29}));
  PutArchived(3001, ToSerial({2000, 9, 30}));
  PutArchived(3002, ToSerial({2000, 9, 29}));
  EXPECT_TRUE(Show());
  EXPECT_EQ(Numbers(), (std::vector<std::string>{"004001", "003001"}));
}

TEST_F(VehicleHistory, ThreeYearsBackFromALeapDayIsThe28th) {
  clock.MoveTo(*ParseLocalTime("2004-02-29T08:15:00"));
  PutActive(4001, ToSerial({2001, 2, 27}));
  PutActive(4002, ToSerial({2001, 2, 28}));
  PutActive(4003, ToSerial({2004, 2, 29}));
  EXPECT_TRUE(Show());
  EXPECT_EQ(Numbers(), (std::vector<std::string>{"004003", "004002"}));
}

TEST_F(VehicleHistory, OfBothFilesTheNewestComeFirstAndTheActiveOnesAhead) {
  for (const std::int32_t number : {4001, 4003, 4002}) PutActive(number, Today() - 10);
  PutActive(4004, Today() - 9);
  PutArchived(3001, Today() - 5);
  PutArchived(3002, Today());
  EXPECT_TRUE(Show(" " + std::string(kVin) + "  "));
  EXPECT_EQ(Numbers(), (std::vector<std::string>{"004004", "004003", "004002", "004001", "003002", "003001"}));
}

TEST_F(VehicleHistory, HasAllEightLinesOfEachLaborWhateverTheWorksheetHas) {
  Options().VehSummaryLaborLines = 1;
  Options().VehSummaryYears = 0;
  std::string labor = "000004" + std::string(48, ' ');
  for (const char* line : {"one", "two", "", "four", "five", "six", "seven", "eight"})
    labor += std::string(line) + "\t";
  PutActive(4001, Today() - 100, "[Labor]\r\n" + labor + "\r\n\r\n[Notes]\r\nfirst\t\tthird\r\n\r\n");
  EXPECT_TRUE(Show());
  EXPECT_EQ(Lines(), (std::vector<std::string>{
                         "Workorder: 004001 06/22/2003 Mileage: 0 Customer: , ", "       one", "       two",
                         "       four", "       five", "       six", "       seven", "       eight",
                         "*-*-*-*-*-*-*-*-*-*-*-*-*-* Workorder Notes *-*-*-*-*-*-*-*-*-*-*-*-*-*", "first", "third",
                         "*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*-*", " "}));
}

TEST_F(VehicleHistory, SaysWhoseItIsAndOfWhichVehicle) {
  records.system.SysRec.Put(sysrec::company_name, "Miller's Garage");
  PutActive(4001, Today());
  EXPECT_TRUE(Show(std::string(kVin) + " "));
  const ui::Report& report = desktop.previews.back();
  EXPECT_EQ(report.design.name, "rptGeneric");
  EXPECT_EQ(report.title, "Vehicle History by VIN");
  EXPECT_EQ(LabelOf(report, "lblCompanyName"), "Miller's Garage");
  EXPECT_EQ(LabelOf(report, "lblReportName"), "Vehicle History by VIN");
  EXPECT_EQ(LabelOf(report, "lblHeading1"), "VIN: 1FAFP34P3XW123456");
  EXPECT_EQ(LabelOf(report, "lblHeading2"), kCar);
  EXPECT_TRUE(desktop.printed.empty());
}

TEST_F(VehicleHistory, TheWindowHasAPlaceOfItsOwn) {
  PutActive(4001, Today());
  desktop.movePreviewTo = ui::ControlPlace{1, 2, 3, 4, 0};
  EXPECT_TRUE(Show());
  EXPECT_EQ(Setting("Vehicle History by VIN Width"), "3");
  EXPECT_EQ(Setting("Report Width"), "");
}

TEST_F(VehicleHistory, LongNotesGoOnInTheNextLine) {
  const std::string note = "The customer was told that the front pads are near their end, but " + std::string(60, 'x') +
                           " declined the repair";
  PutActive(4001, Today(), "[Notes]\r\n" + note + "\r\n\r\n");
  EXPECT_TRUE(Show());
  std::string printed;
  for (const ui::PrintedLine& line : LayOut(desktop.previews.back()).lines) printed += line.text + " ";
  EXPECT_NE(printed.find(note), std::string::npos);
}

TEST_F(VehicleHistory, AHeldTagFileIsWaitedForThenAskedAboutAndIsNoEndOfThePaper) {
  PutActive(4001, Today());
  PutArchived(3001, Today());
  auto held = std::make_unique<SharedFile>(directory / "TQOPENWO.DAT", Access::ReadWrite, Deny::All);
  const LocalTime before = clock.Now();
  desktop.WillAnswer([&](const ui::Box& box) {
    EXPECT_EQ(box.text, "Tag file locked by another user.\rClick Retry to try again, or Cancel to exit.");
    EXPECT_EQ(box.buttons, ui::Buttons::RetryCancel);
    EXPECT_GE(clock.Now().MillisecondsSince(before), 1900);
    held.reset();
    return ui::Answer::Retry;
  });
  EXPECT_TRUE(Show());
  EXPECT_EQ(Numbers(), (std::vector<std::string>{"004001", "003001"}));
  const SharedFile archived(directory / "TQINCTAG.DAT", Access::ReadWrite, Deny::All);
  desktop.WillAnswer(ui::Answer::Cancel);
  EXPECT_TRUE(Show());
  EXPECT_EQ(Numbers(), (std::vector<std::string>{"004001"}));
}

TEST_F(VehicleHistory, OneTextThatTheOperatorSkipsLeavesTheOthers) {
  PutActive(4001, Today());
  PutActive(4002, Today());
  std::filesystem::remove(directory / "W0004002.tqa");
  desktop.WillAnswer(ui::Answer::Cancel);
  EXPECT_TRUE(Show());
  EXPECT_EQ(Numbers(), (std::vector<std::string>{"004001"}));
}

}  // namespace
}  // namespace lantos
