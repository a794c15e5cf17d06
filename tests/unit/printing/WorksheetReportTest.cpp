#include "printing/WorksheetReport.h"

#include "frame/Dates.h"
#include "printing/PrintingBench.h"
#include "records/Customers.h"

namespace lantos {
namespace {

using test::Image;
using test::LabelOf;

constexpr std::string_view kVin = "1FAFP34P3XW123456";

class WorksheetOnPaper : public testing::Test, protected test::PrintingBench {
 protected:
  WorksheetOnPaper() {
    database.estimates.CurrentEstimate.VehVIN = kVin;
    Options() = {};
    Options().BlankLinesPerLabor = 0;
    Options().BlankPartLines = 0;
  }

  std::vector<std::string> Lines() {
    std::vector<std::string> lines;
    for (const auto& row : WorksheetReport(environment, desktop, records, database).Make(customer).lines) {
      EXPECT_EQ(row.size(), 1u);
      lines.push_back(row.front());
    }
    return lines;
  }
  // The numbers of the work orders that the summary lists.
  std::vector<std::string> Listed() {
    std::vector<std::string> numbers;
    for (const std::string& line : Lines()) {
      if (line.starts_with("Workorder: ")) numbers.push_back(line.substr(11, 6));
    }
    return numbers;
  }
  // A tag that was paid on that day, of either file by its length.
  static Image Tag(std::size_t length, std::int32_t number, DaySerial paid, std::string_view vin = kVin) {
    return Image(length).Long(0, number).Text(40, vin).Text(72, "\x02").Long(83, ToFileDate(paid));
  }
  void PutActive(std::int32_t number, DaySerial paid, bool withText = true) {
    const std::string name = Workorders::FileNameOf(number);
    active_.Append(Tag(302, number, paid).Text(286, name));
    directory.Put("TQOPENWO.DAT", active_);
    if (withText) directory.Put(name, "[Workorder]\r\nWorkorderNumber=" + std::to_string(100000 + number) + "\r\n\r\n");
  }

 private:
  Image active_;
};

TEST_F(WorksheetOnPaper, OneBoxTellsAllEntriesThatPastWorkOrdersNameAndTheShopHasNot) {
  for (const int number : {4001, 4002}) {
    PutActive(number, environment.Today());
    directory.Put(Workorders::FileNameOf(number), "[Workorder]\r\nWorkorderNumber=" + std::to_string(100000 + number) +
                                                      "\r\n\r\n[Check List]\r\nHorn,weak,\r\n[Trim],\r\n" +
                                                      (number == 4002 ? "Tires,worn,\r\n" : ""));
  }
  desktop.WillAnswer(ui::Answer::Ok);
  EXPECT_EQ(Listed().size(), 2U);
  ASSERT_EQ(desktop.boxes.size(), 1U);
  EXPECT_EQ(desktop.boxes[0].title, "LoadCheckListValues");
  EXPECT_EQ(desktop.boxes[0].text,
            "Couldn't locate Horn in checklist.  Item skipped.\rCouldn't locate [Trim] in checklist.  Item "
            "skipped.\rCouldn't locate Tires in checklist.  Item skipped.");
}

TEST_F(WorksheetOnPaper, ABareEstimateHasTheHeadingsOfWorkAndParts) {
  Options().PrintVehSummaryOnWorksheet = false;
  EXPECT_EQ(Lines(),
            (std::vector<std::string>{"____Labor____", "       HOURS APPLIED ON", "Tech     Hours     Description",
                                      "______   _______   " + std::string(82, '_'), "____Parts____", " "}));
}

TEST_F(WorksheetOnPaper, HasRoomForAPenAndForAllOfTheComments) {
  constexpr double kSevenMillimeters = 7 * 72 / 25.4;
  Options().PrintVehSummaryOnWorksheet = false;
  Options().PrintCommentsOnWorksheet = true;
  Options().BlankLinesPerLabor = 2;
  Options().BlankPartLines = 3;
  std::string comments;
  while (comments.size() < 250) comments += "word" + std::to_string(comments.size()) + " ";
  comments.resize(255, 'x');
  comments.back() = 'x';
  database.estimates.CurrentEstimate.Comments = comments;
  database.lantosData.AddLabor(1001, 1, "Look", 100, 6500, 6500, 0);
  const ui::Report report = WorksheetReport(environment, desktop, records, database).Make(customer);
  EXPECT_EQ(report.lines[1][0], comments);
  const ui::ReportLayout layout = LayOut(report);
  std::string printed;
  std::size_t rules = 0;
  for (const ui::PrintedLine& line : layout.lines) {
    if (line.line == 1) printed += (line.begins ? "" : " ") + line.text;
    if (line.text.starts_with("____")) {
      const bool isHeading = line.text.find_first_not_of('_') < 5;
      EXPECT_GT(line.height, isHeading ? layout.detailPitch + 5 : kSevenMillimeters) << line.text;
      rules += isHeading ? 0 : 1;
    }
    EXPECT_LE(line.text.size(), 101u);
  }
  EXPECT_EQ(printed, comments);
  EXPECT_EQ(rules, 5u);
}

// The rules of a job stand on the page that names it.
TEST_F(WorksheetOnPaper, NoPageEndsBetweenAJobAndItsRules) {
  Options().PrintVehSummaryOnWorksheet = false;
  Options().BlankLinesPerLabor = 3;
  for (int number = 1; number <= 40; ++number) {
    database.lantosData.AddLabor(1001, number, "Look\tat\tit", 100, 6500, 6500, 0);
  }
  const ui::ReportLayout layout = LayOut(WorksheetReport(environment, desktop, records, database).Make(customer));
  ASSERT_GT(layout.pages.size(), 5u);
  for (const ui::ReportPage& page : layout.pages) {
    const std::string& last = layout.lines[page.firstLine + page.lineCount - 1].text;
    EXPECT_TRUE(last.starts_with("______") || last == " ") << last;
  }
}

TEST_F(WorksheetOnPaper, WorkOrdersOfOneDayComeByTheirNumbersHighestFirst) {
  for (const std::int32_t number : {2, 9, 5}) PutActive(number, Today());
  PutActive(7, Today() - 1);
  PutActive(1, Today() - 400);
  PutActive(8, Today() + 1);
  EXPECT_EQ(Listed(), (std::vector<std::string>{"100009", "100005", "100002", "100007"}));
}

TEST_F(WorksheetOnPaper, FarBackYearsBeginWithTheCalendar) {
  Options().VehSummaryYears = 32767;
  PutActive(1, ToSerial({1980, 1, 1}));
  EXPECT_EQ(Listed(), (std::vector<std::string>{"100001"}));
}

TEST_F(WorksheetOnPaper, OnlyTheTagsThatQualifyLeadToATextFile) {
  PutActive(1, Today() - 400, false);
  PutActive(2, Today() + 1, false);
  EXPECT_EQ(Listed(), std::vector<std::string>{});
  EXPECT_TRUE(desktop.boxes.empty());
  PutActive(3, Today(), false);
  desktop.WillAnswer(ui::Answer::Cancel);
  EXPECT_EQ(Listed(), std::vector<std::string>{});
  ASSERT_EQ(desktop.boxes.size(), 1u);
  EXPECT_EQ(desktop.boxes[0].title, "GetCurrWoRec(W0000003.tqa)");
}

TEST_F(WorksheetOnPaper, TheArchivedTagsLeadIntoTheArchive) {
  const std::string other = "[Workorder]\r\nWorkorderNumber=000003\r\n\r\n";
  const std::string text = "[Workorder]\r\nWorkorderNumber=000004\r\n\r\n";
  directory.Put("TQINVOIC.DAT", other + text);
  directory.Put("TQINCTAG.DAT", Image()
                                    .Append(Tag(290, 4, Today()).Long(286, static_cast<std::int32_t>(other.size())))
                                    .Append(Tag(290, 9, Today()).Long(286, -1))
                                    .Append(Tag(290, 3, Today(), "OTHER").Long(286, 0)));
  EXPECT_EQ(Listed(), (std::vector<std::string>{"000004"}));
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(WorksheetOnPaper, TagFilesThatAreNotWholeAreToldAbout) {
  directory.Put("TQOPENWO.DAT", std::string(7, '\0') + std::string(Tag(302, 1, Today(), "OTHER")));
  directory.Put("TQINCTAG.DAT", std::string(289, '\0') + std::string(Tag(290, 1, Today(), "OTHER")));
  desktop.WillAnswer({ui::Answer::Ok, ui::Answer::Ok});
  EXPECT_EQ(Listed(), std::vector<std::string>{});
  ASSERT_EQ(desktop.boxes.size(), 2u);
  EXPECT_EQ(desktop.boxes[0].text, "Invalid offset supplied to ReadActiveWO = 7");
  EXPECT_EQ(desktop.boxes[1].text, "Invalid offset supplied to ReadArchWO = 289");
}

TEST_F(WorksheetOnPaper, LessThanATagIsNone) {
  directory.Put("TQOPENWO.DAT", std::string(301, '\1'));
  directory.Put("TQINCTAG.DAT", std::string(289, '\1'));
  EXPECT_EQ(Listed(), std::vector<std::string>{});
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(WorksheetOnPaper, TheCustomerStandsOnTheSecondDesignAlone) {
  WorksheetReport worksheet(environment, desktop, records, database);
  customer.Put(customer::Lastname, "Adams");
  const ui::Report with = worksheet.Make(customer);
  EXPECT_EQ(with.design.name, "rptWorksheet2");
  EXPECT_EQ(LabelOf(with, "lblCustName"), " Adams");
  Options().PrintCustomerOnWorksheet = false;
  const ui::Report without = worksheet.Make(customer);
  EXPECT_EQ(without.design.name, "rptWorksheet1");
  EXPECT_EQ(without.title, "Technician Worksheet for Estimate 1001");
}

}  // namespace
}  // namespace lantos
