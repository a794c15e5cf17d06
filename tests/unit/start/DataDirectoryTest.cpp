#include "start/DataDirectory.h"

#include "start/InstalledShop.h"

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
    ProcessCommandLine(search.environment, line);
    EXPECT_EQ(search.StoredDataDir(), "C:\\shop\\") << line;
    EXPECT_EQ(search.environment.files.DataDir(), "") << "it has no other effect";
  }
}

TEST(CommandLine, TheRestOfTheLineIsTheDirectoryWhateverStandsInIt) {
  Search search;
  ProcessCommandLine(search.environment, "/D=/srv/my shop /D=x/");
  EXPECT_EQ(search.StoredDataDir(), "/srv/my shop /D=x/\\");
  ProcessCommandLine(search.environment, "/D=");
  EXPECT_EQ(search.StoredDataDir(), "\\");
}

TEST(CommandLine, ThereIsNoOtherSwitch) {
  for (const char* line : {"", "/X=/srv/shop", "/D /srv/shop", "D=/srv/shop", "x /D=/srv/shop", "-D=/srv/shop"}) {
    Search search;
    search.StoreDataDir("kept\\");
    ProcessCommandLine(search.environment, line);
    EXPECT_EQ(search.StoredDataDir(), "kept\\") << line;
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
