#include "records/Record.h"

#include <gtest/gtest.h>

#include "frame/Dates.h"
#include "frame/Types.h"

namespace lantos {
namespace {

constexpr TextField kText{2, 5};
constexpr LongField kLong{kText.End()};

TEST(Record, ATextOfExactlyTheFieldsWidthRoundTripsWithoutATerminator) {
  Record<12> record;
  record.Put(kLong, -1);
  record.Put(kText, "abcde");
  EXPECT_EQ(record.Get(kText), "abcde");
  EXPECT_EQ(record.Bytes()[6], std::byte{'e'});
  EXPECT_EQ(record.Bytes()[7], std::byte{0xFF});
}

TEST(Record, ALongerTextIsCutAtTheWidth) {
  Record<12> record;
  record.Put(kText, "abcdefgh");
  EXPECT_EQ(record.Get(kText), "abcde");
  EXPECT_EQ(record.Get(kLong), 0);
}

TEST(Record, AFieldThatHoldsTextThenANulThenOldBytesYieldsOnlyTheTextBeforeTheNul) {
  Record<12> record;
  record.Put(kText, std::string_view("ab\0de", 5));
  EXPECT_EQ(record.Get(kText), "ab");
}

TEST(Record, AShorterTextLeavesNothingOfTheOlderOne) {
  Record<12> record;
  record.Put(kText, "abcde");
  record.Put(kText, "x");
  for (std::size_t i = 3; i < 7; ++i) EXPECT_EQ(record.Bytes()[i], std::byte{0});
}

TEST(Record, NumbersAreLittleEndianAndSigned) {
  Record<12> record;
  record.Put(kLong, -2);
  EXPECT_EQ(record.Bytes()[7], std::byte{0xFE});
  EXPECT_EQ(record.Bytes()[10], std::byte{0xFF});
  EXPECT_EQ(record.Get(kLong), -2);
  record.Put(IntegerField{0}, 0x0102);
  EXPECT_EQ(record.Bytes()[0], std::byte{2});
}

TEST(FileDates, ADateOf37894OnDiskReadsAs37894AndADateOf731868Too) {
  EXPECT_EQ(FromFileDate(37894), 37894);
  EXPECT_EQ(FromFileDate(731868), 37894);
  EXPECT_EQ(ToFileDate(37894), 731868);
}

}  // namespace
}  // namespace lantos
