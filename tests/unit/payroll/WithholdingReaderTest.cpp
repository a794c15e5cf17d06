#include <gtest/gtest.h>

#include "payroll/WithholdingRules.h"

#include "frame/Dates.h"

namespace lantos {
namespace {

using Lines = std::vector<std::string>;

std::string WhyRefused(const Lines& lines) {
  try {
    ReadWithholdingRules(lines, 2003);
  } catch (const WithholdingError& error) {
    return error.what();
  }
  return "not at all";
}
std::string WhyRefusedIn(const std::string& line) { return WhyRefused({"state TX", "source a letter", line}); }

TEST(WithholdingReader, AFileOfEverything) {
  const auto rules = ReadWithholdingRules(
      {"# a comment", "", "  FEDERAL", "source The Tax Office, page 3", "from 07/01/2003", "to 12/01/2003",
       "allowance weekly 58.65", "table weekly single", "over 51 tax 0 plus 10%", "\tover 187.5 tax 13.65 plus 15.25%",
       "state pa oh", "source a letter", "rate 2.8%", "local TX", "source none", "none"},
      2003);
  ASSERT_EQ(rules.size(), 3U);
  EXPECT_EQ(rules[0].source, "The Tax Office, page 3");
  EXPECT_EQ(rules[0].from, ToSerial({2003, 7, 1}));
  EXPECT_EQ(rules[0].to, ToSerial({2003, 12, 1}));
  EXPECT_EQ(rules[0].allowances.at(1), 5865);
  const auto& table = rules[0].tables.at({1, TaxStatus::Single});
  ASSERT_EQ(table.size(), 2U);
  EXPECT_EQ(table[1].over, 18750);
  EXPECT_EQ(table[1].tax, 1365);
  EXPECT_EQ(table[1].rate, 152500);
  EXPECT_EQ(rules[1].states, (Lines{"PA", "OH"}));
  EXPECT_EQ(rules[1].rate, 28000);
  EXPECT_EQ(rules[1].from, ToSerial({2003, 1, 1}));
  EXPECT_EQ(rules[1].to, ToSerial({2003, 12, 31}));
  EXPECT_EQ(rules[2].kind, WithholdingRule::Kind::None);
}

TEST(WithholdingReader, AnEmptyFileHasNoRules) { EXPECT_TRUE(ReadWithholdingRules({}, 2003).empty()); }

TEST(WithholdingReader, ARuleIsForItsAuthorityItsStatesAndItsDays) {
  const auto rules =
      ReadWithholdingRules({"state PA OH", "source x", "from 02/01/2003", "to 02/02/2003", "none"}, 2003);
  EXPECT_TRUE(rules[0].IsFor(Authority::State, "OH", ToSerial({2003, 2, 1})));
  EXPECT_TRUE(rules[0].IsFor(Authority::State, "PA", ToSerial({2003, 2, 2})));
  EXPECT_FALSE(rules[0].IsFor(Authority::State, "PA", ToSerial({2003, 2, 3})));
  EXPECT_FALSE(rules[0].IsFor(Authority::State, "TX", ToSerial({2003, 2, 1})));
  EXPECT_FALSE(rules[0].IsFor(Authority::Local, "PA", ToSerial({2003, 2, 1})));
}

TEST(WithholdingReader, WhatIsNotUnderstoodIsNamedByItsLine) {
  EXPECT_EQ(WhyRefused({"", "none"}), "line 2: \"federal\", \"state\" or \"local\" goes first.");
  EXPECT_EQ(WhyRefused({"federal PA"}), "line 1: no state goes with \"federal\".");
  EXPECT_EQ(WhyRefused({"state"}), "line 1: which state is meant?");
  EXPECT_EQ(WhyRefused({"local Ohio"}), "line 1: \"ohio\" is no state of two letters.");
  EXPECT_EQ(WhyRefused({"federal", "none"}), "line 2: what is above names no source.");
  EXPECT_EQ(WhyRefused({"federal", "source x"}), "line 2: what is above has neither \"none\" nor a rate nor a table.");
  EXPECT_EQ(WhyRefused({"federal", "source x", "table weekly single", "state TX"}),
            "line 4: what is above has a table without a line.");
  EXPECT_EQ(WhyRefused({"federal", "source"}), "line 2: where are the figures from?");
  EXPECT_EQ(WhyRefusedIn("tax 3"), "line 3: \"tax\" means nothing here.");
  EXPECT_EQ(WhyRefused({"federal", "source x", "none", "rate 3%"}),
            "line 4: there is a \"none\", a rate or a table above already.");
}

TEST(WithholdingReader, DatesAreOfTheYearAndInOrder) {
  EXPECT_EQ(WhyRefusedIn("from 01/01/2004"), "line 3: \"01/01/2004\" is no day of 2003.");
  EXPECT_EQ(WhyRefusedIn("to 02/29/2003"), "line 3: \"02/29/2003\" is no day of 2003.");
  EXPECT_EQ(WhyRefusedIn("to"), "line 3: meant is: from mm/dd/yyyy, to mm/dd/yyyy");
  EXPECT_EQ(WhyRefused({"federal", "source x", "from 05/01/2003", "to 04/01/2003"}),
            "line 4: it ends before it begins.");
}

TEST(WithholdingReader, AmountsAndPercentagesArePlain) {
  for (const std::string amount : {"1,000", "-1", "1.234", ".5", "1.", "x", "$5", "1.2.3", "1000000000.01"}) {
    EXPECT_EQ(WhyRefusedIn("allowance weekly " + amount), "line 3: \"" + amount + "\" is no amount.");
  }
  for (const std::string percent : {"3", "101%", "-1%", "1.23456%", "%", "100.0001%"}) {
    EXPECT_EQ(WhyRefusedIn("rate " + percent), "line 3: \"" + percent + "\" is no percentage.");
  }
  EXPECT_EQ(WhyRefusedIn("allowance fortnightly 3"), "line 3: \"fortnightly\" is no period.");
  EXPECT_EQ(WhyRefusedIn("allowance 3"), "line 3: meant is: allowance PERIOD AMOUNT");
}

TEST(WithholdingReader, TablesRiseAndStandOnce) {
  const Lines table = {"federal", "source x", "table weekly single", "over 51 tax 0 plus 10%"};
  const auto with = [&table](const std::string& line) {
    Lines lines = table;
    lines.push_back(line);
    return WhyRefused(lines);
  };
  EXPECT_EQ(with("over 51 tax 0 plus 15%"), "line 5: the amounts of a table rise.");
  EXPECT_EQ(with("over 60 tax 0"), "line 5: meant is: over AMOUNT tax AMOUNT plus PERCENT%");
  EXPECT_EQ(with("over 60 and 0 plus 10%"), "line 5: meant is: over AMOUNT tax AMOUNT plus PERCENT%");
  EXPECT_EQ(with("table weekly single"), "line 5: this table stands above already.");
  EXPECT_EQ(with("table weekly widowed"), "line 5: \"widowed\" is no status.");
  EXPECT_EQ(with("rate 3%"), "line 5: there is a \"none\", a rate or a table above already.");
  EXPECT_EQ(WhyRefusedIn("over 1 tax 0 plus 1%"), "line 3: no table stands above.");
}

}  // namespace
}  // namespace lantos
