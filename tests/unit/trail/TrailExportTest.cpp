#include "trail/TrailExport.h"

#include <gtest/gtest.h>

#include "frame/Dates.h"

namespace lantos::test {

namespace {

constexpr const char* kHead = "\xEF\xBB\xBFTime,Workstation,User,Estimate,Kind,Change\r\n";

TrailDeed Deed(const std::string& words) {
  TrailDeed deed;
  deed.at = {ToSerial({2003, 9, 30}), (10 * 60 + 32) * 60'000};
  deed.author = {"FRONTDESK", "beth"};
  deed.estimate = 7;
  deed.about = TrailKind::Labor;
  deed.words = words;
  return deed;
}

std::string RecordOf(const TrailDeed& deed) { return TrailAsCsv({deed}).substr(std::string_view(kHead).size()); }

}  // namespace

TEST(TrailExport, NothingIsAHeadingAlone) { EXPECT_EQ(TrailAsCsv({}), kHead); }

TEST(TrailExport, ADeedIsARecord) {
  EXPECT_EQ(RecordOf(Deed("labor 2 removed: BRAKES 1.50 h")),
            "2003-09-30 10:32:00,\"FRONTDESK\",\"beth\",7,\"Labor\",\"labor 2 removed: BRAKES 1.50 h\"\r\n");
}

TEST(TrailExport, QuotesAreDoubledAndCommasAndLineEndsStayWithinThem) {
  EXPECT_TRUE(RecordOf(Deed("a \"b\", c\r\nd")).ends_with(",\"a \"\"b\"\", c\r\nd\"\r\n"));
}

TEST(TrailExport, WhatASpreadsheetWouldWorkOutIsText) {
  for (const std::string text : {"=1+1", "+1", "-1", "@SUM(A1)", "\t=1", "\r=1", "=HYPERLINK(\"x\")"}) {
    TrailDeed deed = Deed(text);
    deed.author = {text, text};
    const std::string record = RecordOf(deed);
    EXPECT_TRUE(record.starts_with("2003-09-30 10:32:00,\"'" + text.substr(0, 2))) << record;
    EXPECT_NE(record.find(",7,\"Labor\",\"'" + text.substr(0, 2)), std::string::npos) << record;
  }
  EXPECT_TRUE(RecordOf(Deed("a=1")).ends_with(",\"a=1\"\r\n"));
}

TEST(TrailExport, TextsOfThePageAreUnicodeAndAChangeOfTheShopHasNoEstimate) {
  TrailDeed deed = Deed("Br\xFCssel \x80");
  deed.estimate = 0;
  EXPECT_EQ(RecordOf(deed),
            "2003-09-30 10:32:00,\"FRONTDESK\",\"beth\",,\"Labor\",\"Br\xC3\xBCssel \xE2\x82\xAC\"\r\n");
}

}  // namespace lantos::test
