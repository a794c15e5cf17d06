#include "admin/SystemScreensBench.h"
#include "admin/frmCompanyInfo.h"

namespace lantos {
namespace {

using namespace std::string_literals;
using test::SystemShop;
using ui::Answer;

struct Screen : SystemShop {
  Screen() {
    form.LoadForm();
    form.Show();
  }
  void ExpectNameBox(std::size_t place) const {
    const ui::Box& box = desktop.boxes.at(place);
    EXPECT_EQ(box.text, "Company name is invalid.\rClick Retry to re-enter; click Cancel to revert to saved value.");
    EXPECT_EQ(box.buttons, ui::Buttons::RetryCancel);
    EXPECT_EQ(box.title, "Company Info");
  }
  frmCompanyInfo form{shop};
};

struct Field {
  ui::TextBox frmCompanyInfo::*box;
  const char* shown;
  std::size_t offset;
  std::size_t fieldWidth;  // in the record
  std::size_t width;       // on the screen
};
constexpr Field kFields[] = {
    {&frmCompanyInfo::company_name, "Miller's Garage", 44, 32, 31},
    {&frmCompanyInfo::extra_company_name, "Since 1956", 990, 41, 41},
    {&frmCompanyInfo::company_address, "12 Elm St", 76, 33, 32},
    {&frmCompanyInfo::company_city, "Fresno", 109, 21, 20},
    {&frmCompanyInfo::company_state, "CA", 130, 3, 2},
    {&frmCompanyInfo::company_zip, "93650", 133, 11, 10},
    {&frmCompanyInfo::company_phone1, "937-555-2222", 144, 15, 14},
    {&frmCompanyInfo::company_phone2, "937-555-3333", 159, 15, 14},
    {&frmCompanyInfo::state_reg_number, "ARD 123456", 865, 21, 20},
    {&frmCompanyInfo::fed_id_number, "31-1234567", 174, 21, 20},
    {&frmCompanyInfo::state_id_number, "52-7654321", 195, 21, 20},
    {&frmCompanyInfo::local_id_number, "LOCAL 4", 216, 21, 20},
};

TEST(frmCompanyInfo, ShowsEachFieldOfTheRecord) {
  Screen screen;
  EXPECT_EQ(screen.form.Caption(), "Company Info");
  for (const Field& field : kFields) EXPECT_EQ((screen.form.*field.box).Text(), field.shown);
  EXPECT_EQ(screen.form.OKButton.ToolTip(), "Continue <F10>");
  EXPECT_EQ(screen.form.CancelButton.ToolTip(), "Stop <Esc>");
}

TEST(frmCompanyInfo, EachBoxTakesItsWidthAndGoesToItsOwnField) {
  Screen screen;
  std::string expected = screen.Stored();
  char letter = 'a';
  for (const Field& field : kFields) {
    const std::string typed(60, letter++);
    test::Type(screen.form.*field.box, typed);
    expected.replace(field.offset, field.fieldWidth, std::string(field.fieldWidth, '\0'));
    expected.replace(field.offset, field.width, typed.substr(0, field.width));
  }
  test::Press(screen.form, "F10");
  EXPECT_FALSE(screen.form.Visible());
  EXPECT_TRUE(screen.form.Saved());
  EXPECT_EQ(screen.Stored(), expected);
  EXPECT_EQ(screen.desktop.statuses, (std::vector<std::string>{"Updating Company Info", ""}));
  EXPECT_EQ(screen.records.system.SysRec.Get(sysrec::company_state), "ee");
}

TEST(frmCompanyInfo, ASaveWithoutAChangeLeavesEveryByte) {
  Screen screen;
  std::string old = screen.Stored();
  old.replace(44 + 20, 4, "\0OLD", 4);  // what stands behind a text's end
  screen.directory.Put("TQSYSTEM.DAT", old);
  test::Click(screen.form.OKButton);
  EXPECT_EQ(screen.Stored(), old);
}

TEST(frmCompanyInfo, CountersAndFieldsThatOthersStoreMeanwhileStay) {
  Screen screen;
  test::Type(screen.form.company_city, "Selma");
  screen.Put(SystemShop::Record().Long(0, 502).Long(4, 1002).Long(40, 7000).Text(130, "NV"));
  test::Press(screen.form, "F10");
  EXPECT_EQ(
      screen.Stored(),
      SystemShop::Record().Long(0, 502).Long(4, 1002).Long(40, 7000).Text(130, "NV").Text(109, "Selma\0"s).Bytes());
}

TEST(frmCompanyInfo, AFieldThatAnotherWorkstationHasChangedTooAsks) {
  Screen screen;
  test::Type(screen.form.company_city, "Selma");
  test::Type(screen.form.company_zip, "93651");
  const test::Image theirs = SystemShop::Record().Long(0, 502).Text(109, "Madera");
  screen.Put(theirs);
  screen.desktop.WillAnswer({Answer::Cancel, Answer::No});
  test::Press(screen.form, "F10");
  EXPECT_TRUE(screen.form.Visible());
  EXPECT_EQ(screen.Stored(), theirs.Bytes());
  EXPECT_EQ(screen.desktop.boxes.at(0).text,
            "Somebody else has changed this meanwhile:\r\rCompany City: \"Madera\" is stored, \"Selma\" is yours\r\r"
            "Do you want to store yours?\rNo keeps what is stored, CANCEL goes back.");
  test::Press(screen.form, "F10");
  EXPECT_FALSE(screen.form.Visible());
  EXPECT_EQ(screen.Stored(), test::Image(theirs).Text(133, "93651").Bytes());
}

TEST(frmCompanyInfo, TheRecordIsReadAfreshAtTheOpening) {
  SystemShop bench;
  bench.records.system.ReadSystem();
  bench.Put(SystemShop::Record().Text(130, "NV"));
  frmCompanyInfo form(bench.shop);
  form.LoadForm();
  EXPECT_EQ(form.company_state.Text(), "NV");
}

TEST(frmCompanyInfo, ANameWithABracketIsRefusedAndRetryKeepsTheFocus) {
  Screen screen;
  test::Type(screen.form.company_name, "Miller > Sons");
  screen.desktop.WillAnswer(Answer::Retry);
  EXPECT_FALSE(screen.form.MoveFocus(&screen.form.company_city));
  screen.ExpectNameBox(0);
  EXPECT_EQ(screen.form.Focus(), &screen.form.company_name);
  EXPECT_EQ(screen.form.company_name.Text(), "Miller > Sons");
}

TEST(frmCompanyInfo, CancelPutsTheSavedNameBack) {
  Screen screen;
  test::Type(screen.form.company_name, ">");
  screen.desktop.WillAnswer(Answer::Cancel);
  EXPECT_TRUE(screen.form.MoveFocus(&screen.form.company_city));
  EXPECT_EQ(screen.form.company_name.Text(), "Miller's Garage");
}

TEST(frmCompanyInfo, F10LooksAtTheNameToo) {
  Screen screen;
  const std::string before = screen.Stored();
  test::Type(screen.form.company_name, "A>B");
  screen.desktop.WillAnswer({Answer::Retry, Answer::Cancel});
  test::Press(screen.form, "F10");
  EXPECT_TRUE(screen.form.Visible());
  EXPECT_EQ(screen.Stored(), before);
  test::Press(screen.form, "F10");
  screen.ExpectNameBox(1);
  EXPECT_FALSE(screen.form.Visible());
  EXPECT_EQ(screen.Stored(), before);
}

TEST(frmCompanyInfo, ChangesAreAskedAboutBeforeTheyAreLost) {
  Screen screen;
  EXPECT_EQ(screen.form.CancelButton.Caption(), "Close");
  test::Type(screen.form.company_zip, "93651");
  EXPECT_EQ(screen.form.CancelButton.Caption(), "Cancel");
  screen.desktop.WillAnswer({Answer::No, Answer::Yes});
  test::Press(screen.form, "Esc");
  EXPECT_TRUE(screen.form.Visible());
  test::Press(screen.form, "Esc");
  EXPECT_FALSE(screen.form.Visible());
  EXPECT_FALSE(screen.form.Saved());
  EXPECT_EQ(screen.desktop.boxes.at(0).text, "Discard changes?");
  EXPECT_EQ(screen.Stored(), SystemShop::Record().Bytes());
}

TEST(frmCompanyInfo, AHeldRecordIsAskedAboutAndThenStored) {
  Screen screen;
  test::Type(screen.form.company_zip, "93651");
  SharedFile other(screen.directory / "TQSYSTEM.DAT", Access::ReadWrite, Deny::All);
  screen.desktop.WillAnswer([&](const ui::Box& box) {
    EXPECT_EQ(box.text, "System file locked by another user.");
    other.Close();
    return Answer::Retry;
  });
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.Stored(), SystemShop::Record().Text(133, "93651").Bytes());
}

TEST(frmCompanyInfo, CancelAtAHeldRecordEndsTheProgram) {
  Screen screen;
  const SharedFile other(screen.directory / "TQSYSTEM.DAT", Access::ReadWrite, Deny::All);
  screen.desktop.WillAnswer(Answer::Cancel);
  EXPECT_THROW(test::Press(screen.form, "F10"), test::ProcessEnded);
}

}  // namespace
}  // namespace lantos
