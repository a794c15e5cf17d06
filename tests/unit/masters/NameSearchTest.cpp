#include "masters/customers/NameSearch.h"
#include "records/CustomerTag.h"

#include <gtest/gtest.h>

namespace lantos {
namespace {

CustomerTag TagOf(std::string_view name, std::string_view spouse = ",") {
  CustomerTag tag;
  tag.Put(customertag::Number, 1);
  tag.Put(customertag::NameKey, name);
  tag.Put(customertag::SpouseKey, spouse);
  return tag;
}

bool Finds(std::string_view text, std::string_view name, std::string_view spouse = ",") {
  return NameQuery(text).Matches(TagOf(name, spouse));
}

TEST(NameSearch, APartOfTheLastNameFindsTheCustomerWithoutRegardToCase) {
  EXPECT_TRUE(Finds("SMI", "SMITH,JOHN"));
  EXPECT_TRUE(Finds("smi", "SMITH,JOHN"));
  EXPECT_TRUE(Finds("SMI", "Smith,John"));
  EXPECT_TRUE(Finds("mith", "SMITH,JOHN"));
  EXPECT_FALSE(Finds("SMY", "SMITH,JOHN"));
}

TEST(NameSearch, WithoutACommaTheFirstNameFindsTheCustomerToo) { EXPECT_TRUE(Finds("ohn", "SMITH,JOHN")); }

TEST(NameSearch, ACommaParcelsTheTextIntoLastAndFirstName) {
  EXPECT_TRUE(Finds("SMI,JO", "SMITH,JOHN"));
  EXPECT_TRUE(Finds(" smi , ohn ", "SMITH,JOHN"));
  EXPECT_FALSE(Finds("JO,SMI", "SMITH,JOHN"));
  EXPECT_FALSE(Finds("SMI,JOE", "SMITH,JOHN"));
}

TEST(NameSearch, ACommaAloneIsAtTheFirstPlaceAndMatchesEveryKey) {
  EXPECT_TRUE(Finds(",", "SMITH,JOHN"));
  EXPECT_TRUE(Finds(",", "NOCOMMA", ","));
  EXPECT_FALSE(Finds(",", "NOCOMMA", ""));
}

TEST(NameSearch, ACommaAtTheFirstPlaceIsAnOrdinaryCharacter) {
  EXPECT_TRUE(Finds(",JO", "SMITH,JOHN"));
  EXPECT_FALSE(Finds(",JO", "SMITH,BOJO"));
  EXPECT_TRUE(Finds("  ,JO", "SMITH,JOHN"));
}

TEST(NameSearch, ATrailingCommaAsksForTheLastNameAlone) {
  EXPECT_TRUE(Finds("JOHN,", "JOHNSON,AL"));
  EXPECT_FALSE(Finds("JOHN,", "SMITH,JOHN"));
}

TEST(NameSearch, ASpousesNameFindsTheCustomer) {
  EXPECT_TRUE(Finds("JANE", "SMITH,JOHN", ",JANE"));
  EXPECT_TRUE(Finds("DOE,JA", "SMITH,JOHN", "DOE,JANE"));
}

TEST(NameSearch, TheTwoNeedlesMustMeetInOneKey) { EXPECT_FALSE(Finds("SMITH,JANE", "SMITH,JOHN", "DOE,JANE")); }

TEST(NameSearch, AKeyWithoutACommaServesWholeForBothParts) {
  EXPECT_TRUE(Finds("ACME,GAR", "ACME GARAGE"));
  EXPECT_TRUE(Finds("GAR,ACM", "ACME GARAGE"));
}

TEST(NameSearch, OldBytesBehindTheNulOfAKeyAreNotSearched) {
  CustomerTag tag = TagOf("SMITH,JOHN");
  tag.Put(customertag::NameKey, std::string_view("ROE,AL\0SMITH,JOHN", 17));
  EXPECT_FALSE(NameQuery("SMITH").Matches(tag));
  EXPECT_TRUE(NameQuery("ROE").Matches(tag));
}

TEST(NameSearch, AKeyOfTheFullWidthIsSearchedToItsLastCharacter) {
  const std::string key = std::string(30, 'A') + "YZ";
  EXPECT_TRUE(Finds("yz", key));
  EXPECT_FALSE(Finds("yzx", key));
}

TEST(NameSearch, LettersBeyondAsciiAreFoldedToo) { EXPECT_TRUE(Finds("m\xfcller", "M\xdcLLER,EVA")); }

TEST(NameSearch, ANeedleOfOneCharacterIsFoundAtTheEndOfAKey) {
  EXPECT_TRUE(Finds("z", std::string(31, 'A') + "Z"));
  EXPECT_TRUE(Finds("z", "A", std::string(31, 'A') + "Z"));
  EXPECT_TRUE(Finds("az", "A", std::string(31, 'A') + "Z"));
  EXPECT_FALSE(Finds("zz", std::string(31, 'A') + "Z", "Z,"));
}

TEST(NameSearch, EveryCharacterIsFoundInBothItsCases) {
  for (int i = 1; i < 256; ++i) {
    const char c = static_cast<char>(static_cast<unsigned char>(i));
    if (c == ' ' || c == ',') continue;
    for (const char other : {c, ToUpper(c), ToLower(c)}) {
      EXPECT_TRUE(Finds(std::string(2, c), std::string("x") + other + other)) << i;
      EXPECT_TRUE(Finds(std::string(2, other), std::string("x") + c + c)) << i;
    }
  }
}

TEST(CaselessNeedle, IsFoundWhereverItStands) {
  EXPECT_TRUE(CaselessNeedle("").OccursIn(""));
  EXPECT_FALSE(CaselessNeedle("A").OccursIn(""));
  EXPECT_TRUE(CaselessNeedle("abc").OccursIn("ABC"));
  EXPECT_TRUE(CaselessNeedle("aab").OccursIn("AAAB"));
  EXPECT_FALSE(CaselessNeedle("abc").OccursIn("AB"));
  EXPECT_FALSE(CaselessNeedle("abcd").OccursIn("xABCx"));
}

TEST(SplitName, GoesByTheFirstCommaAndTrims) {
  EXPECT_EQ(SplitName("Smith , John").last, "Smith");
  EXPECT_EQ(SplitName("Smith , John").first, "John");
  EXPECT_EQ(SplitName("Smith").last, "Smith");
  EXPECT_EQ(SplitName("Smith").first, "");
  EXPECT_EQ(SplitName(",John").first, "John");
  EXPECT_EQ(SplitName("A,B,C").first, "B,C");
}

}  // namespace
}  // namespace lantos
