#include "spelling/Proofreading.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "spelling/FewWords.h"

namespace lantos::test {
namespace {

using testing::ElementsAre;

std::vector<std::string> WordsOf(std::string_view text) {
  std::vector<std::string> words;
  for (auto word = NextWord(text, 0); word; word = NextWord(text, word->End())) words.push_back(word->In(text));
  return words;
}

std::string AroundFirst(std::string_view text, std::string_view word) {
  return SentenceAround(text, {text.find(word), word.size()});
}

TEST(TextWords, AreLettersOfThePageWithApostrophesInside) {
  EXPECT_THAT(WordsOf("Don't 'quote' caf\xE9\r\nna\xEFve\x92s"),
              ElementsAre("Don't", "quote", "caf\xE9", "na\xEFve\x92s"));
}

TEST(TextWords, AreNoCodesNumbersAddressesOrSingleLetters) {
  EXPECT_THAT(WordsOf("A 5W30 P-0420 x2y joe@shop.com http://shop.com www.shop.com ' R&R"), ElementsAre());
}

TEST(TextWords, AreDividedByHyphensAndSlashes) {
  EXPECT_THAT(WordsOf("brake-pads front/rear(left)"), ElementsAre("brake", "pads", "front", "rear", "left"));
}

TEST(TextWords, StandInASentenceOfTheirOwn) {
  EXPECT_EQ(AroundFirst("One two. Replace braek pads! Four", "braek"),
            "Replace \xBB"
            "braek\xAB pads!");
  EXPECT_EQ(AroundFirst("first\r\nbraek\tnow\r\nlast", "braek"),
            "\xBB"
            "braek\xAB now");
  EXPECT_EQ(AroundFirst("braek", "braek"),
            "\xBB"
            "braek\xAB");
}

TEST(TextWords, OfAnEndlessSentenceShowWhatIsNear) {
  const std::string text = std::string(5000, 'x') + " braek " + std::string(5000, 'y');
  EXPECT_EQ(AroundFirst(text, "braek").size(), 120 + 7 + 120u);
}

TEST(Proofreading, IsDoneAtOnceWhereEveryWordIsKnown) {
  FewWords speller({"change", "oil"});
  EXPECT_TRUE(Proofreading("CHANGE OIL 5W30", speller, nullptr).Done());
  EXPECT_TRUE(Proofreading("", speller, nullptr).Done());
}

TEST(Proofreading, AsksElsewhereAboutWhatTheDictionaryLacks) {
  FewWords speller({"change"});
  const Proofreading proofreading("change the camry", speller, [](const std::string& word) { return word == "camry"; });
  EXPECT_EQ(proofreading.Word(), "the");
}

TEST(Proofreading, ChangesTheOneWordAndGoesOnBehindIt) {
  FewWords speller({"pads"}, {{"braek", {"brake", "break"}}});
  Proofreading proofreading("braek pads braek", speller, nullptr);
  EXPECT_THAT(proofreading.Suggestions(), ElementsAre("brake", "break"));
  proofreading.Change("unheard of");
  EXPECT_EQ(proofreading.Word(), "braek");
  proofreading.Ignore();
  EXPECT_TRUE(proofreading.Done());
  EXPECT_EQ(proofreading.Text(), "unheard of pads braek");
}

TEST(Proofreading, ChangesAllFromHereOnButNotThoseInAnotherCase) {
  FewWords speller({"pads"});
  Proofreading proofreading("braek pads braek Braek", speller, nullptr);
  proofreading.ChangeAll("brake");
  EXPECT_EQ(proofreading.Word(), "Braek");
  EXPECT_EQ(proofreading.Text(), "brake pads brake Braek");
}

TEST(Proofreading, ChangesAllToWhatContainsTheWordWithoutEnd) {
  FewWords speller({});
  Proofreading proofreading("ab ab", speller, nullptr);
  proofreading.ChangeAll("ab ab");
  EXPECT_TRUE(proofreading.Done());
  EXPECT_EQ(proofreading.Text(), "ab ab ab ab");
}

TEST(Proofreading, IgnoresAndLearnsWithoutRegardToCase) {
  FewWords speller({});
  Proofreading proofreading("gizmo Gizmo widget WIDGET gizmo", speller, nullptr);
  proofreading.IgnoreAll();
  EXPECT_EQ(proofreading.Word(), "widget");
  proofreading.Learn();
  EXPECT_TRUE(proofreading.Done());
  EXPECT_THAT(proofreading.Learnt(), ElementsAre("widget"));
  EXPECT_EQ(proofreading.Text(), "gizmo Gizmo widget WIDGET gizmo");
}

TEST(Proofreading, OfNothingMoreStaysAsItIs) {
  FewWords speller({});
  Proofreading proofreading("gizmo", speller, nullptr);
  proofreading.Ignore();
  proofreading.Change("x");
  proofreading.ChangeAll("x");
  proofreading.Learn();
  EXPECT_EQ(proofreading.Text(), "gizmo");
  EXPECT_TRUE(proofreading.Learnt().empty());
}

}  // namespace
}  // namespace lantos::test
