#include "records/TextLineReader.h"

#include <sstream>

#include "Fixture.h"

namespace lantos::test {
namespace {

using testing::ElementsAre;
using Text = std::vector<std::string>;

class TextLineReaderTest : public ShopTest {
 protected:
  Text LinesOf(const std::string& bytes, std::uint64_t offset = 0) {
    Put("TEXT.TXT", bytes);
    const SharedFile file(PathOf("TEXT.TXT"), Access::Read, Deny::None);
    TextLineReader reader(file, offset);
    Text lines;
    std::string line;
    while (reader.Next(line)) lines.push_back(line);
    EXPECT_EQ(line, "") << "nothing is left in the line at the end";
    EXPECT_FALSE(reader.Next(line)) << "and so it stays";
    return lines;
  }
};

TEST_F(TextLineReaderTest, ALineEndsAtEachOfTheThreeEnds) {
  EXPECT_THAT(LinesOf("one\r\ntwo\rthree\nfour"), ElementsAre("one", "two", "three", "four"));
  EXPECT_THAT(LinesOf("\r\n\r\r\n\n\r\n"), ElementsAre("", "", "", "", ""));
}

TEST_F(TextLineReaderTest, WhatStandsBehindTheLastEndIsALineIfItIsNotEmpty) {
  EXPECT_THAT(LinesOf(""), testing::IsEmpty());
  EXPECT_THAT(LinesOf("one"), ElementsAre("one"));
  EXPECT_THAT(LinesOf("one\r\n"), ElementsAre("one"));
  EXPECT_THAT(LinesOf("one\r"), ElementsAre("one"));
  EXPECT_THAT(LinesOf("\r\n "), ElementsAre("", " "));
}

TEST_F(TextLineReaderTest, ANulIsACharacterLikeAnyOther) {
  EXPECT_EQ(LinesOf(std::string("a\0b\r\n\0", 6)), (Text{std::string("a\0b", 3), std::string(1, '\0')}));
}

TEST_F(TextLineReaderTest, BeginsAtItsOffset) {
  EXPECT_THAT(LinesOf("one\r\ntwo\r\n", 5), ElementsAre("two"));
  EXPECT_THAT(LinesOf("one\r\ntwo\r\n", 4), ElementsAre("", "two")) << "between the two characters of an end";
  EXPECT_THAT(LinesOf("one\r\ntwo\r\n", 9), ElementsAre(""));
  EXPECT_THAT(LinesOf("one\r\n", 5), testing::IsEmpty());
  EXPECT_THAT(LinesOf("one\r\n", std::uint64_t{1} << 40), testing::IsEmpty());
}

// Wherever a line end falls in the blocks that are read at once, both its characters belong to it.
TEST_F(TextLineReaderTest, LineEndsAtTheEdgeOfABlock) {
  for (const std::string end : {"\r\n", "\r", "\n"}) {
    for (std::size_t length = 8188; length <= 8196; ++length) {
      const std::string line(length, 'x');
      EXPECT_EQ(LinesOf(line + end + end + "y" + end), (Text{line, "", "y"})) << length;
      EXPECT_EQ(LinesOf(line + end), Text{line}) << length;
    }
  }
}

TEST_F(TextLineReaderTest, ALineMayBeLongerThanManyBlocks) {
  const std::string line(100000, 'x');
  EXPECT_EQ(LinesOf(line + "\r\n" + line), (Text{line, line}));
}

// Each sequence of four pieces, against line ends made one and the same first.
TEST_F(TextLineReaderTest, EveryMixtureOfLineEnds) {
  const std::string pieces[] = {"a", "\r", "\n", "bc", "\r\n", std::string(1, '\0')};
  const auto replace = [](std::string text, const std::string& what) {
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at)) {
      text.replace(at, what.size(), "\n");
    }
    return text;
  };
  for (std::size_t number = 0; number < 6 * 6 * 6 * 6; ++number) {
    std::string bytes;
    for (std::size_t rest = number, i = 0; i < 4; ++i, rest /= 6) bytes += pieces[rest % 6];
    std::istringstream text(replace(replace(bytes, "\r\n"), "\r"));
    Text expected;
    for (std::string line; std::getline(text, line);) expected.push_back(line);
    ASSERT_EQ(LinesOf(bytes), expected) << number;
  }
}

}  // namespace
}  // namespace lantos::test
