#include "admin/TestShop.h"
#include "start/frmEnterDir.h"
#include "start/frmSplash.h"

namespace lantos {
namespace {

using test::TestShop;

struct Screen : TestShop {
  Screen() {
    std::filesystem::create_directories(directory / "data/inner");
    std::filesystem::create_directories(directory / "archive");
    std::filesystem::create_directories(directory / ".hidden");
    directory.Put("file.txt", "no directory");
    setenv("HOME", directory.Path().c_str(), 1);
    form.Show();
    setenv("HOME", home.c_str(), 1);
  }
  std::string Stored() const { return settings.Get(kMainApplication, kSettingsSection, "DataDir"); }
  std::string PathTo(const std::string& name) const { return (directory / name).string(); }
  int Row(const std::string& name) const { return form.Dir1.FindText(name); }

  std::string home = std::getenv("HOME") != nullptr ? std::getenv("HOME") : "/";
  frmEnterDir form{desktop, environment};
};

TEST(EnterDir, AsksForTheDirectoryUnderItsCaption) {
  Screen screen;
  EXPECT_EQ(screen.form.Caption(), "Enter Data Files Directory");
  EXPECT_EQ(screen.form.lblDirectory.Caption(), "&Directory?");
  EXPECT_EQ(screen.form.TextString.Text(), "");
  EXPECT_EQ(screen.form.Focus(), &screen.form.TextString);
}

TEST(EnterDir, OkAppendsASlashAndStoresTheAnswerAtOnce) {
  Screen screen;
  test::Type(screen.form.TextString, "  /srv/shop ");
  test::Click(screen.form.cmdOK);
  EXPECT_EQ(screen.form.answer, "/srv/shop/");
  EXPECT_EQ(screen.Stored(), "/srv/shop/");
  EXPECT_EQ(screen.environment.files.DataDir(), "/srv/shop/");
  EXPECT_FALSE(screen.form.Visible());
}

TEST(EnterDir, ASlashThatIsThereIsNotDoubled) {
  Screen screen;
  test::Type(screen.form.TextString, "/srv/shop/");
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.Stored(), "/srv/shop/");
}

TEST(EnterDir, ABackslashAtTheEndStillGetsItsSlash) {
  Screen screen;
  test::Type(screen.form.TextString, "/srv/shop\\");
  test::Press(screen.form, "Enter");
  EXPECT_EQ(screen.Stored(), "/srv/shop\\/");
}

TEST(EnterDir, AnAnswerSurvivesAlsoWhenTheDirectoryIsWrong) {
  Screen screen;
  test::Type(screen.form.TextString, "/no/such/place");
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.Stored(), "/no/such/place/");
}

TEST(EnterDir, CancelGivesAnEmptyAnswerAndStoresNothing) {
  Screen screen;
  const std::string before = screen.environment.files.DataDir();
  test::Type(screen.form.TextString, "/srv/shop");
  test::Press(screen.form, "Esc");
  EXPECT_EQ(screen.form.answer, "");
  EXPECT_EQ(screen.Stored(), "");
  EXPECT_EQ(screen.environment.files.DataDir(), before);
  EXPECT_FALSE(screen.form.Visible());
}

TEST(EnterDir, OkOnAnEmptyTextIsAnEmptyAnswer) {
  Screen screen;
  test::Type(screen.form.TextString, "   ");
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.form.answer, "");
  EXPECT_EQ(screen.Stored(), "");
}

TEST(EnterDir, ListsTheSubDirectoriesBehindTheWayUp) {
  Screen screen;
  ASSERT_EQ(screen.form.Drive1.Text(), screen.directory.Path().string());
  std::vector<std::string> rows;
  for (const ui::ListRow& row : screen.form.Dir1.Rows()) rows.push_back(row.text);
  EXPECT_EQ(rows, (std::vector<std::string>{"..", "archive", "data"}));
}

TEST(EnterDir, AClickCopiesThePathAndStaysWhereItIs) {
  Screen screen;
  screen.form.Dir1.DoSelect(screen.Row("data"));
  EXPECT_EQ(screen.form.TextString.Text(), screen.PathTo("data"));
  EXPECT_EQ(screen.form.Dir1.ListCount(), 3);
  screen.form.Dir1.DoSelect(0);
  EXPECT_EQ(screen.form.TextString.Text(), screen.directory.Path().parent_path().string());
}

TEST(EnterDir, ADoubleClickGoesIntoTheDirectoryAndUpAgain) {
  Screen screen;
  screen.form.Dir1.DoSelect(screen.Row("data"));
  screen.form.Dir1.DoDoubleClick();
  EXPECT_EQ(screen.form.TextString.Text(), screen.PathTo("data"));
  ASSERT_EQ(screen.form.Dir1.ListCount(), 2);
  EXPECT_EQ(screen.form.Dir1.List(1), "inner");
  screen.form.Dir1.DoSelect(0);
  screen.form.Dir1.DoDoubleClick();
  EXPECT_GE(screen.Row("archive"), 0);
}

TEST(EnterDir, EnterInTheListGoesIntoTheDirectoryAndNotToOk) {
  Screen screen;
  screen.form.MoveFocus(&screen.form.Dir1);
  screen.form.Dir1.DoSelect(screen.Row("data"));
  test::Press(screen.form, "Enter");
  EXPECT_TRUE(screen.form.Visible());
  EXPECT_GE(screen.Row("inner"), 0);
}

TEST(EnterDir, ChoosingADriveMovesTheListThere) {
  Screen screen;
  ASSERT_EQ(screen.form.Drive1.List(0), "/");
  screen.form.Drive1.DoSelect(0);
  EXPECT_EQ(screen.form.TextString.Text(), "/");
  EXPECT_EQ(screen.Row(".."), -1) << "there is nothing above the root";
  EXPECT_GE(screen.Row("usr"), 0);
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.Stored(), "/");
}

TEST(EnterDir, ServesTheGlobalKeys) {
  Screen screen;
  test::Press(screen.form, "Ctrl+Alt+P");
  EXPECT_EQ(screen.desktop.screenPrints, std::vector<std::string>{"frmEnterDir"});
}

TEST(Splash, ShowsTheVersionCountedFromTwoThousand) {
  TestShop world;
  frmSplash form(world.desktop, world.environment.clock);
  form.Show();
  EXPECT_EQ(form.lblVersion.Caption(), "Version " + std::to_string(2000 + LANTOS_VERSION_MAJOR) + "." +
                                           std::to_string(LANTOS_VERSION_MINOR) + "." +
                                           std::to_string(LANTOS_VERSION_REVISION));
  EXPECT_TRUE(world.desktop.forms.empty()) << "it waits for nobody";
  form.Unload();
}

}  // namespace
}  // namespace lantos
