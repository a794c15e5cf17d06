#include "admin/TestShop.h"
#include "board/frmStatusOptions.h"

namespace lantos {
namespace {

using test::TestShop;

struct Screen : TestShop {
  explicit Screen(const std::string& letters = "AAAAAAAA") {
    std::copy(letters.begin(), letters.end(), environment.statusOptions.letters.begin());
    form.Show();
  }
  std::string Letters() const {
    return {environment.statusOptions.letters.begin(), environment.statusOptions.letters.end()};
  }
  // The selected index of each group, as digits; "-" for none.
  std::string Selected() {
    std::string digits;
    for (std::size_t group = 1; group <= kStatusOptionCount; ++group) {
      char digit = '-';
      for (int i = 0; i < 4; ++i) {
        auto* option = Option(group, i);
        if (option != nullptr && option->Value()) digit = static_cast<char>('0' + i);
      }
      digits += digit;
    }
    return digits;
  }
  ui::OptionButton* Option(std::size_t group, int index) {
    return dynamic_cast<ui::OptionButton*>(
        form.Find("Option" + std::to_string(group) + "(" + std::to_string(index) + ")"));
  }
  frmStatusOptions form{shop};
};

TEST(StatusOptionsForm, IndexZeroIsYesOneNoTwoAskThreeError) {
  EXPECT_EQ(Screen("YYYYYYYY").Selected(), "00000000");
  EXPECT_EQ(Screen("NNNNNNNN").Selected(), "11111111");
  EXPECT_EQ(Screen("AAAAAAAA").Selected(), "22222222");
  EXPECT_EQ(Screen("AEAEEAAA").Selected(), "23233222");
}

TEST(StatusOptionsForm, OnlyTheEventsThatCanBeRefusedHaveAnError) {
  Screen screen;
  std::string groups;
  for (std::size_t group = 1; group <= kStatusOptionCount; ++group) {
    for (int index = 0; index < 3; ++index) EXPECT_NE(screen.Option(group, index), nullptr);
    if (screen.Option(group, 3) != nullptr) groups += std::to_string(group);
  }
  EXPECT_EQ(groups, "245");
}

TEST(StatusOptionsForm, GroupsExcludeOneAnotherWithinThemselvesOnly) {
  Screen screen;
  test::Click(*screen.Option(1, 0));
  test::Click(*screen.Option(8, 1));
  EXPECT_EQ(screen.Selected(), "02222221");
}

TEST(StatusOptionsForm, SavePutsTheSelectedLettersIntoMemory) {
  Screen screen;
  for (std::size_t group = 1; group <= kStatusOptionCount; ++group) {
    test::Click(*screen.Option(group, group == 2 || group == 4 ? 3 : static_cast<int>(group % 3)));
  }
  test::Press(screen.form, "F10");
  EXPECT_TRUE(screen.form.ok);
  EXPECT_FALSE(screen.form.Visible());
  EXPECT_EQ(screen.Letters(), "NEYEAYNA");
}

TEST(StatusOptionsForm, CancelKeepsWhatWasRead) {
  Screen screen("YNAEYNAY");
  test::Click(*screen.Option(1, 1));
  test::Press(screen.form, "Esc");
  EXPECT_FALSE(screen.form.ok);
  EXPECT_EQ(screen.Letters(), "YNAEYNAY");
}

TEST(StatusOptionsForm, ALetterThatAnEventDoesntKnowSelectsNothingAndStays) {
  Screen screen("EAAAAAA?");
  EXPECT_EQ(screen.Selected(), "-222222-");
  test::Click(screen.form.cmdSave);
  EXPECT_EQ(screen.Letters(), "EAAAAAA?");
}

TEST(StatusOptionsForm, HasItsDefaultHeightAndKeepsItsSize) {
  Screen screen;
  EXPECT_EQ(screen.form.Height(), 5700);
  screen.form.DoResize(13000, 6000, ui::WindowState::Normal);
  screen.form.Unload();
  EXPECT_EQ(screen.Setting("frmStatusOptionsHeight"), "6000");
}

TEST(StatusOptionsForm, TheFocusIsOnTheFirstGroupsSelection) {
  Screen screen;
  EXPECT_EQ(screen.form.Focus(), screen.Option(1, 2));
}

}  // namespace
}  // namespace lantos
