#include "frame/FileIO.h"

#include <gtest/gtest.h>

#include "frame/ScratchDirectory.h"
#include "frame/SharedFile.h"

namespace lantos {
namespace {

using test::ScratchDirectory;

struct Shop {
  Shop() { files.SetDataDir(directory.DataDir()); }
  ScratchDirectory directory;
  StandingClock clock{*ParseLocalTime("2003-09-30T08:15:00")};
  FileIO files{clock};
};

std::string MessageOf(const FileIO& files, std::string_view name) {
  try {
    files.PathOf(name);
    return "";
  } catch (const FileError& error) {
    EXPECT_EQ(error.Number(), FileErrorNumber::PathFileAccess);
    return error.what();
  }
}

TEST(PlatformPath, BackslashesAndRunsBecomeOneSeparator) {
  EXPECT_EQ(PlatformPath("/srv/shop/\\"), "/srv/shop/");
  EXPECT_EQ(PlatformPath("C:\\shop\\data\\"), "C:/shop/data/");
  EXPECT_EQ(PlatformPath("\\\\server\\share\\"), "/server/share/");
  EXPECT_EQ(PlatformPath("shop//data"), "shop/data");
  EXPECT_EQ(PlatformPath(""), "");
}

TEST(PlatformPath, AnsiCharactersBecomeUtf8AndUtf8Stays) {
  EXPECT_EQ(PlatformPath("/srv/M\xFCller\\"), "/srv/M\xC3\xBCller/");
  EXPECT_EQ(PlatformPath("/srv/M\xC3\xBCller\\"), "/srv/M\xC3\xBCller/");
  EXPECT_EQ(PlatformPath("/srv/\xC5\x81\xC3\xB3"
                         "d\xC5\xBA\\"),
            "/srv/\xC5\x81\xC3\xB3"
            "d\xC5\xBA/");
}

TEST(FileIO, NamesInLowerUpperAndMixedCaseFindTheExistingSpelling) {
  const Shop shop;
  shop.directory.Put("tqsystem.dat", "");
  shop.directory.Put("TQVENDOR.DAT", "");
  shop.directory.Put("TqVehicl.Dat", "");
  for (const char* name : {"TQSYSTEM.DAT", "tqsystem.dat", "TqSystem.dAT"}) {
    EXPECT_EQ(shop.files.PathOf(name), shop.directory / "tqsystem.dat");
  }
  for (const char* name : {"TQVENDOR.DAT", "tqvendor.dat", "TqVendor.Dat"}) {
    EXPECT_EQ(shop.files.PathOf(name), shop.directory / "TQVENDOR.DAT");
  }
  EXPECT_EQ(shop.files.PathOf("TQVEHICL.DAT"), shop.directory / "TqVehicl.Dat");
}

TEST(FileIO, ANameThatIsNotThereStaysAsGiven) {
  const Shop shop;
  EXPECT_EQ(shop.files.PathOf("TqNew.Dat"), shop.directory / "TqNew.Dat");
}

TEST(FileIO, LettersBeyondAsciiAreFoundInEitherCase) {
  const Shop shop;
  shop.directory.Put("M\xC3\x9CLLER.TXT", "x");  // MÜLLER.TXT
  EXPECT_EQ(shop.files.Length("m\xFCller.txt"), 1u);
  EXPECT_EQ(shop.files.List("m*"), (std::vector<std::string>{"M\xDCLLER.TXT"}));
}

TEST(FileIO, TwoSpellingsOfOneNameAreRefusedAndBothNamed) {
  const Shop shop;
  shop.directory.Put("TQSYSTEM.DAT", "");
  EXPECT_EQ(MessageOf(shop.files, "TQSYSTEM.DAT"), "");
  shop.directory.Put("tqsystem.dat", "");
  for (const char* name : {"TQSYSTEM.DAT", "tqsystem.dat", "TqSystem.Dat"}) {
    const std::string message = MessageOf(shop.files, name);
    EXPECT_NE(message.find("TQSYSTEM.DAT and tqsystem.dat"), std::string::npos) << message;
  }
  EXPECT_EQ(MessageOf(shop.files, "TQVENDOR.DAT"), "");
  std::filesystem::remove(shop.directory / "TQSYSTEM.DAT");
  EXPECT_EQ(shop.files.PathOf("TQSYSTEM.DAT"), shop.directory / "tqsystem.dat");
}

TEST(FileIO, ANameKeepsItsSpellingWhileNamesAreSteady) {
  Shop shop;
  shop.directory.Put("tqvendor.dat", "");
  {
    const FileIO::SteadyNames steady(shop.files);
    EXPECT_EQ(shop.files.PathOf("TQVENDOR.DAT"), shop.directory / "tqvendor.dat");
    EXPECT_EQ(shop.files.PathOf("TQNEW.DAT"), shop.directory / "TQNEW.DAT");
    std::filesystem::rename(shop.directory / "tqvendor.dat", shop.directory / "Tqvendor.dat");
    EXPECT_EQ(shop.files.PathOf("TQVENDOR.DAT"), shop.directory / "tqvendor.dat");
  }
  EXPECT_EQ(shop.files.PathOf("TQVENDOR.DAT"), shop.directory / "Tqvendor.dat");
}

TEST(FileIO, AListedNameKeepsItsSpellingWhileNamesAreSteady) {
  Shop shop;
  shop.directory.Put("au9301.$$$", "");
  shop.directory.Put("AU9302.$$$", "");
  const FileIO::SteadyNames steady(shop.files);
  ASSERT_EQ(shop.files.List("AU93*.$$$"), (std::vector<std::string>{"AU9302.$$$", "au9301.$$$"}));
  std::filesystem::rename(shop.directory / "au9301.$$$", shop.directory / "Au9301.$$$");
  EXPECT_EQ(shop.files.PathOf("au9301.$$$"), shop.directory / "au9301.$$$");
}

TEST(FileIO, TwoListedSpellingsOfOneNameAreStillRefused) {
  Shop shop;
  shop.directory.Put("au9301.$$$", "");
  shop.directory.Put("AU9301.$$$", "");
  const FileIO::SteadyNames steady(shop.files);
  ASSERT_EQ(shop.files.List("AU93*.$$$").size(), 2U);
  EXPECT_THROW(shop.files.PathOf("au9301.$$$"), FileError);
}

TEST(FileIO, WhatLeadsToAFileIsListedAndWhatLeadsToADirectoryIsNot) {
  const Shop shop;
  shop.directory.Put("AU9301.$$$", "");
  std::filesystem::create_directory(shop.directory / "AU9302.$$$");
  std::filesystem::create_symlink("AU9301.$$$", shop.directory / "AU9303.$$$");
  std::filesystem::create_symlink("AU9302.$$$", shop.directory / "AU9304.$$$");
  EXPECT_EQ(shop.files.List("AU93*.$$$"), (std::vector<std::string>{"AU9301.$$$", "AU9303.$$$"}));
}

TEST(FileIO, EachChangeOfTheDirectoryIsSeenAtTheNextLook) {
  const Shop shop;
  for (int i = 0; i < 50; ++i) {
    shop.directory.Put("tqvendor.dat", "");
    EXPECT_EQ(shop.files.PathOf("TQVENDOR.DAT"), shop.directory / "tqvendor.dat");
    std::filesystem::rename(shop.directory / "tqvendor.dat", shop.directory / "TQvendor.DAT");
    EXPECT_EQ(shop.files.PathOf("TQVENDOR.DAT"), shop.directory / "TQvendor.DAT");
    std::filesystem::remove(shop.directory / "TQvendor.DAT");
    EXPECT_EQ(shop.files.PathOf("TQVENDOR.DAT"), shop.directory / "TQVENDOR.DAT");
  }
}

TEST(FileIO, OnANetworkMountAFileThatIsWhereItWasIsFoundWhateverTheTimeOfTheDirectory) {
  Shop shop;
  shop.files.SetAnswersLate(true);
  shop.directory.Put("tqvendor.dat", "");
  EXPECT_EQ(shop.files.PathOf("TQVENDOR.DAT"), shop.directory / "tqvendor.dat");
  shop.directory.Put("other", "");
  EXPECT_EQ(shop.files.PathOf("TQVENDOR.DAT"), shop.directory / "tqvendor.dat");
  std::filesystem::rename(shop.directory / "tqvendor.dat", shop.directory / "Tqvendor.dat");
  EXPECT_EQ(shop.files.PathOf("TQVENDOR.DAT"), shop.directory / "Tqvendor.dat");
  shop.directory.Put("TQNEW.DAT", "");
  EXPECT_EQ(shop.files.PathOf("tqnew.dat"), shop.directory / "TQNEW.DAT");
}

TEST(FileIO, AnotherDataDirectoryForgetsTheSpellingsOfTheFirst) {
  Shop shop;
  const ScratchDirectory other;
  shop.directory.Put("tqvendor.dat", "");
  other.Put("TQVENDOR.dat", "");
  EXPECT_EQ(shop.files.PathOf("TQVENDOR.DAT"), shop.directory / "tqvendor.dat");
  shop.files.SetDataDir(other.DataDir());
  EXPECT_EQ(shop.files.PathOf("TQVENDOR.DAT"), other / "TQVENDOR.dat");
}

TEST(FileIO, ANameIsAppendedToTheDataDirectoryDirectly) {
  Shop shop;
  shop.files.SetDataDir(shop.directory.DataDir() + "TQ");
  shop.directory.Put("tqvendor.dat", "abc");
  EXPECT_EQ(shop.files.Length("VENDOR.DAT"), 3u);
}

TEST(FileIO, FileExistsTrimsTheNameAndFindsItAtOnce) {
  const Shop shop;
  shop.directory.Put("lantos.mdb", "");
  const LocalTime before = shop.clock.Now();
  EXPECT_TRUE(shop.files.FileExists("  Lantos.mdb "));
  EXPECT_EQ(shop.clock.Now(), before);
}

TEST(FileIO, FileExistsOfAnAbsentFileTakesUpToTwoClockTicksOnANetworkDrive) {
  Shop shop;
  shop.files.SetAnswersLate(true);
  const LocalTime before = shop.clock.Now();
  EXPECT_FALSE(shop.files.FileExists("Lantos.mdb"));
  const std::int64_t waited = shop.clock.Now().MillisecondsSince(before);
  EXPECT_GT(waited, 1000);
  EXPECT_LE(waited, 2000);
}

TEST(FileIO, FileExistsTakesTheFirstAnswerOfADiskOfThisMachine) {
  const Shop shop;
  ASSERT_FALSE(shop.files.AnswersLate());
  const LocalTime before = shop.clock.Now();
  EXPECT_FALSE(shop.files.FileExists("Lantos.mdb"));
  EXPECT_EQ(shop.clock.Now(), before);
}

TEST(FileIO, ADirectoryIsNotThereAsAFile) {
  const Shop shop;
  std::filesystem::create_directory(shop.directory / "Lantos.mdb");
  EXPECT_FALSE(shop.files.IsThere("Lantos.mdb"));
  EXPECT_FALSE(shop.files.IsThere(""));
}

TEST(FileIO, ListMatchesWithoutRegardToCaseAndSorts) {
  const Shop shop;
  for (const char* name : {"LNb15001.LOG", "lnb15000.log", "LNb15.TXT", "ALNb15.LOG", "AUb150.$$$"}) {
    shop.directory.Put(name, "");
  }
  std::filesystem::create_directory(shop.directory / "LNdir.LOG");
  EXPECT_EQ(shop.files.List("LN*.LOG"), (std::vector<std::string>{"LNb15001.LOG", "lnb15000.log"}));
  EXPECT_EQ(shop.files.List("AU*.$$$"), (std::vector<std::string>{"AUb150.$$$"}));
  EXPECT_EQ(shop.files.List("LNB1500?.*"), (std::vector<std::string>{"LNb15001.LOG", "lnb15000.log"}));
  EXPECT_TRUE(shop.files.List("X*").empty());
}

TEST(FileIO, AFileThatSomebodyHasOpenIsNotDeleted) {
  const Shop shop;
  shop.directory.Put("lnb15000.log", "x");
  {
    const SharedFile holder(shop.directory / "lnb15000.log", Access::Read, Deny::None);
    EXPECT_FALSE(shop.files.Delete("LNB15000.LOG"));
  }
  EXPECT_TRUE(shop.files.Delete("LNB15000.LOG"));
  EXPECT_EQ(shop.directory.Count(), 0u);
  EXPECT_FALSE(shop.files.Delete("LNB15000.LOG"));
  EXPECT_EQ(shop.directory.Count(), 0u);
}

TEST(FileIO, FlushFileIgnoresABusyFileAndMakesNone) {
  Shop shop;
  shop.files.FlushFile("TQVENDOR.DAT");
  EXPECT_EQ(shop.directory.Count(), 0u);
  shop.directory.Put("TQVENDOR.DAT", "abc");
  shop.files.FlushFile("TQVENDOR.DAT");
  const SharedFile holder(shop.directory / "TQVENDOR.DAT", Access::Read, Deny::None);
  shop.files.FlushFile("TQVENDOR.DAT");
  EXPECT_EQ(shop.directory.Content("TQVENDOR.DAT"), "abc");
}

TEST(FileIO, WhatIsNeitherDeletedNorFlushedIsLoggedUnlessSomebodyHasItOpen) {
  Shop shop;
  std::vector<std::string> log;
  shop.files.logFailure = [&log](const std::string& text) { log.push_back(text); };
  shop.directory.Put("TQVENDOR.DAT", "abc");
  {
    const SharedFile holder(shop.directory / "TQVENDOR.DAT", Access::Read, Deny::None);
    shop.files.FlushFile("TQVENDOR.DAT");
    EXPECT_FALSE(shop.files.Delete("TQVENDOR.DAT"));
    EXPECT_TRUE(log.empty());
  }
  shop.directory.Put("TqVendor.dat", "abc");
  shop.files.FlushFile("tqvendor.dat");
  EXPECT_FALSE(shop.files.Delete("tqvendor.dat"));
  ASSERT_EQ(log.size(), 2u);
  EXPECT_EQ(log[0].find("Not flushed: Error 75: Path/File access error"), 0u) << log[0];
  EXPECT_EQ(log[1].find("Not deleted: Error 75: Path/File access error"), 0u) << log[1];
}

TEST(FileIO, FlushFileReloadsAnEmptyDataDirectoryAndMendsItsEnd) {
  Shop shop;
  shop.files.SetDataDir("");
  shop.files.storedDataDir = [&] { return shop.directory.Path().string() + "/"; };
  shop.files.FlushFile("TQVENDOR.DAT");
  EXPECT_EQ(shop.files.DataDir(), shop.directory.DataDir());
}

}  // namespace
}  // namespace lantos
