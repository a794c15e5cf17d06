#include "shopmaker/Random.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace lantos {
namespace {

std::vector<std::uint64_t> FirstOf(Random random) {
  std::vector<std::uint64_t> numbers;
  for (int i = 0; i < 8; ++i) numbers.push_back(random.Next());
  return numbers;
}

TEST(Random, TheSameSeedGivesTheSameNumbers) { EXPECT_EQ(FirstOf(Random(7, 1)), FirstOf(Random(7, 1))); }

// Seed and stream 0 leave the state 0: the published first numbers of SplitMix64.
TEST(Random, TheNumbersAreThoseOfSplitMix64) {
  Random random(0, 0);
  EXPECT_EQ(random.Next(), 0xE220A8397B1DCDAFu);
  EXPECT_EQ(random.Next(), 0x6E789E6AA1B965F4u);
  EXPECT_EQ(random.Next(), 0x06C45D188009454Fu);
}

TEST(Random, AnotherSeedOrAnotherStreamGivesOtherNumbers) {
  EXPECT_NE(FirstOf(Random(7, 1)), FirstOf(Random(8, 1)));
  EXPECT_NE(FirstOf(Random(7, 1)), FirstOf(Random(7, 2)));
}

TEST(Random, ARangeHoldsBothItsEndsAndNothingElse) {
  Random random(3, 1);
  std::set<std::int32_t> seen;
  for (int i = 0; i < 500; ++i) seen.insert(random.Between(-2, 3));
  EXPECT_EQ(seen, (std::set<std::int32_t>{-2, -1, 0, 1, 2, 3}));
}

TEST(Random, AChanceOfNoneNeverComesAndAChanceOfAHundredAlways) {
  Random random(3, 1);
  for (int i = 0; i < 200; ++i) {
    EXPECT_FALSE(random.Chance(0));
    EXPECT_TRUE(random.Chance(100));
  }
}

}  // namespace
}  // namespace lantos
