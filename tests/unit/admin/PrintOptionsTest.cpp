#include "admin/TestShop.h"
#include "admin/frmPrintOptions.h"

namespace lantos {
namespace {

using test::TestShop;

struct Screen : TestShop {
  Screen() { form.Show(); }
  PrintOptions& Options() { return environment.printOptions; }
  frmPrintOptions form{shop};
};

TEST(PrintOptionsForm, ShowsTheDefaults) {
  Screen screen;
  EXPECT_TRUE(screen.form.optCustW.Value());
  EXPECT_TRUE(screen.form.optCommW.Value());
  EXPECT_FALSE(screen.form.optNoteW.Value());
  EXPECT_TRUE(screen.form.optVehW.Value());
  EXPECT_EQ(screen.form.txtVehSummaryYears.Text(), "1");
  EXPECT_EQ(screen.form.txtVehSummaryLaborLines.Text(), "1");
  EXPECT_EQ(screen.form.txtLaborLines.Text(), "3");
  EXPECT_EQ(screen.form.txtPartLines.Text(), "3");
  EXPECT_FALSE(screen.form.optDisclosure.Value());
  EXPECT_TRUE(screen.form.optPreviewWS.Value());
  EXPECT_TRUE(screen.form.optPreviewEst.Value());
  EXPECT_TRUE(screen.form.optShowDialog.Value());
  EXPECT_TRUE(screen.form.optPartOnEst.Value());
}

TEST(PrintOptionsForm, EachControlStandsForItsOwnOption) {
  Screen screen;
  for (ui::CheckBox* box : {&screen.form.optCustW, &screen.form.optCommW, &screen.form.optNoteW, &screen.form.optVehW,
                            &screen.form.optDisclosure, &screen.form.optPreviewWS, &screen.form.optPreviewEst,
                            &screen.form.optShowDialog, &screen.form.optPartOnEst}) {
    test::Click(*box);
  }
  test::Type(screen.form.txtVehSummaryYears, "2");
  test::Type(screen.form.txtVehSummaryLaborLines, "8");
  test::Type(screen.form.txtLaborLines, "4");
  test::Type(screen.form.txtPartLines, "5");
  test::Press(screen.form, "F10");
  EXPECT_TRUE(screen.form.ok);
  EXPECT_FALSE(screen.form.Visible());
  const PrintOptions& options = screen.Options();
  EXPECT_FALSE(options.PrintCustomerOnWorksheet);
  EXPECT_FALSE(options.PrintCommentsOnWorksheet);
  EXPECT_TRUE(options.PrintNotesOnWorksheet);
  EXPECT_FALSE(options.PrintVehSummaryOnWorksheet);
  EXPECT_EQ(options.VehSummaryYears, 2);
  EXPECT_EQ(options.VehSummaryLaborLines, 8);
  EXPECT_EQ(options.BlankLinesPerLabor, 4);
  EXPECT_EQ(options.BlankPartLines, 5);
  EXPECT_TRUE(options.PrintDisclosure);
  EXPECT_FALSE(options.PreviewWorksheet);
  EXPECT_FALSE(options.PreviewEstimate);
  EXPECT_FALSE(options.ShowPrinterDialog);
  EXPECT_FALSE(options.ShowPartNumbersOnEst);
}

TEST(PrintOptionsForm, CancelChangesNothing) {
  Screen screen;
  test::Click(screen.form.optCustW);
  test::Press(screen.form, "Esc");
  EXPECT_FALSE(screen.form.ok);
  EXPECT_FALSE(screen.form.Visible());
  EXPECT_TRUE(screen.Options().PrintCustomerOnWorksheet);
}

TEST(PrintOptionsForm, EmptyBlankLinesSaveAsZero) {
  Screen screen;
  test::Type(screen.form.txtLaborLines, "");
  test::Type(screen.form.txtPartLines, " ");
  test::Click(screen.form.cmdSave);
  EXPECT_TRUE(screen.form.ok);
  EXPECT_EQ(screen.Options().BlankLinesPerLabor, 0);
  EXPECT_EQ(screen.Options().BlankPartLines, 0);
}

TEST(PrintOptionsForm, ANumberThatIsNoneIsToldAndNothingIsSaved) {
  for (const char* text : {"", "abc", "1.5", "-1", "32768", "99999"}) {
    Screen screen;
    test::Click(screen.form.optCustW);
    test::Type(screen.form.txtVehSummaryYears, text);
    screen.desktop.WillAnswer(ui::Answer::Ok);
    test::Press(screen.form, "F10");
    ASSERT_EQ(screen.desktop.boxes.size(), 1U) << text;
    EXPECT_EQ(screen.desktop.boxes[0].text, "\"Years of history to include\" must be a whole number from 0 to 32767.");
    EXPECT_EQ(screen.desktop.boxes[0].title, "Print Options");
    EXPECT_TRUE(screen.form.Visible());
    EXPECT_EQ(screen.form.Focus(), &screen.form.txtVehSummaryYears);
    EXPECT_TRUE(screen.Options().PrintCustomerOnWorksheet);
    EXPECT_FALSE(screen.form.ok);
  }
}

TEST(PrintOptionsForm, LaborLinesAreOneToEight) {
  for (const char* text : {"0", "9"}) {
    Screen screen;
    test::Type(screen.form.txtVehSummaryLaborLines, text);
    screen.desktop.WillAnswer(ui::Answer::Ok);
    test::Press(screen.form, "F10");
    EXPECT_TRUE(screen.form.Visible());
    EXPECT_EQ(screen.Options().VehSummaryLaborLines, 1);
  }
}

TEST(PrintOptionsForm, TheLargestNumberGoesThrough) {
  Screen screen;
  test::Type(screen.form.txtPartLines, "32767");
  test::Press(screen.form, "F10");
  EXPECT_EQ(screen.Options().BlankPartLines, 32767);
}

TEST(PrintOptionsForm, KeepsItsSizeUnderItsOwnName) {
  Screen screen;
  screen.form.DoResize(8000, 8000, ui::WindowState::Normal);
  screen.form.Unload();
  EXPECT_EQ(screen.Setting("frmPrintOptionsWidth"), "8000");
}

}  // namespace
}  // namespace lantos
