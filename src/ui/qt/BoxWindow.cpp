#include "ui/qt/BoxWindow.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <algorithm>

#include "ui/qt/Text.h"

namespace lantos::ui {

namespace {

constexpr int kTitleBarButtons = 150;  // pixels that icon, buttons and edges of a title bar may take
constexpr int kWidestTitle = 600;      // pixels

QMessageBox::StandardButton ButtonOf(Answer answer) {
  switch (answer) {
    case Answer::Cancel:
      return QMessageBox::Cancel;
    case Answer::Yes:
      return QMessageBox::Yes;
    case Answer::No:
      return QMessageBox::No;
    case Answer::Retry:
      return QMessageBox::Retry;
    case Answer::Ok:
      break;
  }
  return QMessageBox::Ok;
}

QMessageBox::Icon IconOf(Icon icon) {
  switch (icon) {
    case Icon::Critical:
      return QMessageBox::Critical;
    case Icon::Question:
      return QMessageBox::Question;
    case Icon::Exclamation:
      return QMessageBox::Warning;
    case Icon::Information:
      return QMessageBox::Information;
    case Icon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

}  // namespace

BoxWindow::BoxWindow(const Box& box, QWidget* parent) : QMessageBox(parent), answers_(ButtonsOf(box)) {
  setWindowModality(Qt::ApplicationModal);
  setTextFormat(Qt::PlainText);
  setText(ToQt(WithLineFeeds(box.text)));
  setWindowTitle(ToQt(box.title));
  setIcon(IconOf(box.icon));
  for (const Answer answer : answers_) {
    buttons_.push_back(addButton(ButtonOf(answer)));
    buttons_.back()->setIcon(QIcon());
    if (answer == Answer::Cancel) setEscapeButton(static_cast<QPushButton*>(buttons_.back()));
  }
  MakeRoomForTitle();
  setDefaultButton(static_cast<QPushButton*>(buttons_.at(std::min(box.defaultButton, buttons_.size() - 1))));
}

// A box is as wide as its text and buttons: a longer title would be cut.
void BoxWindow::MakeRoomForTitle() {
  auto* grid = qobject_cast<QGridLayout*>(layout());
  if (grid == nullptr) return;
  const int width = fontMetrics().horizontalAdvance(windowTitle()) + kTitleBarButtons;
  grid->addItem(new QSpacerItem(std::min(width, kWidestTitle), 0), grid->rowCount(), 0, 1, grid->columnCount());
}

std::optional<Answer> BoxWindow::Pressed() const {
  const auto found = std::find(buttons_.begin(), buttons_.end(), clickedButton());
  if (found == buttons_.end()) return std::nullopt;
  return answers_[static_cast<std::size_t>(found - buttons_.begin())];
}

void BoxWindow::Press(Answer answer) {
  const auto found = std::find(answers_.begin(), answers_.end(), answer);
  if (found != answers_.end()) buttons_[static_cast<std::size_t>(found - answers_.begin())]->click();
}

bool BoxWindow::CanBeDismissed() const {
  return answers_.size() == 1 || std::find(answers_.begin(), answers_.end(), Answer::Cancel) != answers_.end();
}

void BoxWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && !CanBeDismissed()) return event->accept();
  QMessageBox::keyPressEvent(event);
}

void BoxWindow::closeEvent(QCloseEvent* event) {
  if (!CanBeDismissed()) return event->ignore();
  QMessageBox::closeEvent(event);
}

}  // namespace lantos::ui
