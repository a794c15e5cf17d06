#include "frame/DirectoryNames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "frame/FileError.h"
#include "frame/ScratchDirectory.h"

// A directory of so many names that it is followed: what the kernel tells has to come to what a reading would.
namespace lantos {
namespace {

using test::ScratchDirectory;

constexpr int kMany = 1500;

std::string TextOfWorkorder(int number) { return "W" + std::to_string(1000000 + number) + ".tqa"; }

class FollowedNames : public testing::Test {
 protected:
  FollowedNames() {
    for (int i = 0; i < kMany; ++i) directory.Put(TextOfWorkorder(i), "");
    directory.Put("tqvendor.dat", "");
  }
  // The reading that finds out how many there are, and the one that what comes meanwhile is told to.
  void SetUp() override {
    ASSERT_EQ(names.SpellingOf("TQVENDOR.DAT"), "tqvendor.dat");
    if (names.TimesRead() == 1) GTEST_SKIP() << "on this disk nothing is told of what comes and goes";
    ASSERT_EQ(names.TimesRead(), 2U);
  }
  void Rename(const std::string& from, const std::string& to) {
    std::filesystem::rename(directory / from, directory / to);
  }

  ScratchDirectory directory;
  DirectoryNames names{directory.Path().string() + "/"};
};

TEST_F(FollowedNames, ALookBehindAChangeOfAnotherFileReadsNothingAgain) {
  for (int i = 0; i < 50; ++i) {
    directory.Put("Lantos.mdb-journal", "");
    std::filesystem::remove(directory / "Lantos.mdb-journal");
    EXPECT_EQ(names.SpellingOf("TQVENDOR.DAT"), "tqvendor.dat");
    EXPECT_EQ(names.SpellingOf("Lantos.mdb-journal"), "");
  }
  EXPECT_EQ(names.TimesRead(), 2U);
}

TEST_F(FollowedNames, WhatComesIsRenamedAndGoesIsKnownAtTheNextLook) {
  for (int i = 0; i < 50; ++i) {
    Rename("tqvendor.dat", "TQvendor.DAT");
    EXPECT_EQ(names.SpellingOf("TQVENDOR.DAT"), "TQvendor.DAT");
    std::filesystem::remove(directory / "TQvendor.DAT");
    EXPECT_EQ(names.SpellingOf("TQVENDOR.DAT"), "");
    std::filesystem::create_hard_link(directory / TextOfWorkorder(0), directory / "TqVendor.dat");
    EXPECT_EQ(names.SpellingOf("TQVENDOR.DAT"), "TqVendor.dat");
    Rename("TqVendor.dat", "tqvendor.dat");
    EXPECT_EQ(names.SpellingOf("TQVENDOR.DAT"), "tqvendor.dat");
  }
  EXPECT_EQ(names.TimesRead(), 2U);
}

TEST_F(FollowedNames, ASecondSpellingIsRefusedForAsLongAsItIsThere) {
  directory.Put("TQVENDOR.DAT", "");
  EXPECT_THROW(names.SpellingOf("TqVendor.Dat"), FileError);
  directory.Put("Tqvendor.dat", "");
  std::filesystem::remove(directory / "tqvendor.dat");
  EXPECT_THROW(names.SpellingOf("TqVendor.Dat"), FileError);
  std::filesystem::remove(directory / "Tqvendor.dat");
  EXPECT_EQ(names.SpellingOf("TqVendor.Dat"), "TQVENDOR.DAT");
  EXPECT_EQ(names.TimesRead(), 2U);
}

TEST_F(FollowedNames, APatternFindsTheFilesOfThisMoment) {
  directory.Put("au9301.$$$", "");
  directory.Put("AU9301.$$$", "");
  std::filesystem::create_directory(directory / "AU9302.$$$");
  std::filesystem::create_symlink("AU9302.$$$", directory / "AU9303.$$$");
  EXPECT_EQ(names.Matching("Au93*.$$$"), (std::vector<std::string>{"AU9301.$$$", "au9301.$$$"}));
  std::filesystem::remove(directory / "AU9301.$$$");
  EXPECT_EQ(names.Matching("Au93*.$$$"), (std::vector<std::string>{"au9301.$$$"}));
  EXPECT_EQ(names.Matching("W10000?5.tqa").size(), 10U);
  EXPECT_EQ(names.TimesRead(), 2U);
}

TEST_F(FollowedNames, OfMoreChangesThanTheKernelKeepsAllNamesAreReadAnew) {
  constexpr int kPairs = 9000;  // two each, of 16,384 that are kept where nobody has set another number
  for (int i = 0; i < kPairs; ++i) {
    std::filesystem::create_hard_link(directory / "tqvendor.dat", directory / "Lantos.mdb-journal");
    std::filesystem::remove(directory / "Lantos.mdb-journal");
  }
  Rename("tqvendor.dat", "TQvendor.DAT");
  EXPECT_EQ(names.SpellingOf("TQVENDOR.DAT"), "TQvendor.DAT");
  const std::size_t readBefore = names.TimesRead();
  Rename("TQvendor.DAT", "tqvendor.dat");
  EXPECT_EQ(names.SpellingOf("TQVENDOR.DAT"), "tqvendor.dat");
  EXPECT_EQ(names.TimesRead(), readBefore) << "it is followed again";
}

TEST_F(FollowedNames, AnotherDirectoryAtThePathIsReadAndFollowed) {
  const std::filesystem::path& path = directory.Path();
  const std::filesystem::path aside = path.string() + ".aside";
  std::filesystem::rename(path, aside);
  std::filesystem::create_directory(path);
  directory.Put("TQVENDOR.dat", "");
  EXPECT_EQ(names.SpellingOf("TQVENDOR.DAT"), "TQVENDOR.dat");
  EXPECT_EQ(names.SpellingOf(TextOfWorkorder(1)), "");
  std::filesystem::remove_all(path);
  std::filesystem::rename(aside, path);
  EXPECT_EQ(names.SpellingOf("TQVENDOR.DAT"), "tqvendor.dat");
  Rename("tqvendor.dat", "TqVendor.dat");
  EXPECT_EQ(names.SpellingOf("TQVENDOR.DAT"), "TqVendor.dat");
}

TEST_F(FollowedNames, ADirectoryThatWentHasNoNames) {
  std::filesystem::remove_all(directory.Path());
  EXPECT_EQ(names.SpellingOf("TQVENDOR.DAT"), "");
}

// Held against looks at each spelling that there may be.
TEST_F(FollowedNames, RandomChangesComeToWhatIsThere) {
  const std::vector<std::vector<std::string>> spellings = {
      {"A.DAT", "A.dat", "a.dat"}, {"B.DAT", "b.dat"}, {"C.DAT", "c.DAT", "c.dat"}};
  std::mt19937 dice(20030930);
  const auto throwOf = [&](std::size_t sides) {
    return std::uniform_int_distribution<std::size_t>(0, sides - 1)(dice);
  };
  const auto any = [&] {
    const std::vector<std::string>& those = spellings[throwOf(spellings.size())];
    return those[throwOf(those.size())];
  };
  for (int round = 0; round < 2000; ++round) {
    for (std::size_t changes = throwOf(3); changes > 0; --changes) {
      const std::string name = any();
      if (!std::filesystem::exists(directory / name)) {
        std::filesystem::create_hard_link(directory / "tqvendor.dat", directory / name);
      } else if (throwOf(2) == 0) {
        std::filesystem::remove(directory / name);
      } else {
        Rename(name, any());
      }
    }
    for (const std::vector<std::string>& those : spellings) {
      std::vector<std::string> there;
      std::copy_if(those.begin(), those.end(), std::back_inserter(there),
                   [&](const std::string& name) { return std::filesystem::exists(directory / name); });
      if (there.size() > 1) {
        ASSERT_THROW(names.SpellingOf(those.front()), FileError) << "round " << round;
      } else {
        ASSERT_EQ(names.SpellingOf(those.front()), there.empty() ? "" : there.front()) << "round " << round;
      }
    }
  }
  EXPECT_EQ(names.TimesRead(), 2U);
}

}  // namespace
}  // namespace lantos
