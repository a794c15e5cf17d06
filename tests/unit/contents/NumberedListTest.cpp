#include "contents/NumberedList.h"

#include <gmock/gmock.h>

#include <random>
#include <stdexcept>

#include "TestDesktop.h"

namespace lantos {
namespace {

using testing::ElementsAre;
using Line = std::vector<std::string>;

std::vector<std::string> RowsOf(const Line& line) { return line; }

struct NumberedForm : ui::Form {
  explicit NumberedForm(ui::Desktop& desktop) : Form(desktop, "frmNumbered", "Numbered") {}
  ui::ListBox list{*this, "list"};
};

struct Bench {
  std::vector<std::string> Rows() const {
    std::vector<std::string> rows;
    for (const ui::ListRow& row : form.list.Rows()) rows.push_back(std::to_string(row.data) + " " + row.text);
    return rows;
  }

  test::TestDesktop desktop;
  NumberedForm form{desktop};
  NumberedList<Line> lines{form.list, RowsOf};
};

TEST(NumberedList, LinesStandInTheOrderOfTheirNumbersWithTheNumberAtTheFirstRow) {
  Bench bench;
  bench.lines.Put(5, {"five"});
  bench.lines.Put(2, {"two", "more"});
  bench.lines.Put(3, {"three", "more"});
  EXPECT_THAT(bench.Rows(), ElementsAre("2 two", "0 more", "3 three", "0 more", "5 five"));
}

TEST(NumberedList, TheNumberCanStandAtEveryRowAndBeginWithAnother) {
  Bench bench;
  NumberedList<Line> lines(bench.form.list, RowsOf, NumberAt::EveryRow, 0);
  EXPECT_EQ(lines.NextNumber(), 0);
  lines.Put(0, {"zero", "more"});
  lines.Put(1, {"one", "more"});
  EXPECT_THAT(bench.Rows(), ElementsAre("0 zero", "0 more", "1 one", "1 more"));
}

TEST(NumberedList, ALinePutUnderANumberThatIsThereReplacesIt) {
  Bench bench;
  bench.lines.Put(1, {"one"});
  bench.lines.Put(2, {"two", "more", "still more"});
  bench.lines.Put(3, {"three"});
  bench.lines.Put(2, {"other"});
  EXPECT_THAT(bench.Rows(), ElementsAre("1 one", "2 other", "3 three"));
  EXPECT_EQ(bench.lines[2], Line{"other"});
}

TEST(NumberedList, ALineGoesWithAllItsRowsAndItsNumberIsntGivenAgain) {
  Bench bench;
  bench.lines.Put(1, {"one", "more"});
  bench.lines.Put(2, {"two", "more"});
  bench.lines.Remove(2);
  bench.lines.Remove(7);
  EXPECT_THAT(bench.Rows(), ElementsAre("1 one", "0 more"));
  EXPECT_FALSE(bench.lines.Contains(2));
  EXPECT_EQ(bench.lines.NextNumber(), 3);
}

TEST(NumberedList, ANumberThatWasReservedIsntGivenEither) {
  Bench bench;
  EXPECT_EQ(bench.lines.NextNumber(), 1);
  bench.lines.Reserve(4);
  bench.lines.Reserve(2);
  EXPECT_EQ(bench.lines.NextNumber(), 5);
}

TEST(NumberedList, AnyRowOfALineSelectsIt) {
  Bench bench;
  EXPECT_EQ(bench.lines.Selected(), std::nullopt);
  bench.lines.Put(0, {"a line of number 0", "more"});
  bench.lines.Put(4, {"four", "more"});
  const std::int32_t expected[] = {0, 0, 4, 4};
  for (int row = 0; row < 4; ++row) {
    bench.form.list.DoSelect(row);
    EXPECT_EQ(bench.lines.Selected(), expected[row]);
  }
  bench.lines.Select(4);
  EXPECT_EQ(bench.form.list.ListIndex(), 2);
  bench.lines.Select(9);
  EXPECT_EQ(bench.form.list.ListIndex(), 2) << "there is none to go to";
  bench.lines.Remove(4);
  EXPECT_EQ(bench.lines.Selected(), std::nullopt);
}

TEST(NumberedList, ClearedItKeepsItsNumbersAndStartedAnewItDoesnt) {
  Bench bench;
  bench.lines.Put(8, {"eight"});
  bench.lines.Clear();
  EXPECT_TRUE(bench.lines.Lines().empty());
  EXPECT_EQ(bench.form.list.ListCount(), 0);
  EXPECT_EQ(bench.lines.NextNumber(), 9);
  bench.lines.StartAnew();
  EXPECT_EQ(bench.lines.NextNumber(), 1);
}

TEST(NumberedList, BehindTheLastNumberThatThereCanBeIsNone) {
  Bench bench;
  bench.lines.Put(2147483647, {"last"});
  EXPECT_THROW(bench.lines.NextNumber(), std::overflow_error);
  bench.lines.StartAnew();
  EXPECT_EQ(bench.lines.NextNumber(), 1);
}

TEST(NumberedList, AnySequenceOfPuttingAndRemovingLeavesTheRowsOfTheLinesThatAreThere) {
  Bench bench;
  std::mt19937 random(5);
  for (int round = 0; round < 500; ++round) {
    const auto number = static_cast<std::int32_t>(random() % 12);
    if (random() % 3 == 0) {
      bench.lines.Remove(number);
    } else {
      bench.lines.Put(number, Line(1 + random() % 4, "text " + std::to_string(round)));
    }
    std::vector<std::string> expected;
    for (const auto& [each, line] : bench.lines.Lines()) {
      for (std::size_t row = 0; row < line.size(); ++row) {
        expected.push_back(std::to_string(row == 0 ? each : 0) + " " + line[row]);
      }
    }
    ASSERT_EQ(bench.Rows(), expected);
  }
}

}  // namespace
}  // namespace lantos
