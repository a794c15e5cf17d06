#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QWindow>
#include <fstream>

#include "frame/ScratchDirectory.h"
#include "qt/TestForms.h"
#include "ui/Documents.h"
#include "ui/qt/BoxWindow.h"
#include "ui/qt/Documents.h"
#include "ui/qt/Text.h"

// As Qt's own test library does it: the event comes from the window system.
Q_GUI_EXPORT extern void qt_handleMouseEvent(QWindow* window, const QPointF& local, const QPointF& global,
                                             Qt::MouseButtons held, Qt::MouseButton button, QEvent::Type type,
                                             Qt::KeyboardModifiers keys, int timestamp);

namespace lantos {
namespace {

using test::Bench;
using ui::Answer;
using ui::Box;

TEST(QtDesktop, RowsAreBroughtToTheListInOneGo) {
  Bench bench;
  bench.form.Show();
  auto& list = bench.WidgetOf<QListWidget>(bench.form.Dir1);
  for (int i = 0; i < 600; ++i) bench.form.Dir1.AddItem("row");
  EXPECT_EQ(list.count(), 3);
  bench.windows.Settle();
  EXPECT_EQ(list.count(), 603);
}

// A window system that takes the icon from the menu entry finds the entry by this name.
TEST(QtDesktop, WindowsTellTheNameOfTheMenuEntry) {
  Bench bench;
  EXPECT_EQ(QGuiApplication::desktopFileName(), "lantos");
}

TEST(QtDesktop, AMessageBoxHasExactlyItsButtonsAndText) {
  Bench bench;
  bench.person.Will([&] {
    auto& box = dynamic_cast<QMessageBox&>(*bench.windows.TopWindow());
    EXPECT_EQ(box.text(), "one\ntwo\n\nthree <b>");
    EXPECT_EQ(box.windowTitle(), "Title");
    EXPECT_EQ(box.icon(), QMessageBox::Question);
    EXPECT_EQ(box.buttons().size(), 3);
    EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
    EXPECT_TRUE(box.isVisible());
    bench.person.pressButton(Answer::No);
  });
  EXPECT_EQ(
      bench.windows.Show(Box{"one\rtwo\r\n\rthree <b>", "Title", ui::Buttons::YesNoCancel, ui::Icon::Question, 1}),
      Answer::No);
  EXPECT_EQ(bench.windows.TopWindow(), nullptr);
}

TEST(QtDesktop, ABoxThatAsksYesOrNoCannotBePassedBy) {
  ui::BoxWindow box(Box{"?", "T", ui::Buttons::YesNo, ui::Icon::None, 0}, nullptr);
  box.show();
  QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QApplication::sendEvent(&box, &escape);
  box.close();
  EXPECT_TRUE(box.isVisible());
  EXPECT_FALSE(box.Pressed().has_value());
  box.Press(Answer::Yes);
  EXPECT_EQ(box.Pressed(), Answer::Yes);
}

TEST(QtDesktop, ABoxIsWideEnoughForItsTitle) {
  ui::BoxWindow narrow(Box{"?", "T", ui::Buttons::Ok, ui::Icon::None, 0}, nullptr);
  ui::BoxWindow wide(Box{"?", "A title of many words", ui::Buttons::Ok, ui::Icon::None, 0}, nullptr);
  narrow.show();
  wide.show();
  EXPECT_GT(wide.width(), narrow.width());
  EXPECT_GT(wide.width(), wide.fontMetrics().horizontalAdvance(wide.windowTitle()));
}

TEST(QtDesktop, EscapeIsTheCancelButtonOfABox) {
  ui::BoxWindow box(Box{"?", "T", ui::Buttons::RetryCancel, ui::Icon::None, 0}, nullptr);
  box.show();
  QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QApplication::sendEvent(&box, &escape);
  EXPECT_EQ(box.Pressed(), Answer::Cancel);
}

TEST(QtDesktop, TheClickOfAPopupEntryRunsWhenTheMenuIsGone) {
  Bench bench;
  ui::MenuItem& menu = bench.form.AddMenu("mnuPopup", "");
  menu.SetVisible(false);
  QWidget* atClick = nullptr;
  int clicks = 0;
  ui::MenuItem& entry = menu.Add("mnuEntry", "&Entry", [&] {
    atClick = bench.windows.TopWindow();
    ++clicks;
  });
  bench.form.Show();
  bench.person.Will([&] { bench.person.chooseEntry(&entry); });
  bench.windows.PopupMenu(bench.form, menu);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(atClick, &bench.Window());
  bench.person.Will([&] { bench.person.chooseEntry(nullptr); });
  bench.windows.PopupMenu(bench.form, menu);
  EXPECT_EQ(clicks, 1);
}

TEST(QtDesktop, APersonIsBusyWhileAMenuOrAListHangsOpenOrAButtonOfTheMouseIsDown) {
  Bench bench;
  bench.form.AddMenu("mnuFile", "&File").Add("mnuEntry", "&Entry");
  bench.form.Drive1.AddItem("a row");
  bench.form.Show();
  bench.windows.Settle();
  EXPECT_FALSE(bench.windows.IsPersonBusy());
  QMenu& menu = *bench.Window().menuBar()->actions().front()->menu();
  menu.popup(QPoint(0, 0));
  EXPECT_TRUE(bench.windows.IsPersonBusy());
  menu.close();
  EXPECT_FALSE(bench.windows.IsPersonBusy());
  auto& combo = bench.WidgetOf<QComboBox>(bench.form.Drive1);
  combo.showPopup();
  EXPECT_TRUE(bench.windows.IsPersonBusy());
  combo.hidePopup();
  EXPECT_FALSE(bench.windows.IsPersonBusy());
  QWidget& list = *bench.WidgetOf<QListWidget>(bench.form.Dir1).viewport();
  const auto mouse = [&](QEvent::Type type, Qt::MouseButtons held) {
    const QPoint place = list.mapTo(&bench.Window(), QPoint(1, 1));
    qt_handleMouseEvent(bench.Window().windowHandle(), place, bench.Window().mapToGlobal(place), held, Qt::LeftButton,
                        type, {}, 0);
    bench.windows.Settle();
  };
  mouse(QEvent::MouseButtonPress, Qt::LeftButton);
  EXPECT_TRUE(bench.windows.IsPersonBusy());
  mouse(QEvent::MouseButtonRelease, Qt::NoButton);
  EXPECT_FALSE(bench.windows.IsPersonBusy());
}

TEST(QtDesktop, MenuEntriesFollowTheirMarks) {
  Bench bench;
  ui::MenuItem& menu = bench.form.AddMenu("mnuFile", "&File");
  ui::MenuItem& entry = menu.Add("mnuMark", "&Mark");
  entry.OnClick = [&] { entry.SetChecked(!entry.Checked()); };
  bench.form.Show();
  QAction& action = *bench.Window().Actions().ActionOf(entry);
  bench.hand.ChooseMenu(bench.form, entry);
  EXPECT_TRUE(entry.Checked());
  EXPECT_TRUE(action.isChecked());
  bench.hand.ChooseMenu(bench.form, entry);
  EXPECT_FALSE(action.isChecked());
  entry.SetEnabled(false);
  EXPECT_FALSE(action.isEnabled());
}

TEST(QtDesktop, AFormMayUnloadItselfInItsOwnClick) {
  Bench bench;
  bench.form.cmdOK.OnClick = [&] { bench.form.Unload(); };
  bench.person.Will([&] { bench.hand.Click(bench.form.cmdOK, ui::MouseButton::Left); });
  bench.form.ShowModal();
  EXPECT_FALSE(bench.form.IsLoaded());
  EXPECT_EQ(bench.windows.WindowOf(bench.form), nullptr);
  bench.windows.Settle();
}

TEST(QtDesktop, AFailedEventIsShownAndTheFormGoesOn) {
  Bench bench;
  std::vector<std::string> logged;
  bench.windows.logFailure = [&](const std::string& text) { logged.push_back(text); };
  bench.form.cmdOK.OnClick = [] { throw std::runtime_error("no such table"); };
  bench.form.Show();
  bench.person.Will([&] { bench.person.pressButton(Answer::Ok); });
  bench.hand.Click(bench.form.cmdOK, ui::MouseButton::Left);
  ASSERT_EQ(bench.person.boxes.size(), 1U);
  EXPECT_EQ(bench.person.boxes[0].title, "Lantos");
  EXPECT_EQ(bench.person.boxes[0].icon, ui::Icon::Critical);
  EXPECT_EQ(bench.person.failures, std::vector<std::string>{"no such table"});
  EXPECT_EQ(logged, std::vector<std::string>{"no such table"});
  EXPECT_TRUE(bench.form.Visible());
}

TEST(QtDesktop, ColouredFieldsHaveATextThatCanBeRead) {
  Bench bench;
  bench.form.Show();
  bench.form.TextString.SetBackColor(ui::Color{255, 255, 192});
  bench.form.Dir1.SetBackColor(ui::Color{0, 0, 96});
  bench.windows.Settle();
  EXPECT_EQ(bench.WidgetOf<QWidget>(bench.form.TextString).palette().color(QPalette::Text), Qt::black);
  EXPECT_EQ(bench.WidgetOf<QWidget>(bench.form.Dir1).palette().color(QPalette::Text), Qt::white);
  EXPECT_EQ(bench.WidgetOf<QWidget>(bench.form.Dir1).palette().color(QPalette::Base), QColor(0, 0, 96));
}

TEST(QtDesktop, FontsAreWhatTheControlAsksFor) {
  Bench bench;
  bench.form.Show();
  bench.form.Dir1.SetFace(ui::FontFace::FixedPitch);
  bench.form.Dir1.SetFontSize(14);
  bench.form.Dir1.SetBold(true);
  EXPECT_EQ(bench.windows.TextWidth(bench.form.Dir1, "iii"), bench.windows.TextWidth(bench.form.Dir1, "WWW"));
  bench.windows.Settle();
  const QFont font = bench.WidgetOf<QWidget>(bench.form.Dir1).font();
  EXPECT_EQ(font.pointSize(), 14);
  EXPECT_TRUE(font.bold());
}

TEST(QtDesktop, WhatADocumentComesToIsToldByItsFile) {
  const test::ScratchDirectory directory;
  directory.Put("guide.pdf", "%PDF-1.4");
  directory.Put("noname", "text");
  Bench bench;
  const std::string guide = (directory / "guide.pdf").string();
  EXPECT_EQ(bench.windows.OpenDocument(guide), ui::kOpened);
  EXPECT_EQ(bench.windows.OpenDocument("https://example.org/"), ui::kOpened);
  EXPECT_EQ(bench.windows.OpenDocument(directory.DataDir() + "none.pdf"), ui::kFileNotFound);
  EXPECT_EQ(bench.windows.OpenDocument(directory.DataDir() + "none\\none.pdf"), ui::kPathNotFound);
  EXPECT_EQ(bench.windows.OpenDocument(directory.DataDir() + "noname"), ui::kNoAssociation);
  EXPECT_EQ(bench.person.opened, (std::vector<std::string>{guide, "https://example.org/"}));
}

TEST(QtDesktop, AScreenIsPrintedOnOnePage) {
  const test::ScratchDirectory directory;
  Bench bench;
  std::vector<std::filesystem::path> printed;
  bench.windows.PrintTo(directory.Path());
  bench.windows.notePrinted = [&](const std::string&, const std::filesystem::path& pdf) { printed.push_back(pdf); };
  bench.form.Show();
  bench.windows.PrintScreen(bench.form);
  ASSERT_EQ(printed.size(), 1U);
  EXPECT_EQ(directory.Content(printed[0].filename().string()).substr(0, 5), "%PDF-");
}

TEST(QtDesktop, APictureOfTheTopmostWindowIsWritten) {
  const test::ScratchDirectory directory;
  Bench bench;
  EXPECT_NE(bench.hand.Screenshot(nullptr, directory / "none.png"), "");
  bench.form.Show();
  EXPECT_EQ(bench.hand.Screenshot(nullptr, directory / "form.png"), "");
  EXPECT_EQ(QImage(QString::fromStdString((directory / "form.png").string())).size(),
            bench.Window().size() * bench.Window().devicePixelRatio());
}

TEST(QtDesktop, AFormThatIsShownAgainHasTheTextOfItsFieldMarked) {
  Bench bench;
  bench.form.Show();
  bench.hand.Type(bench.form.TextString, "north");
  EXPECT_FALSE(bench.WidgetOf<QLineEdit>(bench.form.TextString).hasSelectedText());
  bench.form.Hide();
  bench.windows.Settle();
  bench.form.Show();
  EXPECT_EQ(bench.WidgetOf<QLineEdit>(bench.form.TextString).selectedText(), "north");
}

TEST(QtDesktop, AFieldThatTheFocusLeavesAndComesBackToIsEnteredAnew) {
  Bench bench;
  bench.form.Show();
  bench.hand.Type(bench.form.TextString, "north");
  bench.form.TextString.SetText("south east");
  bench.form.TextString.SetFocus();
  bench.windows.Settle();
  const auto& field = bench.WidgetOf<QLineEdit>(bench.form.TextString);
  EXPECT_FALSE(field.hasSelectedText()) << "nobody has left it";
  bench.form.cmdOK.SetFocus();
  bench.form.TextString.SetFocus();
  bench.windows.Settle();
  EXPECT_EQ(field.selectedText(), "south east");
}

TEST(QtDesktop, TheClosingOfAWindowIsTheFormsDecision) {
  Bench bench;
  bench.form.Show();
  bench.hand.Close(bench.form);
  EXPECT_FALSE(bench.form.IsLoaded());
}

// With somebody in front of the screen: what the window system does by itself.
struct Screen {
  ui::QtDesktop windows;
  test::Field form{windows};
  QWidget& WidgetOf(const ui::Control& control) { return windows.WindowOf(form)->PeerOf(control)->Widget(); }
  void Later(std::function<void()> deed) { QTimer::singleShot(0, QApplication::instance(), std::move(deed)); }
};

TEST(QtDesktopOnScreen, AModalFormWaitsUntilItHides) {
  Screen screen;
  screen.Later([&] { dynamic_cast<QPushButton&>(screen.WidgetOf(screen.form.cmdCancel)).click(); });
  screen.form.ShowModal();
  EXPECT_FALSE(screen.form.Visible());
  EXPECT_TRUE(screen.form.IsLoaded());
}

TEST(QtDesktopOnScreen, InTheMiddleOfAWorkTheWindowShowsItAndThePersonCanEndIt) {
  Screen screen;
  bool stopped = false;
  screen.form.cmdOK.OnClick = [&] { stopped = true; };
  const auto work = [&] {
    screen.form.SetCaption("At work");
    screen.form.TextString.SetText("half");
    for (int step = 0; step < 100 && !stopped; ++step) screen.windows.ServeMeanwhile(screen.form, screen.form.cmdOK);
    EXPECT_EQ(dynamic_cast<QLineEdit&>(screen.WidgetOf(screen.form.TextString)).text(), "half");
    screen.form.Hide();
  };
  screen.Later([&] {
    screen.Later([&] { dynamic_cast<QPushButton&>(screen.WidgetOf(screen.form.cmdOK)).click(); });
    work();
  });
  screen.form.ShowModal();
  EXPECT_TRUE(stopped);
}

TEST(QtDesktopOnScreen, ABoxOverAModalFormGivesItsAnswer) {
  Screen screen;
  Answer answer = Answer::Ok;
  screen.form.cmdOK.OnClick = [&] {
    screen.Later([&] { dynamic_cast<ui::BoxWindow&>(*screen.windows.TopWindow()).Press(Answer::Yes); });
    answer = screen.windows.Ask("Sure?", "T", ui::Buttons::YesNo);
    screen.form.Hide();
  };
  screen.Later([&] { dynamic_cast<QPushButton&>(screen.WidgetOf(screen.form.cmdOK)).click(); });
  screen.form.ShowModal();
  EXPECT_EQ(answer, Answer::Yes);
}

TEST(QtDesktopOnScreen, TheHourglassRestsWhileTheProgramWaits) {
  Screen screen;
  const ui::Hourglass hourglass(screen.windows);
  EXPECT_NE(QApplication::overrideCursor(), nullptr);
  screen.Later([&] {
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    dynamic_cast<ui::BoxWindow&>(*screen.windows.TopWindow()).Press(Answer::Ok);
  });
  screen.windows.Tell("text", "T");
  EXPECT_NE(QApplication::overrideCursor(), nullptr);
}

TEST(QtDesktopOnScreen, APressOnAControlThatCannotBeReachedIsSpent) {
  Screen screen;
  screen.form.TextString.OnValidate = [](bool& keep) { keep = true; };
  screen.form.Show();
  QWidget& button = screen.WidgetOf(screen.form.cmdOK);
  QWindow* window = screen.windows.WindowOf(screen.form)->windowHandle();
  const QPoint at = button.mapTo(screen.windows.WindowOf(screen.form), button.rect().center());
  const auto click = [&] {
    QMouseEvent press(QEvent::MouseButtonPress, at, at, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, at, at, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(window, &release);
  };
  click();
  EXPECT_TRUE(screen.form.happened.empty());
  EXPECT_EQ(screen.form.Focus(), &screen.form.TextString);
  screen.form.TextString.OnValidate = nullptr;
  click();
  EXPECT_EQ(screen.form.happened, std::vector<std::string>{"ok"});
  EXPECT_EQ(screen.form.Focus(), &screen.form.cmdOK);
}

}  // namespace
}  // namespace lantos
