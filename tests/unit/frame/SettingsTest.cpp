#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <vector>

#include "frame/LockedText.h"
#include "frame/Options.h"
#include "frame/ScratchDirectory.h"
#include "frame/UserSettings.h"
#include "support/FaultyCalls.h"

namespace lantos {

using test::ScratchDirectory;

namespace {

constexpr const char* kForeign =
    "; kept by somebody else\r\n"
    "[Print Options]\r\n"
    "VehSummaryYears=3\r\n"
    "\r\n"
    "[BENCH 1]\n"
    "FontFactor = 5\n"
    "odd line without a value\r\n";

class Profiles : public ::testing::Test {
 protected:
  ScratchDirectory directory;
  ProfileFile profile{directory.Path() / "Lantos.ini"};
};

}  // namespace

TEST_F(Profiles, AnEntryIsFoundWithoutRegardToCase) {
  directory.Put("Lantos.ini", kForeign);
  EXPECT_EQ(profile.Get("print options", "VEHSUMMARYYEARS", "1"), "3");
  EXPECT_EQ(profile.Get("bench 1", "FontFactor", "0"), "5");
  EXPECT_EQ(profile.Get("bench 2", "FontFactor", "0"), "0");
  EXPECT_EQ(profile.Get("Print Options", "FontFactor", "7"), "7");
}

TEST_F(Profiles, WritingChangesOneLineAndKeepsEveryOther) {
  directory.Put("Lantos.ini", kForeign);
  ASSERT_TRUE(profile.Put("BENCH 1", "FontFactor", "6"));
  std::string expected = kForeign;
  expected.replace(expected.find("FontFactor = 5"), 14, "FontFactor=6");
  EXPECT_EQ(directory.Content("Lantos.ini"), expected);
}

TEST_F(Profiles, ANewEntryGoesBehindTheLastOneOfItsSection) {
  directory.Put("Lantos.ini", kForeign);
  ASSERT_TRUE(profile.Put("Print Options", "PreviewEstimate", "False"));
  std::string expected = kForeign;
  expected.insert(expected.find("\r\n[BENCH 1]"), "PreviewEstimate=False\r\n");
  EXPECT_EQ(directory.Content("Lantos.ini"), expected);
}

TEST_F(Profiles, ANewSectionGoesToTheEndAlsoWhereTheLastLineHasNoEnd) {
  directory.Put("Lantos.ini", "[a]\nb=c");
  ASSERT_TRUE(profile.Put("d", "e", "f"));
  EXPECT_EQ(directory.Content("Lantos.ini"), "[a]\nb=c\n[d]\ne=f\n");
  ASSERT_TRUE(profile.Put("a", "x", "y"));
  EXPECT_EQ(directory.Content("Lantos.ini"), "[a]\nb=c\nx=y\n[d]\ne=f\n");
}

TEST_F(Profiles, OfTwoEqualEntriesTheFirstCounts) {
  directory.Put("Lantos.ini", "[a]\nb=1\nb=2\n[a]\nb=3\n");
  EXPECT_EQ(profile.Get("a", "b", ""), "1");
}

TEST_F(Profiles, AValueCanNotSmuggleInALine) {
  ASSERT_TRUE(profile.Put("a", "b", "c\r\n[d]\r\ne=f"));
  EXPECT_EQ(directory.Content("Lantos.ini"), "[a]\r\nb=c\r\n");
}

TEST_F(Profiles, AFileThatCanNotBeWrittenLosesTheValueSilently) {
  ProfileFile nowhere(directory.Path() / "missing" / "Lantos.ini");
  EXPECT_FALSE(nowhere.Put("a", "b", "c"));
  EXPECT_EQ(nowhere.Get("a", "b", "default"), "default");
}

TEST_F(Profiles, OfAnEntryThatCanNotBeWrittenTheLogHears) {
  std::vector<std::string> heard;
  ProfileFile nowhere(directory / "absent" / "Lantos.ini", [&](const std::string& text) { heard.push_back(text); });
  EXPECT_FALSE(nowhere.Put("Print Options", "PreviewEstimate", "True"));
  ASSERT_EQ(heard.size(), 1U);
  EXPECT_TRUE(heard[0].starts_with("[Print Options] PreviewEstimate could not be saved in ")) << heard[0];
  EXPECT_TRUE(heard[0].ends_with("Lantos.ini")) << heard[0];
}

TEST_F(Profiles, AFileThatOnlyWritesOrOnlyReadsIsLeftAsItIs) {
  directory.Put("Lantos.ini", kForeign);
  std::filesystem::permissions(directory.Path(), std::filesystem::perms::all);
  for (const auto allowed : {0222, 0444}) {
    std::filesystem::permissions(directory / "Lantos.ini", static_cast<std::filesystem::perms>(allowed));
    EXPECT_EQ(test::AsOrdinaryUser([&] { return profile.Put("BENCH 1", "FontFactor", "6") ? 1 : 0; }), 0);
    EXPECT_EQ(directory.Content("Lantos.ini"), kForeign);
  }
}

TEST_F(Profiles, AWriteThatDoesNotFitOnTheDiskLeavesTheFileAsItIs) {
  directory.Put("Lantos.ini", kForeign);
  const int code = test::InChild([&] {
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {std::string_view(kForeign).size() + 4, RLIM_INFINITY};
    if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return 2;
    return profile.Put("Print Options", "PreviewEstimate", "False") ? 1 : 0;
  });
  EXPECT_EQ(code, 0);
  EXPECT_EQ(directory.Content("Lantos.ini"), kForeign);
}

TEST_F(Profiles, AWriteThatBreaksOffLeavesTheFileAsItIs) {
  directory.Put("Lantos.ini", kForeign);
  test::FaultyCalls calls(directory.Path());
  calls.When([](const test::FileCall& call, std::size_t) { return call.kind == test::CallKind::Write ? EIO : 0; });
  EXPECT_FALSE(profile.Put("Print Options", "PreviewEstimate", "False"));
  EXPECT_EQ(profile.Failure().number, FileErrorNumber::DeviceIo);
  // The room is taken, and then the write fails.
  calls.When([writes = 0](const test::FileCall& call, std::size_t) mutable {
    return call.kind == test::CallKind::Write && ++writes == 2 ? EIO : 0;
  });
  EXPECT_FALSE(profile.Put("Print Options", "PreviewEstimate", "False"));
  EXPECT_EQ(directory.Content("Lantos.ini"), kForeign);
}

TEST_F(Profiles, RoomThatWasTakenForATextThatNeverCameIsNoneOfIt) {
  directory.Put("Lantos.ini", std::string("[a]\r\nb=c\r\n") + std::string(30, '\0'));
  EXPECT_TRUE(profile.Put("a", "d", "e"));
  EXPECT_EQ(directory.Content("Lantos.ini"), "[a]\r\nb=c\r\nd=e\r\n");
}

TEST_F(Profiles, AShorterValueLeavesNothingOfTheLongerOneBehind) {
  directory.Put("Lantos.ini", "[a]\nb=a long value\n");
  ASSERT_TRUE(profile.Put("a", "b", "c"));
  EXPECT_EQ(directory.Content("Lantos.ini"), "[a]\nb=c\n");
}

TEST_F(Profiles, WorkstationsThatWriteAtOnceLoseNoneOfTheirEntries) {
  constexpr int kWriters = 4;
  constexpr int kEntries = 50;
  const auto begin = [&](int writer) {
    return test::BeginInChild([&, writer] {
      ProfileFile own(directory.Path() / "Lantos.ini");
      const std::string section = "BENCH" + std::to_string(writer);
      for (int i = 0; i < kEntries; ++i) {
        if (!own.Put(section, "Key" + std::to_string(i), "value")) return 1;
        if (own.Get(section, "Key" + std::to_string(i), "") != "value") return 2;
      }
      return 0;
    });
  };
  std::vector<pid_t> writers;
  for (int writer = 0; writer < kWriters; ++writer) writers.push_back(begin(writer));
  for (const pid_t writer : writers) EXPECT_EQ(test::ResultOf(writer), 0);
  for (int writer = 0; writer < kWriters; ++writer) {
    for (int i = 0; i < kEntries; ++i) {
      EXPECT_EQ(profile.Get("BENCH" + std::to_string(writer), "Key" + std::to_string(i), ""), "value");
    }
  }
}

TEST_F(Profiles, AWriterThatStandsStillHoldsNobodyUpForLong) {
  directory.Put("Lantos.ini", "[a]\nb=1\n");
  const LockedText stuck(directory / "Lantos.ini", LockedText::Purpose::Editing);
  EXPECT_EQ(profile.Get("a", "b", ""), "1");
}

TEST_F(Profiles, PrintOptionsHaveTheirDefaultsAndSurviveARoundTrip) {
  PrintOptions options = LoadPrintOptions(profile);
  EXPECT_TRUE(options.PrintCustomerOnWorksheet);
  EXPECT_FALSE(options.PrintNotesOnWorksheet);
  EXPECT_FALSE(options.PrintDisclosure);
  EXPECT_EQ(options.BlankLinesPerLabor, 3);
  options.BlankPartLines = 12;
  options.ShowPrinterDialog = false;
  SavePrintOptions(profile, options);
  const PrintOptions read = LoadPrintOptions(profile);
  EXPECT_EQ(read.BlankPartLines, 12);
  EXPECT_FALSE(read.ShowPrinterDialog);
  EXPECT_TRUE(read.PreviewEstimate);
}

TEST_F(Profiles, PrintOptionValuesAreCutAtFiveCharacters) {
  directory.Put("Lantos.ini", "[Print Options]\nVehSummaryYears=123456\n");
  EXPECT_EQ(LoadPrintOptions(profile).VehSummaryYears, 12345);
}

TEST_F(Profiles, ATextThatIsNoBooleanRaisesTheConversionErrorWithItsPlace) {
  directory.Put("Lantos.ini", "[Print Options]\nPrintDisclosure=maybe\n");
  try {
    LoadPrintOptions(profile);
    FAIL() << "a word that is no boolean was taken";
  } catch (const std::invalid_argument& error) {
    EXPECT_NE(std::string(error.what()).find("PrintDisclosure"), std::string::npos) << error.what();
  }
}

TEST_F(Profiles, StatusOptionsAreOneCharacterEachAndDefaultToAsk) {
  directory.Put("Lantos.ini", "[Status Options]\nRescheduledAllow=No\nScheduledToComplete=E\n");
  StatusOptions options = LoadStatusOptions(profile);
  EXPECT_EQ(options[StatusOption::RescheduledAllow], 'N');
  EXPECT_EQ(options[StatusOption::ScheduledToComplete], 'E');
  EXPECT_EQ(options[StatusOption::ScheduledToArrived], 'A');
  SaveStatusOptions(profile, options);
  EXPECT_EQ(LoadStatusOptions(profile).letters, options.letters);
}

TEST_F(Profiles, ANewWorkstationInheritsFontFactorAndWritesItsOwnSection) {
  directory.Put("Lantos.ini", "[Lantos Defaults]\nFontFactor=4\n");
  WorkstationProfile workstation(profile, "BENCH2");
  int factor = workstation.ReadFontFactor();
  EXPECT_EQ(factor, 4);
  workstation.WriteFontFactor(factor);
  EXPECT_EQ(profile.Get("BENCH2", "FontFactor", ""), "4");
  EXPECT_EQ(profile.Get("Lantos Defaults", "FontFactor", ""), "4");
}

TEST_F(Profiles, FontFactorZeroInBothSectionsBecomesOneInTheDefaults) {
  directory.Put("Lantos.ini", "[Lantos Defaults]\nFontFactor=0\n[BENCH2]\nFontFactor=0\n");
  EXPECT_EQ(WorkstationProfile(profile, "BENCH2").ReadFontFactor(), 1);
  EXPECT_EQ(directory.Content("Lantos.ini"), "[Lantos Defaults]\nFontFactor=1\n[BENCH2]\nFontFactor=0\n");
}

TEST_F(Profiles, FontFactorIsReadAsOneDigitAndWrittenBetweenOneAndNine) {
  directory.Put("Lantos.ini", "[BENCH2]\nFontFactor=37\n");
  WorkstationProfile workstation(profile, "BENCH2");
  EXPECT_EQ(workstation.ReadFontFactor(), 3);
  int factor = 10;
  workstation.WriteFontFactor(factor);
  EXPECT_EQ(factor, 1);
  EXPECT_EQ(profile.Get("BENCH2", "FontFactor", ""), "1");
}

TEST_F(Profiles, AFontFactorThatIsNoNumberRaisesTheConversionErrorWithItsPlace) {
  directory.Put("Lantos.ini", "[BENCH2]\nFontFactor=large\n");
  try {
    WorkstationProfile(profile, "BENCH2").ReadFontFactor();
    FAIL() << "a word was taken for a number";
  } catch (const std::invalid_argument& error) {
    EXPECT_NE(std::string(error.what()).find("[BENCH2] FontFactor"), std::string::npos) << error.what();
  }
}

TEST_F(Profiles, AFontFactorWithoutAValueIsOneThatIsNotThere) {
  directory.Put("Lantos.ini", "[BENCH2]\nFontFactor=\n[Lantos Defaults]\nFontFactor=7\n");
  EXPECT_EQ(WorkstationProfile(profile, "BENCH2").ReadFontFactor(), 7);
}

TEST_F(Profiles, AComputerWithAnEmptyNameUsesTheDefaultsForEverything) {
  WorkstationProfile workstation(profile, "");
  int factor = 7;
  workstation.WriteFontFactor(factor);
  workstation.WriteBackupCmd("copy all");
  EXPECT_EQ(directory.Content("Lantos.ini"), "[Lantos Defaults]\r\nFontFactor=7\r\nBackupCmd=copy all\r\n");
}

TEST_F(Profiles, BackupCmdWaitFallsBackAndIsWrittenWhereItIsMissing) {
  WorkstationProfile workstation(profile, "BENCH2");
  EXPECT_TRUE(workstation.ReadBackupCmdWait());
  EXPECT_EQ(profile.Get("Lantos Defaults", "BackupCmdWait", ""), "True");
  workstation.WriteBackupCmdWait(false);
  EXPECT_FALSE(workstation.ReadBackupCmdWait());
  EXPECT_EQ(workstation.ReadBackupCmd(), "");
}

TEST(UserSettings, AValueIsKeptByApplicationSectionAndKey) {
  ScratchDirectory directory;
  UserSettings settings(directory.Path() / "deep" / "store");
  EXPECT_EQ(settings.Get("Korvel", "Settings", "DataDir", "none"), "none");
  settings.Save("Korvel", "Settings", "DataDir", "C:\\shop\\");
  settings.Save("MainState", "2");
  UserSettings again(directory.Path() / "deep" / "store");
  EXPECT_EQ(again.Get("Korvel", "Settings", "DataDir"), "C:\\shop\\");
  EXPECT_EQ(again.Get("Lantos", "Settings", "DataDir"), "");
  EXPECT_EQ(again.GetNumber("MainState", 0), 2);
  EXPECT_EQ(again.GetNumber("MainLeft", 1000), 1000);
  EXPECT_TRUE(again.GetBoolean("frmVehListShowDel", true));
}

TEST(UserSettings, AValueThatCanNotBeSavedIsLostAndLogged) {
  ScratchDirectory directory;
  directory.Put("store", "a file where the directory should be");
  UserSettings settings(directory.Path() / "store");
  settings.Save("MainState", "1");
  std::vector<std::string> log;
  settings.logFailure = [&log](const std::string& text) { log.push_back(text); };
  settings.Save("MainState", "2");
  EXPECT_EQ(settings.Get("MainState", "none"), "none");
  ASSERT_EQ(log.size(), 1u);
  EXPECT_EQ(log[0].find("Setting MainState could not be saved in " + (directory / "store").string()), 0u) << log[0];
}

TEST(UserSettings, ANumberThatIsNoneOrBeyondSinglePrecisionRaisesTheConversionError) {
  ScratchDirectory directory;
  UserSettings settings(directory.Path());
  for (const char* text : {"wide", "12x", "1e39", "-1e39", "1e999"}) {
    settings.Save("MainWidth", text);
    EXPECT_THROW(settings.GetNumber("MainWidth", 0), std::invalid_argument) << text;
  }
  settings.Save("MainWidth", "1200.5");
  EXPECT_EQ(settings.GetNumber("MainWidth", 0), 1200.5);
  settings.Save("frmVehListShowDel", "perhaps");
  EXPECT_THROW(settings.GetBoolean("frmVehListShowDel", false), std::invalid_argument);
}

}  // namespace lantos
