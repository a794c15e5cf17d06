#include "records/LaborText.h"

#include <gtest/gtest.h>

#include <random>
#include <stdexcept>

namespace lantos {
namespace {

std::string Repeated(std::size_t count, char letter = 'x') { return std::string(count, letter); }

TEST(LaborText, ALineOfExactly64CharactersIsNotWrappedAnd65Is) {
  EXPECT_EQ(FlowDescription(Repeated(60) + " abc").lines[0], Repeated(60) + " abc");
  const FlowedLabor wrapped = FlowDescription(Repeated(60) + " abcd");
  EXPECT_EQ(wrapped.lines[0], Repeated(60));
  EXPECT_EQ(wrapped.lines[1], "abcd");
}

TEST(LaborText, ABlankAtTheSixtyFifthPlaceIsABreak) {
  // Other than in a note, where the last blank among 64 characters counts.
  const FlowedLabor flowed = FlowDescription("head " + Repeated(59) + " tail");
  EXPECT_EQ(flowed.lines[0], "head " + Repeated(59));
  EXPECT_EQ(flowed.lines[1], "tail");
}

TEST(LaborText, AWordWithoutABlankHasNoPlaceToBreak) {
  EXPECT_NO_THROW(FlowDescription(Repeated(64)));
  EXPECT_THROW(FlowDescription(Repeated(65)), std::invalid_argument);
  EXPECT_THROW(FlowDescription("short " + Repeated(65)), std::invalid_argument) << "on the line that the rest takes";
}

TEST(LaborText, ARestOfNothingTakesALineAllTheSame) {
  const FlowedLabor flowed = FlowDescription(Repeated(60) + "      \r\nnext");
  EXPECT_EQ(flowed.lines[0], Repeated(60));
  EXPECT_EQ(flowed.lines[1], "");
  EXPECT_EQ(flowed.lines[2], "next");
}

TEST(LaborText, ANinthLineIsDroppedSilentlyAndARestOfTheEighthIsLeftOver) {
  const FlowedLabor nine = FlowDescription("1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9");
  EXPECT_EQ(nine.lines[7], "8");
  EXPECT_EQ(nine.remainder, "");
  const FlowedLabor wrapped = FlowDescription("1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n" + Repeated(64) + " over\r\n9");
  EXPECT_EQ(wrapped.lines[7], Repeated(64));
  EXPECT_EQ(wrapped.remainder, "over");
}

TEST(LaborText, EmptyLinesStay) { EXPECT_EQ(FlowDescription("a\r\n\r\nb").lines, (LaborText{"a", "", "b"})); }

TEST(LaborText, IsJoinedBySevenTabsAlways) {
  EXPECT_EQ(JoinLaborText(LaborText{}), "\t\t\t\t\t\t\t");
  EXPECT_EQ(JoinLaborText(LaborText{" a ", std::string("b\0c", 3)}), "a\tb\t\t\t\t\t\t");
}

TEST(LaborText, IsSplitAtTabsUpToTheEighthLine) {
  EXPECT_EQ(SplitLaborText("a\tb"), (LaborText{"a", "b"}));
  EXPECT_EQ(SplitLaborText("no tab"), (LaborText{"no tab"}));
  EXPECT_EQ(SplitLaborText("1\t2\t3\t4\t5\t6\t7\t8\t9"), (LaborText{"1", "2", "3", "4", "5", "6", "7", "8"}));
}

TEST(LaborText, ALineLongerThan62WasWrappedAndGoesOnWithABlank) {
  EXPECT_EQ(TextOfLabor(LaborText{Repeated(62), "next"}), Repeated(62) + "\r\nnext");
  EXPECT_EQ(TextOfLabor(LaborText{Repeated(63), "next"}), Repeated(63) + " next");
  EXPECT_EQ(TextOfLabor(LaborText{"a", "", "c"}), "a\r\nc");
  EXPECT_EQ(TextOfLabor(LaborText{}), "");
}

TEST(LaborText, AnyTextObeysTheBoundsOrIsRefused) {
  std::mt19937 random(1964);
  constexpr std::string_view kinds = "abcde   ";
  int refused = 0;
  for (int round = 0; round < 3000; ++round) {
    std::string text;
    for (std::size_t length = random() % 700; text.size() < length;) {
      text += random() % 40 == 0 ? std::string("\r\n") : std::string(1, kinds[random() % kinds.size()]);
      if (random() % 400 == 0) text += Repeated(random() % 90, 'w');
    }
    try {
      const FlowedLabor flowed = FlowDescription(text);
      for (const std::string& line : flowed.lines) {
        EXPECT_LE(line.size(), kLaborLineWidth);
        EXPECT_EQ(line.find('\r'), std::string::npos);
      }
      EXPECT_EQ(SplitLaborText(JoinLaborText(flowed.lines)).size(), kLaborTextLines);
    } catch (const std::invalid_argument&) {
      ++refused;
      EXPECT_NE(text.find(Repeated(65, 'w').substr(0, 30)), std::string::npos) << "only a long word is refused";
    }
  }
  EXPECT_GT(refused, 10);
}

}  // namespace
}  // namespace lantos
