#include "frame/Text.h"

#include <gtest/gtest.h>

namespace lantos {

using namespace std::string_literals;

TEST(Text, TrimNullOfAnAllNulFieldIsEmpty) { EXPECT_EQ(TrimNull(std::string(21, '\0')), ""); }

TEST(Text, TrimNullYieldsOnlyTheTextBeforeTheNul) {
  EXPECT_EQ(TrimNull("  Smith \0old bytes"s), "Smith");
  EXPECT_EQ(TrimNull("  no terminator "), "no terminator");
  EXPECT_EQ(TrimNull(""), "");
}

TEST(Text, TrimLeavesTabsAlone) { EXPECT_EQ(Trim(" \ta\t "), "\ta\t"); }

TEST(Text, NulFieldIsOneLongerThanAskedFor) { EXPECT_EQ(NulField(3), std::string(4, '\0')); }

TEST(Text, CleanForFileChangesBothQuoteKinds) { EXPECT_EQ(CleanForFile("6\" o'clock"), "6| o~clock"); }

TEST(Text, QuoteForSqlDoublesSingleQuotes) {
  EXPECT_EQ(QuoteForSql("O'Neill"), "O''Neill");
  EXPECT_EQ(QuoteForSql("plain"), "plain");
}

TEST(Text, QuoteForSqlLeavesAPairThatStandsAlready) {
  EXPECT_EQ(QuoteForSql("'"), "''");
  EXPECT_EQ(QuoteForSql("a''"), "a''");
  EXPECT_EQ(QuoteForSql("A''B"), "A''B");
  EXPECT_EQ(QuoteForSql("''A'B''"), "''A''B''");
  EXPECT_EQ(QuoteForSql("'a'"), "''a''");
}

TEST(Text, QuoteForSqlTakesThreeInARowForAPairAndOneMore) {
  EXPECT_EQ(QuoteForSql("'''"), "''''");
  EXPECT_EQ(QuoteForSql("''''"), "''''");
  EXPECT_EQ(QuoteForSql("'''''"), "''''''");
}

TEST(Text, QuoteForSqlOfATextThatWentThroughItChangesNothing) {
  for (const char* text : {"", "plain", "'", "O'Neill", "a'''b'", "''''x'"}) {
    const std::string once = QuoteForSql(text);
    EXPECT_EQ(QuoteForSql(once), once) << text;
  }
}

TEST(Text, SplitKeyValueSplitsAtTheFirstEquals) {
  std::string key = "x";
  std::string value = "y";
  SplitKeyValue("a=b=c", key, value);
  EXPECT_EQ(key, "a");
  EXPECT_EQ(value, "b=c");
  SplitKeyValue("alone", key, value);
  EXPECT_EQ(key, "alone");
  EXPECT_EQ(value, "");
}

TEST(Text, JustifyPadsAndCutsLikeTheColumnsOfALine) {
  EXPECT_EQ(LeftJustify("abc", 5), "abc  ");
  EXPECT_EQ(LeftJustify("abcdef", 4), "abcd");
  EXPECT_EQ(RightJustify("1.50", 7), "   1.50");
  EXPECT_EQ(RightJustify("1234567.89", 7), "1234567.89");
  EXPECT_EQ(Right("abcdef", 2), "ef");
  EXPECT_EQ(Mid("abcdef", 3, 2), "cd");
  EXPECT_EQ(Mid("abc", 9), "");
}

TEST(Text, ValTakesTheNumberThatATextBeginsWith) {
  EXPECT_EQ(Val("12abc"), 12);
  EXPECT_EQ(Val(" 1 2.5 hours"), 12.5);
  EXPECT_EQ(Val("-3"), -3);
  EXPECT_EQ(Val("+4"), 4);
  EXPECT_EQ(Val(".5"), 0.5);
  EXPECT_EQ(Val("abc"), 0);
  EXPECT_EQ(Val(""), 0);
  EXPECT_EQ(Val("1,234"), 1);
  EXPECT_EQ(Val("&H1F"), 31);
  EXPECT_EQ(Val("inf"), 0);
  EXPECT_EQ(Val("nan"), 0);
  EXPECT_EQ(Val("1e-400"), 0);
  EXPECT_THROW(Val("1e400"), std::out_of_range);
}

TEST(Text, IsNumericTakesWhatAPersonTypesAsANumber) {
  for (const char* text : {"1", "-1", " 12.50 ", "1,234", "$5", "-$5", "(7)", "3-", ".5", "5.", "1e3", "1.5E-2"}) {
    EXPECT_TRUE(IsNumeric(text)) << text;
  }
  for (const char* text : {"", " ", "abc", "1a", "1 2", "--1", "1.2.3", "$", "e5", "1e", "0x10"}) {
    EXPECT_FALSE(IsNumeric(text)) << text;
  }
  EXPECT_EQ(ToNumber("(1,234.5)"), -1234.5);
  EXPECT_THROW(ToNumber("x"), std::invalid_argument);
  EXPECT_EQ(ToLongOrZero("2.5"), 2);
  EXPECT_EQ(ToLongOrZero("3.5"), 4);
  EXPECT_EQ(ToLongOrZero("many"), 0);
}

TEST(Text, ToBooleanKnowsWordsAndNumbersAndRefusesTheRest) {
  EXPECT_TRUE(ToBoolean("true"));
  EXPECT_FALSE(ToBoolean(" False "));
  EXPECT_TRUE(ToBoolean("-1"));
  EXPECT_FALSE(ToBoolean("0"));
  EXPECT_THROW(ToBoolean("maybe"), std::invalid_argument);
}

TEST(Text, CaseIsFoldedOverTheWholePage) {
  EXPECT_EQ(ToUpper("m\xFCller \x9A"), "M\xDCLLER \x8A");
  EXPECT_EQ(ToLower("M\xDCLLER \x8A"), "m\xFCller \x9A");
  EXPECT_TRUE(ContainsIgnoringCase("SMITH,JOHN", "ith,j"));
  EXPECT_FALSE(ContainsIgnoringCase("SMITH", "SMITHY"));
  EXPECT_TRUE(ContainsIgnoringCase("x", ""));
  EXPECT_TRUE(Contains("abc", "bc"));
  EXPECT_FALSE(Contains("abc", "BC"));
}

TEST(Text, EveryByteOfThePageSurvivesTheWayToUnicodeAndBack) {
  for (int c = 0; c < 256; ++c) {
    const std::string one(1, static_cast<char>(c));
    EXPECT_EQ(FromUtf8(ToUtf8(one)), one) << c;
  }
  EXPECT_EQ(ToUtf8("\x80"), "\xE2\x82\xAC");
}

TEST(Text, WhatThePageCanNotHoldBecomesAQuestionMark) {
  EXPECT_EQ(FromUtf8("\xE6\xBC\xA2"), "?");
  EXPECT_EQ(FromUtf8("a\xF0\x9F\x9A\x97z"), "a?z");
  EXPECT_EQ(FromUtf8("a\xFF\xC3"), "a??");
  EXPECT_EQ(FromUtf8("\xC0\xAF"), "??");
  EXPECT_EQ(FromUtf8("\xED\xA0\x80"), "???");
}

}  // namespace lantos
