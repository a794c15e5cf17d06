#include "contents/notes/NoteText.h"

#include <gtest/gtest.h>

#include <random>

namespace lantos {
namespace {

std::string Repeated(std::size_t count, char letter = 'x') { return std::string(count, letter); }

TEST(NoteText, ALineOf64CharactersIsNotWrappedAndOneOf65Is) {
  const FlowedNote fits = FlowNote(Repeated(60) + " abc");
  EXPECT_EQ(fits.lines[0], Repeated(60) + " abc");
  EXPECT_EQ(fits.lines[1], "");
  const FlowedNote wraps = FlowNote(Repeated(60) + " abcd");
  EXPECT_EQ(wraps.lines[0], Repeated(60));
  EXPECT_EQ(wraps.lines[1], "abcd");
  EXPECT_EQ(wraps.remainder, "");
}

TEST(NoteText, ABlankAtTheSixtyFifthPlaceBreaksNothing) {
  // The last blank among the first 64 characters is the one that counts.
  const FlowedNote flowed = FlowNote("head " + Repeated(59) + " tail");
  EXPECT_EQ(flowed.lines[0], "head");
  EXPECT_EQ(flowed.lines[1], Repeated(59) + " tail");
}

TEST(NoteText, AWordWithoutABlankIsCutAt64) {
  const FlowedNote flowed = FlowNote(Repeated(150, 'w'));
  EXPECT_EQ(flowed.lines[0], Repeated(64, 'w'));
  EXPECT_EQ(flowed.lines[1], Repeated(64, 'w'));
  EXPECT_EQ(flowed.lines[2], Repeated(22, 'w'));
}

TEST(NoteText, LettersKeepTheirCase) { EXPECT_EQ(FlowNote("Call Beth").lines[0], "Call Beth"); }

TEST(NoteText, TheRestOfAWrappedLineHasALineOfItsOwnAheadOfTheNext) {
  const FlowedNote flowed = FlowNote(Repeated(63) + " rest\r\nnext");
  EXPECT_EQ(flowed.lines[0], Repeated(63));
  EXPECT_EQ(flowed.lines[1], "rest");
  EXPECT_EQ(flowed.lines[2], "next");
}

TEST(NoteText, BlankLinesBetweenOthersAreClosedUp) {
  const FlowedNote flowed = FlowNote("one\r\n\r\n  \r\ntwo\r\n");
  EXPECT_EQ(flowed.lines, (Note{"one", "two"}));
  EXPECT_EQ(flowed.remainder, "");
}

TEST(NoteText, TheNinthLineIsLeftOver) {
  EXPECT_EQ(FlowNote("1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8").remainder, "");
  const FlowedNote flowed = FlowNote("1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9\r\n10");
  EXPECT_EQ(flowed.lines, (Note{"1", "2", "3", "4", "5", "6", "7", "8"}));
  EXPECT_EQ(flowed.remainder, "9\r\n10");
}

TEST(NoteText, BlankLinesCountTowardTheEight) {
  const FlowedNote flowed = FlowNote("1\r\n\r\n2\r\n\r\n3\r\n\r\n4\r\n\r\n5");
  EXPECT_EQ(flowed.lines, (Note{"1", "2", "3", "4"}));
  EXPECT_EQ(flowed.remainder, "5");
}

TEST(NoteText, TheRestOfTheEighthLineIsLeftOverAheadOfWhatFollowsIt) {
  const FlowedNote flowed = FlowNote("1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n" + Repeated(64) + " over\r\nbehind");
  EXPECT_EQ(flowed.lines[7], Repeated(64));
  EXPECT_EQ(flowed.remainder, "over\r\nbehind");
}

TEST(NoteText, ANoteAsATextHasNoLinesBehindItsLast) {
  EXPECT_EQ(TextOfNote(Note{"one", "two"}), "one\r\ntwo");
  EXPECT_EQ(TextOfNote(Note{"one", "", "three"}), "one\r\n\r\nthree");
  EXPECT_EQ(TextOfNote(Note{}), "");
}

std::string AnyText(std::mt19937& random) {
  constexpr std::string_view kinds = "aaaaab      \r\n\t\xE4";
  std::string text(random() % 900, ' ');
  for (char& c : text) c = kinds[random() % kinds.size()];
  return text;
}

std::string Letters(std::string_view text) {
  std::string letters;
  for (const char c : text) {
    if (c == 'a' || c == 'b' || c == '\xE4') letters += c;
  }
  return letters;
}

TEST(NoteText, AnyTextObeysTheBoundsAndLosesNoLetter) {
  std::mt19937 random(2003);
  for (int round = 0; round < 3000; ++round) {
    std::string text = AnyText(random);
    // A carriage return never stands alone in a text box.
    for (std::size_t i = 0; (i = text.find('\r', i)) != std::string::npos; i += 2) text.replace(i, 1, "\r\n");
    const FlowedNote flowed = FlowNote(text);
    std::string letters;
    bool ended = false;
    for (const std::string& line : flowed.lines) {
      EXPECT_LE(line.size(), kNoteLineWidth);
      EXPECT_FALSE(ended && !line.empty()) << "a line behind an empty one";
      ended = ended || line.empty();
      letters += Letters(line);
    }
    EXPECT_EQ(letters + Letters(flowed.remainder), Letters(text));
  }
}

}  // namespace
}  // namespace lantos
