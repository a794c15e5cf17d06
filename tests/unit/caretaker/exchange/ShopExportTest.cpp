#include "caretaker/exchange/ShopExport.h"

#include <gmock/gmock.h>

#include "estimatedb/EngineChoice.h"
#include "frame/Dates.h"
#include "frame/Version.h"
#include "records/Customers.h"
#include "records/modSystem.h"
#include "shopmaker/EmptyShop.h"
#include "support/ScratchDirectory.h"

namespace lantos::test {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

// A shop with one customer, and an estimate of 30 September 2003 with two lines of labor.
class ShopExportTest : public ::testing::Test {
 protected:
  ShopExportTest() {
    MakeEmptyShop(place / "shop", {}, clock);
    files.SetDataDir((place / "shop").string() + "/");
    CustomerTag tag;
    tag.Put(customertag::Number, 7);
    tag.Put(customertag::NameKey, "M\xFCller,John");
    PutRecord("TQCSTTAG.DAT", tag.Bytes());
    CustomerRecord master;
    master.Put(customer::Number, 7);
    master.Put(customer::Lastname, "M\xFCller");
    master.Put(customer::Comment, "=1+1, \"x\"");
    master.Put(customer::Date, ToFileDate(ToSerial({2001, 2, 3})));
    PutRecord("TQCSTDAT.DAT", master.Bytes());
    AddEstimate(900, "2003-09-30", 0);
    Run("insert into Labors (EstimateNumber, LaborNumber, Description, LaborHours, LaborRate, LaborTotal) "
        "values (900, 1, 'Brakes; all, of them', 150, 6500, 9750)");
  }

  void PutRecord(const std::string& name, std::span<const std::byte> bytes) {
    place.Put("shop/" + name, std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
  }
  void Run(const std::string& statement) { OpenDatabase(place / "shop" / "Lantos.mdb", clock)->Run(statement, {}); }
  void AddEstimate(int number, const std::string& day, int status) {
    Run("insert into Estimates (EstimateNumber, CustomerNumber, SchedDate, Status, Comments, VehMake) values (" +
        std::to_string(number) + ", 7, '" + day + "', " + std::to_string(status) + ", 'first\nsecond', 'Ford')");
  }
  std::string Calendar(EventKind kind, int days = 7) {
    return ShopAsCalendar(files, ToSerial({2003, 9, 29}), ToSerial({2003, 9, 29}) + days - 1, kind, nobody);
  }

  ScratchDirectory place;
  StandingClock clock{*ParseLocalTime("2003-09-30T08:15:00")};
  FileIO files{clock};
  TellRows nobody = [](std::uint64_t, std::uint64_t) {};
};

TEST_F(ShopExportTest, CustomersAreUnicodeAndNoFormulas) {
  EXPECT_EQ(
      ShopAsCsv(files, ExportKind::Customers, nobody),
      "\xEF\xBB\xBFNumber,Last name,First name,Address,City,State,Zip,Home phone,Work phone,Other phone,Since,"
      "Comment\r\n7,\"M\xC3\xBCller\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",2001-02-03,\"'=1+1, \"\"x\"\"\"\r\n");
}

TEST_F(ShopExportTest, EstimatesHaveNamesAndHours) {
  EXPECT_THAT(
      ShopAsCsv(files, ExportKind::Estimates, nobody),
      HasSubstr("\r\n900,2003-09-30,\"Scheduled\",7,\"M\xC3\xBCller,John\",\"Ford\",\"\",1.50,\"first\nsecond\"\r\n"));
}

TEST_F(ShopExportTest, LaborIsInHoursAndDollars) {
  EXPECT_THAT(ShopAsCsv(files, ExportKind::Labor, nobody),
              HasSubstr("\r\n900,1,\"Brakes; all, of them\",1.50,65.00,97.50,0\r\n"));
}

TEST_F(ShopExportTest, ListsOfNothingAreAHeading) {
  EXPECT_EQ(ShopAsCsv(files, ExportKind::Parts, nobody),
            "\xEF\xBB\xBFNumber,Description,Cost,Wholesale,Resale,Retail,In stock\r\n");
  EXPECT_THAT(ShopAsCsv(files, ExportKind::Vehicles, nobody), HasSubstr("Mileage of\r\n"));
}

TEST_F(ShopExportTest, JsonHasTheSameRowsWithNumbersAndNoGuards) {
  const auto customers = ShopAsJson(files, ExportKind::Customers, nobody);
  ASSERT_EQ(customers.size(), 1U);
  EXPECT_EQ(customers[0]["Number"], 7);
  EXPECT_EQ(customers[0]["Last name"], "M\xC3\xBCller");
  EXPECT_EQ(customers[0]["Since"], "2001-02-03");
  EXPECT_EQ(customers[0]["Comment"], "=1+1, \"x\"");
  const auto labor = ShopAsJson(files, ExportKind::Labor, nobody);
  EXPECT_EQ(labor.dump(), R"([{"Estimate":900,"Line":1,"Description":"Brakes; all, of them","Hours":1.5,"Rate":65.0,)"
                          R"("Total":97.5,"Technician":0}])");
  EXPECT_EQ(ShopAsJson(files, ExportKind::Parts, nobody).dump(), "[]");
  AddEstimate(901, "", 0);
  EXPECT_TRUE(ShopAsJson(files, ExportKind::Estimates, nobody)[1]["Day"].is_null());
}

TEST_F(ShopExportTest, EachListTellsHowFarItIsAndCanBeEnded) {
  for (const ExportKind kind :
       {ExportKind::Estimates, ExportKind::Customers, ExportKind::Vehicles, ExportKind::Parts, ExportKind::Labor}) {
    EXPECT_THROW(ShopAsCsv(files, kind, [](std::uint64_t, std::uint64_t) { throw std::runtime_error("enough"); }),
                 std::runtime_error);
  }
}

TEST_F(ShopExportTest, EventsOfTwoShopsHaveOtherNames) {
  SystemRecord system;
  system.Put(sysrec::company_name, "Miller's  Garage & Co.");
  system.Put(sysrec::company_zip, "97331-1");
  PutRecord("TQSYSTEM.DAT", system.Bytes());
  EXPECT_THAT(Calendar(EventKind::Estimate), HasSubstr("UID:estimate-900@miller-s-garage-co.97331-1.lantos\r\n"));
}

TEST_F(ShopExportTest, ACalendarHasAnEventADay) {
  AddEstimate(901, "2003-09-30", 1);
  EXPECT_EQ(Calendar(EventKind::Day),
            "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Lantos//" + ProgramVersion() +
                "//EN\r\nCALSCALE:GREGORIAN\r\nMETHOD:PUBLISH\r\n"
                "X-WR-CALNAME:Lantos appointments (read only)\r\nBEGIN:VEVENT\r\nUID:day-20030930@lantos\r\n"
                "DTSTAMP:20030930T000000Z\r\nDTSTART;VALUE=DATE:20030930\r\nDTEND;VALUE=DATE:20031001\r\n"
                "SUMMARY:1.50 h\\, 2 appointments\r\n"
                "DESCRIPTION:M\xC3\xBCller\\,John (1.50 h)\\, Ford\\nM\xC3\xBCller\\,John (0.00 h)\\, Ford\r\n"
                "TRANSP:TRANSPARENT\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n");
}

TEST_F(ShopExportTest, OrOneAnEstimateUnderANameThatStays) {
  const std::string before = Calendar(EventKind::Estimate);
  EXPECT_THAT(before, HasSubstr("UID:estimate-900@lantos\r\n"));
  EXPECT_THAT(before, HasSubstr("DESCRIPTION:Estimate 900\\, Scheduled\\nfirst\\nsecond\r\n"));
  Run("update Estimates set SchedDate = '2003-10-01'");
  EXPECT_THAT(Calendar(EventKind::Estimate), HasSubstr("UID:estimate-900@lantos\r\n"));
}

TEST_F(ShopExportTest, OtherDaysAndWhatIsCancelledAreNotInIt) {
  AddEstimate(901, "2003-10-06", 0);
  AddEstimate(902, "2003-09-30", 6);
  AddEstimate(903, "2003-09-30", 7);
  for (const char* number : {"901", "902", "903"}) {
    EXPECT_THAT(Calendar(EventKind::Estimate), Not(HasSubstr(std::string("estimate-") + number)));
  }
  EXPECT_THAT(Calendar(EventKind::Estimate, 8), HasSubstr("estimate-901"));
}

// No line is longer than 75 bytes, and none is cut within a character.
TEST_F(ShopExportTest, LongLinesAreFoldedBetweenCharacters) {
  std::string umlauts;
  for (int i = 0; i < 100; ++i) umlauts += "\xC3\xBC";
  Run("update Estimates set Comments = '" + std::string(100, '\xFC') + "'");
  const std::string calendar = Calendar(EventKind::Estimate);
  std::size_t from = 0;
  std::string unfolded;
  for (std::size_t end = calendar.find("\r\n"); end != std::string::npos; end = calendar.find("\r\n", from)) {
    const std::string line = calendar.substr(from, end - from);
    EXPECT_LE(line.size(), 75u);
    if (line.starts_with(' ')) EXPECT_TRUE(line[1] == '\xC3' || (line[1] & 0x80) == 0) << line;
    unfolded += line.starts_with(' ') ? line.substr(1) : "\n" + line;
    from = end + 2;
  }
  EXPECT_THAT(unfolded, HasSubstr("\\n" + umlauts + "\n"));
}

}  // namespace lantos::test
