#include "caretaker/exchange/CsvRows.h"

#include <gmock/gmock.h>

namespace lantos::test {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

// Rows as "a|b", nothing as "null".
std::vector<std::string> RowsOf(const std::string& text, std::size_t pieces = 1000) {
  std::vector<std::string> rows;
  CsvRows csv([&](OldRow&& row) {
    std::string line;
    for (const std::optional<std::string>& value : row) line += value.value_or("null") + "|";
    rows.push_back(line);
  });
  for (std::size_t i = 0; i < text.size(); i += pieces) csv.Feed(std::string_view(text).substr(i, pieces));
  csv.Finish();
  return rows;
}

std::string ErrorOf(const std::string& text) {
  try {
    RowsOf(text);
  } catch (const CsvError& error) {
    return error.what();
  }
  return "none";
}

}  // namespace

TEST(CsvRowsTest, ValuesAreCutHoweverTheTextComes) {
  const std::string text = "A,B\n1,\"two, \"\"2\"\"\nlines\"\r\n,\"\"\n";
  for (const std::size_t pieces : {1U, 2U, 7U, 1000U}) {
    EXPECT_THAT(RowsOf(text, pieces), ElementsAre("A|B|", "1|two, \"2\"\nlines|", "null||")) << pieces;
  }
}

TEST(CsvRowsTest, TheLastLineMayLackItsEnd) {
  EXPECT_THAT(RowsOf("A\n1"), ElementsAre("A|", "1|"));
  EXPECT_THAT(RowsOf("A,B\n1,"), ElementsAre("A|B|", "1|null|"));
  EXPECT_THAT(RowsOf(""), ElementsAre());
}

TEST(CsvRowsTest, WhatCanNotBeUnderstoodIsToldWithItsRow) {
  EXPECT_EQ(ErrorOf("A,B\n1,2\n3\n"), "the row 2 has 1 values where there are 2 columns");
  EXPECT_EQ(ErrorOf("A,B\n1,\"2\n"), "the row 1 ends within quotes");
  EXPECT_EQ(ErrorOf("A,B\n1,\"2\"x\n"), "the row 1 has something behind the quote that ends a value");
  EXPECT_EQ(ErrorOf("A,B\n1,2\"x\n"), "the row 1 has a quote inside a value that has none around it");
  EXPECT_EQ(ErrorOf("A,\"B"), "the heading ends within quotes");
  EXPECT_EQ(ErrorOf("A\n\"" + std::string(5U << 20U, 'x')), "the row 1 has no end");
}

}  // namespace lantos::test
