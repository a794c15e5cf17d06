#include "spelling/OwnWords.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "frame/ScratchDirectory.h"

namespace lantos::test {
namespace {

struct OwnWordsOnDisk {
  ScratchDirectory directory;
  OwnWords words{directory / "settings"};

  void Put(const std::string& text) const {
    std::filesystem::create_directories(words.File().parent_path());
    std::ofstream(words.File(), std::ios::binary) << text;
  }
  std::string Content() const {
    std::ifstream file(words.File(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
};

TEST(OwnWords, AreNoneWithoutAFile) {
  const OwnWordsOnDisk disk;
  EXPECT_TRUE(disk.words.Load().Empty());
  EXPECT_FALSE(std::filesystem::exists(disk.words.File()));
}

TEST(OwnWords, AreKeptInUtf8AndKnownInAnyCase) {
  OwnWordsOnDisk disk;
  ASSERT_TRUE(disk.words.Add({"serpentine", "caf\xE9"}));
  ASSERT_TRUE(disk.words.Add({"Tie-rod"}));
  EXPECT_EQ(disk.Content(), "serpentine\ncaf\xC3\xA9\nTie-rod\n");
  EXPECT_TRUE(disk.words.Load().Has("CAF\xC9"));
}

TEST(OwnWords, WrittenByHandNeedNoOrderAndNoLastLineEnd) {
  OwnWordsOnDisk disk;
  disk.Put("\xEF\xBB\xBF  strut \r\n\r\n" + std::string(100'000, 'x') + "\nlug");
  ASSERT_TRUE(disk.words.Add({"hub"}));
  const WordSet words = disk.words.Load();
  EXPECT_TRUE(words.Has("strut"));
  EXPECT_TRUE(words.Has("lug"));
  EXPECT_TRUE(words.Has("hub"));
  EXPECT_FALSE(words.Has(std::string(100'000, 'x')));
}

TEST(OwnWords, StayAsTheyAreWhereTheyCanNotBeStored) {
  OwnWordsOnDisk disk;
  std::filesystem::create_directories(disk.words.File());
  EXPECT_FALSE(disk.words.Add({"hub"}));
  EXPECT_TRUE(disk.words.Load().Empty());
  EXPECT_NE(InWords(disk.words.Failure(), "x").find("words.txt"), std::string::npos);
}

}  // namespace
}  // namespace lantos::test
