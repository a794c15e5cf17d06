#include "start/DataDirectory.h"

#include "start/InstalledShop.h"
#include "support/FaultyCalls.h"

namespace lantos {
namespace {

using test::InstalledShop;
using ui::Answer;

struct Search : InstalledShop {
  bool Resolve() { return ResolveDataDir(environment, desktop); }
  // The person's answer to the question for the directory; an empty one is Cancel.
  void WillEnter(const std::string& text) {
    desktop.WillUse([text](ui::Form& form) {
      if (text.empty()) return form.PressKey(ui::ParseKey("Esc"));
      dynamic_cast<ui::TextBox&>(*form.Find("TextString")).SetText(text);
      form.PressKey(ui::ParseKey("F10"));
    });
  }
  void ExpectQuestion(std::size_t place, const std::string& directory) const {
    const ui::Box& box = desktop.boxes.at(place);
    EXPECT_EQ(box.text, "No scheduler files in data directory '" + directory + "'!\r\rChange directory?");
    EXPECT_EQ(box.title, "Error");
    EXPECT_EQ(box.icon, ui::Icon::Question);
    EXPECT_EQ(box.buttons, ui::Buttons::YesNoCancel);
  }
  void ExpectMustBeSpecified(std::size_t place) const {
    const ui::Box& box = desktop.boxes.at(place);
    EXPECT_EQ(box.text, "Data directory must be specified!");
    EXPECT_EQ(box.title, "Fatal Error");
    EXPECT_EQ(box.icon, ui::Icon::Critical);
    EXPECT_EQ(box.buttons, ui::Buttons::Ok);
  }

  Environment environment{clock, settings};
};

TEST(CommandLine, TheSwitchInEitherCaseWithOrWithoutBackslashStoresTheSame) {
  for (const char* line : {"/D=C:\\shop", "/d=C:\\shop", "/D=C:\\shop\\", "  /d=C:\\shop\\  "}) {
    Search search;
    ProcessCommandLine(search.environment, search.desktop, line);
    EXPECT_EQ(search.StoredDataDir(), "C:\\shop\\") << line;
    EXPECT_EQ(search.environment.files.DataDir(), "") << "it has no other effect";
  }
}

TEST(CommandLine, TheRestOfTheLineIsTheDirectoryWhateverStandsInIt) {
  Search search;
  ProcessCommandLine(search.environment, search.desktop, "/D=/srv/my shop /D=x/");
  EXPECT_EQ(search.StoredDataDir(), "/srv/my shop /D=x/\\");
  ProcessCommandLine(search.environment, search.desktop, "/D=");
  EXPECT_EQ(search.StoredDataDir(), "\\");
}

TEST(CommandLine, ThereIsNoOtherSwitch) {
  for (const char* line : {"", "/X=/srv/shop", "/D /srv/shop", "D=/srv/shop", "x /D=/srv/shop", "-D=/srv/shop"}) {
    Search search;
    search.StoreDataDir("kept\\");
    ProcessCommandLine(search.environment, search.desktop, line);
    EXPECT_EQ(search.StoredDataDir(), "kept\\") << line;
  }
}

TEST(CommandLine, ADirectoryThatCanNotBeStoredIsToldAndTriedAgain) {
  Search search;
  search.StoreDataDir("kept\\");
  test::FaultyCalls calls(search.store.Path());
  for (const Answer answer : {Answer::Cancel, Answer::Retry}) {
    calls.FailOn("Korvel.conf", test::Fault::DiskFull);
    search.desktop.WillAnswer([&](const ui::Box& box) {
      EXPECT_EQ(box.text, "The data directory '/srv/shop\\' could not be stored in\r" +
                              (search.store / "Korvel.conf").string() +
                              ": the disk is full.\r\rClick Retry to try again, or Cancel to go on in the directory of "
                              "before.");
      EXPECT_EQ(box.title, "Lantos");
      EXPECT_EQ(box.buttons, ui::Buttons::RetryCancel);
      calls.Mend();
      return answer;
    });
    ProcessCommandLine(search.environment, search.desktop, "/D=/srv/shop");
    EXPECT_EQ(search.StoredDataDir(), answer == Answer::Cancel ? "kept\\" : "/srv/shop\\");
  }
}

TEST(DataDirectory, IsTheStoredOneWhereTheDatabaseLies) {
  Search search;
  EXPECT_TRUE(search.Resolve());
  EXPECT_EQ(search.environment.files.DataDir(), search.data.DataDir());
  EXPECT_TRUE(search.desktop.boxes.empty());
}

TEST(DataDirectory, AStoredSlashAtTheEndIsMendedInMemoryOnly) {
  Search search;
  search.StoreDataDir(search.data.Path().string() + "/");
  EXPECT_TRUE(search.Resolve());
  EXPECT_EQ(search.environment.files.DataDir(), search.data.DataDir());
  EXPECT_EQ(search.StoredDataDir(), search.data.Path().string() + "/");
}

TEST(DataDirectory, AStoredOneWithoutAnySeparatorIsTakenAsItStands) {
  Search search;
  search.StoreDataDir(search.data.Path().string());
  search.desktop.WillAnswer(Answer::Cancel);
  EXPECT_FALSE(search.Resolve());
  search.ExpectQuestion(0, search.data.Path().string());
}

TEST(DataDirectory, AnAnswerThatCanNotBeStoredCountsForThisRun) {
  Search search;
  search.StoreDataDir("");
  test::FaultyCalls calls(search.store.Path());
  calls.FailOn("Korvel.conf", test::Fault::ReadOnly);
  search.WillEnter(search.data.Path().string());
  search.desktop.WillAnswer([](const ui::Box& box) {
    EXPECT_TRUE(
        box.text.ends_with(": it is read-only, or closed to you by its permissions.\r\rClick Retry to try "
                           "again, or Cancel to use it this time only."))
        << box.text;
    return Answer::Cancel;
  });
  EXPECT_TRUE(search.Resolve());
  EXPECT_EQ(search.StoredDataDir(), "");
}

TEST(DataDirectory, IsAskedForWhereNoneIsStoredAndEndsInBothSlashesInThatRun) {
  Search search;
  search.StoreDataDir("");
  search.WillEnter("  " + search.data.Path().string() + " ");
  EXPECT_TRUE(search.Resolve());
  EXPECT_EQ(search.environment.files.DataDir(), search.data.Path().string() + "/\\");
  EXPECT_EQ(search.StoredDataDir(), search.data.Path().string() + "/");
  EXPECT_TRUE(search.desktop.boxes.empty());
  EXPECT_EQ(search.desktop.FindForm("frmEnterDir"), nullptr);
}

TEST(DataDirectory, WithoutAnAnswerItMustBeSpecifiedAndTheSearchGoesOnWithAnEmptyOne) {
  Search search;
  search.StoreDataDir("");
  search.WillEnter("");
  search.desktop.WillAnswer({Answer::Ok, Answer::Cancel});
  EXPECT_FALSE(search.Resolve());
  search.ExpectMustBeSpecified(0);
  search.ExpectQuestion(1, "");
  EXPECT_EQ(search.StoredDataDir(), "");
}

TEST(DataDirectory, CancelGivesUpWithoutAFurtherMessage) {
  Search search;
  search.StoreDataDir("/no/such/place\\");
  search.desktop.WillAnswer(Answer::Cancel);
  EXPECT_FALSE(search.Resolve());
  ASSERT_EQ(search.desktop.boxes.size(), 1U);
  search.ExpectQuestion(0, "/no/such/place\\");
}

TEST(DataDirectory, NoRepeatsTheQuestionWithNoChangeUntilTheFileTurnsUp) {
  Search search;
  std::filesystem::rename(search.data / "Lantos.mdb", search.data / "elsewhere");
  search.desktop.WillAnswer({Answer::No, Answer::No});
  search.desktop.WillAnswer([&](const ui::Box&) {
    std::filesystem::rename(search.data / "elsewhere", search.data / "Lantos.mdb");
    return Answer::No;
  });
  EXPECT_TRUE(search.Resolve());
  ASSERT_EQ(search.desktop.boxes.size(), 3U);
  for (std::size_t i = 0; i < 3; ++i) search.ExpectQuestion(i, search.data.DataDir());
  EXPECT_EQ(search.StoredDataDir(), search.data.DataDir());
}

TEST(DataDirectory, YesAsksForAnotherAndKeepsEvenAWrongAnswer) {
  Search search;
  search.StoreDataDir("/no/such/place\\");
  search.desktop.WillAnswer(Answer::Yes);
  search.WillEnter("/nor/this");
  search.desktop.WillAnswer([&](const ui::Box&) {
    EXPECT_EQ(search.StoredDataDir(), "/nor/this/");
    return Answer::Yes;
  });
  search.WillEnter(search.data.Path().string());
  EXPECT_TRUE(search.Resolve());
  search.ExpectQuestion(1, "/nor/this/\\");
  EXPECT_EQ(search.environment.files.DataDir(), search.data.Path().string() + "/\\");
}

TEST(DataDirectory, YesWithoutAnAnswerEndsTheSearch) {
  Search search;
  search.StoreDataDir("/no/such/place\\");
  search.desktop.WillAnswer({Answer::Yes, Answer::Ok});
  search.WillEnter("");
  EXPECT_FALSE(search.Resolve());
  ASSERT_EQ(search.desktop.boxes.size(), 2U);
  search.ExpectMustBeSpecified(1);
}

TEST(DataDirectory, TheDatabaseIsFoundInAnyCase) {
  Search search;
  std::filesystem::rename(search.data / "Lantos.mdb", search.data / "LANTOS.MDB");
  EXPECT_TRUE(search.Resolve());
}

TEST(StoredDirectory, IsReloadedBeforeAFileIsFlushedWithoutADirectory) {
  Search search;
  search.StoreDataDir(search.data.Path().string() + "/");
  EXPECT_EQ(StoredDataDir(search.environment), search.data.DataDir());
  search.environment.files.storedDataDir = [&] { return StoredDataDir(search.environment); };
  search.environment.files.FlushFile("TQSYSTEM.DAT");
  EXPECT_EQ(search.environment.files.DataDir(), search.data.DataDir());
}

}  // namespace
}  // namespace lantos
