#include "frame/PathText.h"

#include <gtest/gtest.h>

#include "frame/FileIO.h"
#include "frame/RunLog.h"
#include "frame/ScratchDirectory.h"
#include "frame/SharedFile.h"
#include "frame/Text.h"

namespace lantos {
namespace {

constexpr std::string_view kGreek = "/tmp/\xCE\xA9\xCE\xBC\xCE\xAD\xCE\xB3\xCE\xB1/";
constexpr std::string_view kFrench = "/tmp/Caf\xC3\xA9/";
constexpr std::string_view kBroken = "/tmp/\xFF\xC3(\xED\xA0\x80/";
constexpr std::string_view kClef = "/tmp/\xF0\x9D\x84\x9E/";

TEST(PathText, GivesTheVeryBytesBack) {
  for (const std::string_view path :
       {kGreek, kFrench, kBroken, kClef, std::string_view("/tmp/plain/"), std::string_view("/tmp/\xC3\x83\xC2\xA9/"),
        std::string_view("/tmp/\xC2\x81\x33\x41\xC2\x9D/")}) {
    EXPECT_EQ(PathOfText(TextOfPath(path)), path);
    EXPECT_EQ(PlatformPath(TextOfPath(path)).native(), path);
  }
}

TEST(PathText, OfEveryByteAndEveryPairOfBytesGivesThemBack) {
  for (int first = 1; first < 256; ++first) {
    for (int second = 1; second < 256; ++second) {
      const std::string path = {'d', static_cast<char>(first), static_cast<char>(second)};
      ASSERT_EQ(PathOfText(TextOfPath(path)), path) << first << " " << second;
    }
  }
}

TEST(PathText, IsOfThePageWhereThePageHasTheCharacters) {
  EXPECT_EQ(TextOfPath(kFrench), "/tmp/Caf\xE9/");
  EXPECT_EQ(TextOfPath("/tmp/plain/"), "/tmp/plain/");
}

TEST(PathText, IsReadAsTheCharactersThemselves) {
  EXPECT_EQ(ToUtf8(TextOfPath(kGreek)), kGreek);
  EXPECT_EQ(ToUtf8(TextOfPath(kClef)), kClef);
  EXPECT_EQ(ToUtf8(TextOfPath("/tmp/\xFF/")), "/tmp/\xEF\xBF\xBD/");
  EXPECT_EQ(WithReadableEscapes("in " + TextOfPath(kGreek) + " Caf\xE9"), "in " + std::string(kGreek) + " Caf\xE9");
}

TEST(PathText, IsStoredAsPeopleAndOtherProgramsReadIt) {
  EXPECT_EQ(StoredPathText(TextOfPath(kGreek)), kGreek);
  EXPECT_EQ(StoredPathText(TextOfPath(kFrench)), "/tmp/Caf\xE9/");
  for (const std::string_view path : {kGreek, kFrench, kBroken, kClef}) {
    EXPECT_EQ(PathOfText(TextOfPlatform(StoredPathText(TextOfPath(path)))), path);
  }
}

TEST(PathText, TakesNoOtherUseOfItsTwoBytesForTheForm) {
  for (const std::string text : {"\x81", "\x81\x9D",
                                 "\x81"
                                 "3a9\x9D",
                                 "\x81"
                                 "110000\x9D",
                                 "\x81"
                                 "0000041\x9D",
                                 "\x81"
                                 "D800\x9D",
                                 "\x81"
                                 "3A9",
                                 "\x81"
                                 "0\x9D",
                                 "\x81"
                                 "2F\x9D",
                                 "\x81"
                                 "7F\x9D"}) {
    std::size_t position = 0;
    EXPECT_FALSE(NextEscape(text, position)) << text;
    EXPECT_EQ(position, 0U);
  }
}

TEST(PathText, LeadsToFilesInDirectoriesOfAnyName) {
  const test::ScratchDirectory directory;
  StandingClock clock{*ParseLocalTime("2003-11-15T08:15:00")};
  for (const std::string name : {"\xCE\xA9\xCE\xBC", "\xFF\xFE", "Caf\xC3\xA9"}) {
    std::filesystem::create_directory(directory.Path() / name);
    FileIO files(clock);
    files.SetDataDir(TextOfPath(directory.Path() / name) + "\\");
    EXPECT_TRUE(files.MakeNew("Caf\xE9.dat"));
    EXPECT_TRUE(files.FileExists("CAF\xC9.DAT"));
    EXPECT_TRUE(std::filesystem::exists(directory.Path() / name / "Caf\xC3\xA9.dat")) << name;
    RunLog log(files);
    EXPECT_TRUE(log.Open());
  }
}

TEST(PathText, OfAFileThatCannotBeOpenedIsReadable) {
  try {
    const SharedFile file(std::string(kGreek) + "absent", Access::Read, Deny::None, Absent::Fail);
    FAIL();
  } catch (const FileError& error) {
    EXPECT_NE(ToUtf8(error.what()).find(kGreek), std::string::npos) << error.what();
  }
}

}  // namespace
}  // namespace lantos
