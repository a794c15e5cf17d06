#include "frame/PlainWords.h"

#include <gtest/gtest.h>

namespace lantos {
namespace {

TEST(PlainWords, AreToldInPlaceOfTheTextWhereThereAreSome) {
  const WordedError worded("constraint failed: insert into", "It is there already.");
  const std::exception& error = worded;
  EXPECT_EQ(WordsFor(error), "It is there already.");
  EXPECT_STREQ(error.what(), "constraint failed: insert into");
  EXPECT_EQ(WordsFor(std::runtime_error("Overflow")), "Overflow");
}

}  // namespace
}  // namespace lantos
