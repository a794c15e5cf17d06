#include "ui/qt/QtHand.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTableView>

#include "ui/qt/CalendarView.h"
#include "ui/qt/FormWindow.h"
#include "ui/qt/Keys.h"
#include "ui/qt/Text.h"

namespace lantos::ui {

namespace {

Qt::MouseButton ToQt(MouseButton button) { return button == MouseButton::Right ? Qt::RightButton : Qt::LeftButton; }

void SendMouse(QWidget& widget, QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers keys) {
  const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : button;
  QMouseEvent event(type, at, widget.mapToGlobal(at), button, held, keys);
  QApplication::sendEvent(&widget, &event);
}

void ClickAt(QWidget& widget, QPoint at, Qt::MouseButton button = Qt::LeftButton,
             Qt::KeyboardModifiers keys = Qt::NoModifier) {
  const QPointer<QWidget> target(&widget);
  SendMouse(widget, QEvent::MouseButtonPress, at, button, keys);
  if (target) SendMouse(widget, QEvent::MouseButtonRelease, at, button, keys);
}

// The rest of a double click, behind its first click.
void ClickAgainAt(QWidget& widget, QPoint at) {
  const QPointer<QWidget> target(&widget);
  SendMouse(widget, QEvent::MouseButtonDblClick, at, Qt::LeftButton, Qt::NoModifier);
  if (target) SendMouse(widget, QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoModifier);
}

bool CanTouch(const Control& control) { return control.Owner().Visible() && control.IsUsable(); }

bool HasRows(const Control& control) {
  return dynamic_cast<const ListBox*>(&control) != nullptr || dynamic_cast<const Grid*>(&control) != nullptr;
}

// Where a control's text is typed; both null when it isn't.
std::pair<QLineEdit*, QPlainTextEdit*> FieldOf(const WidgetPeer& peer) {
  if (auto* combo = qobject_cast<QComboBox*>(&peer.Widget())) return {combo->lineEdit(), nullptr};
  return {qobject_cast<QLineEdit*>(&peer.Widget()), qobject_cast<QPlainTextEdit*>(&peer.Widget())};
}

int CurrentRow(const Control& control) {
  if (const auto* list = dynamic_cast<const ListBox*>(&control)) return list->ListIndex();
  if (const auto* grid = dynamic_cast<const Grid*>(&control)) return grid->Row();
  return -1;
}

}  // namespace

WidgetPeer* QtHand::GoTo(Control& control) {
  Form& form = control.Owner();
  FormWindow* window = desktop_.WindowOf(form);
  if (window == nullptr) return nullptr;
  window->Flush();
  if (!window->MoveFocusTo(control) || !CanTouch(control)) return nullptr;
  window->Flush();
  return window->PeerOf(control);
}

std::string QtHand::Click(Control& control, MouseButton button) {
  WidgetPeer* peer = GoTo(control);
  if (peer == nullptr) return "";
  if (auto* widget = qobject_cast<QAbstractButton*>(&peer->Widget());
      widget != nullptr && button == MouseButton::Left) {
    widget->click();
    return "";
  }
  if (HasRows(control)) {
    const int row = CurrentRow(control);
    // The right button on a list, no row being meant: what is current stays so.
    if (button == MouseButton::Right || row < 0) {
      control.DoMouseUp(button);
      return "";
    }
    return ClickRow(control, row, button);
  }
  const QPointer<QComboBox> dropDown(qobject_cast<QComboBox*>(&peer->Widget()));
  ClickAt(peer->MouseTarget(), peer->MouseTarget().rect().center(), ToQt(button));
  // Left open, it would take the keys meant for what the person goes to next.
  if (dropDown) dropDown->hidePopup();
  return "";
}

std::string QtHand::DoubleClick(Control& control) {
  if (HasRows(control) && CurrentRow(control) >= 0) return DoubleClickRow(control, CurrentRow(control));
  Click(control, MouseButton::Left);
  const FormWindow* window = desktop_.WindowOf(control.Owner());
  WidgetPeer* peer = window == nullptr ? nullptr : window->PeerOf(control);
  if (peer == nullptr || !CanTouch(control) || qobject_cast<QAbstractButton*>(&peer->Widget()) != nullptr) return "";
  if (qobject_cast<QComboBox*>(&peer->Widget()) != nullptr) return "";  // the second click would open it for good
  ClickAgainAt(peer->MouseTarget(), peer->MouseTarget().rect().center());
  return "";
}

std::string QtHand::ClickRow(Control& control, int row, MouseButton button) {
  WidgetPeer* peer = GoTo(control);
  if (peer == nullptr) return "";
  if (dynamic_cast<ComboBox*>(&control) != nullptr) return SelectInCombo(*peer, row);
  const std::optional<QPoint> place = peer->PlaceOfRow(row);
  if (!place) return control.FullName() + " shows no row " + std::to_string(row);
  ClickAt(peer->MouseTarget(), *place, ToQt(button));
  return "";
}

std::string QtHand::DoubleClickRow(Control& control, int row) {
  const std::string refused = ClickRow(control, row, MouseButton::Left);
  FormWindow* window = desktop_.WindowOf(control.Owner());
  if (!refused.empty() || window == nullptr || !CanTouch(control)) return refused;
  window->Flush();
  WidgetPeer* peer = window->PeerOf(control);
  const std::optional<QPoint> place = peer->PlaceOfRow(row);
  if (place) ClickAgainAt(peer->MouseTarget(), *place);
  return "";
}

std::string QtHand::ClickHeading(Grid& grid, int column) {
  WidgetPeer* peer = GoTo(grid);
  if (peer == nullptr) return "";
  QHeaderView& heading = *dynamic_cast<QTableView&>(peer->Widget()).horizontalHeader();
  const QPoint at(heading.sectionViewportPosition(column) + heading.sectionSize(column) / 2, heading.height() / 2);
  // A heading takes clicks only where it can be seen.
  if (heading.logicalIndexAt(at) != column) return grid.FullName() + " doesn't show the heading";
  ClickAt(*heading.viewport(), at);
  return "";
}

std::string QtHand::SelectRows(Control& control, const std::vector<int>& rows) {
  if (rows.size() == 1) return ClickRow(control, rows.front(), MouseButton::Left);
  WidgetPeer* peer = GoTo(control);
  if (peer == nullptr) return "";
  if (dynamic_cast<ComboBox*>(&control) != nullptr) return SelectInCombo(*peer, -1);
  auto* list = dynamic_cast<ListBox*>(&control);
  if (list == nullptr || !list->MultiSelect()) {
    // No click can leave a list of single selection without a current row: only the program itself.
    if (list != nullptr) list->DoSelect(-1);
    if (auto* grid = dynamic_cast<Grid*>(&control)) grid->DoSelect(-1);
    return "";
  }
  if (rows.empty()) {
    list->DoSelectRows({});
    return "";
  }
  for (std::size_t i = 0; i < rows.size() && CanTouch(control); ++i) {
    const std::optional<QPoint> place = peer->PlaceOfRow(rows[i]);
    if (!place) return control.FullName() + " shows no row " + std::to_string(rows[i]);
    ClickAt(peer->MouseTarget(), *place, Qt::LeftButton, i == 0 ? Qt::NoModifier : Qt::ControlModifier);
  }
  return "";
}

std::string QtHand::SelectInCombo(WidgetPeer& peer, int row) {
  auto& combo = dynamic_cast<QComboBox&>(peer.Widget());
  if (row < 0) {
    dynamic_cast<ComboBox&>(peer.GetControl()).DoSelect(-1);
    return "";
  }
  combo.setCurrentIndex(row);
  combo.activated(row);
  return "";
}

std::string QtHand::Check(Control& control, bool value) {
  if (Read(control).checked == value) return "";
  WidgetPeer* peer = GoTo(control);
  if (peer == nullptr) return "";
  dynamic_cast<QAbstractButton&>(peer->Widget()).click();
  return "";
}

std::string QtHand::CheckRow(ListBox& list, int row, bool value) {
  if (list.Checked(row) == value) return "";
  WidgetPeer* peer = GoTo(list);
  if (peer == nullptr) return "";
  QListWidgetItem* item = dynamic_cast<QListWidget&>(peer->Widget()).item(row);
  item->setCheckState(value ? Qt::Checked : Qt::Unchecked);
  if (CanTouch(list) && row < list.ListCount() && list.ListIndex() != row)
    return ClickRow(list, row, MouseButton::Left);
  return "";
}

std::string QtHand::Type(Control& control, const std::string& text) {
  WidgetPeer* peer = GoTo(control);
  if (peer == nullptr) return "";
  auto [line, page] = FieldOf(*peer);
  if (line == nullptr && page == nullptr) return control.FullName() + " takes no text";
  line != nullptr ? line->selectAll() : page->selectAll();
  if (line != nullptr ? line->hasSelectedText() : page->textCursor().hasSelection()) {
    const KeyPress remove = ParseKey("Delete");
    desktop_.WindowOf(control.Owner())
        ->SendKey(MakeKeyEvent(QEvent::KeyPress, remove), MakeKeyEvent(QEvent::KeyRelease, remove));
  }
  SendText(control, text);
  return "";
}

std::string QtHand::Insert(Control& control, const std::string& text, int at) {
  WidgetPeer* peer = GoTo(control);
  if (peer == nullptr) return "";
  auto [line, page] = FieldOf(*peer);
  if (line != nullptr) line->setCursorPosition(at);
  if (page != nullptr) {
    QTextCursor cursor = page->textCursor();
    cursor.setPosition(at);
    page->setTextCursor(cursor);
  }
  SendText(control, text);
  return "";
}

void QtHand::SendText(Control& control, const std::string& text) {
  FormWindow* window = desktop_.WindowOf(control.Owner());
  const auto* box = dynamic_cast<TextBox*>(&control);
  const bool isPage = box != nullptr && box->MultiLine();
  for (const char character : WithLineFeeds(text)) {
    // What the text does to the screen may take the keyboard elsewhere.
    if (desktop_.WindowOf(control.Owner()) != window || !CanTouch(control) || !control.HasFocus()) break;
    if (character == '\n' ? !isPage : !CanBeTyped(character)) continue;
    window->SendKey(MakeKeyEvent(QEvent::KeyPress, character), MakeKeyEvent(QEvent::KeyRelease, character));
    if (window->IsAttached()) window->Flush();
  }
}

std::string QtHand::Leave(Form& form) {
  FormWindow* window = desktop_.WindowOf(form);
  if (Control* next = form.NextInTabOrder(); next != nullptr && window != nullptr) window->MoveFocusTo(*next);
  return "";
}

std::string QtHand::PressKey(Form& form, const KeyPress& key) {
  FormWindow* window = desktop_.WindowOf(form);
  window->Flush();
  // An open drop-down has the keyboard.
  if (QWidget* popup = QApplication::activePopupWidget()) {
    QWidget* target = popup->focusWidget() == nullptr ? popup : popup->focusWidget();
    QKeyEvent down = MakeKeyEvent(QEvent::KeyPress, key);
    QApplication::sendEvent(target, &down);
    return "";
  }
  window->SendKey(MakeKeyEvent(QEvent::KeyPress, key), MakeKeyEvent(QEvent::KeyRelease, key));
  return "";
}

std::string QtHand::Pick(Control& control, DaySerial day, bool twice) {
  WidgetPeer* peer = GoTo(control);
  if (peer == nullptr) return "";
  const QDate date = ui::ToQt(day);
  if (auto* edit = qobject_cast<QDateEdit*>(&peer->Widget())) {
    edit->setDate(date);
    return "";
  }
  auto& calendar = dynamic_cast<QCalendarWidget&>(peer->Widget());
  calendar.setCurrentPage(date.year(), date.month());
  const std::optional<QPoint> place = PlaceOfDay(calendar, date);
  if (!place) return control.FullName() + " can't show that day";
  ClickAt(peer->MouseTarget(), *place);
  if (!twice || desktop_.WindowOf(control.Owner()) == nullptr || !CanTouch(control)) return "";
  desktop_.WindowOf(control.Owner())->Flush();
  ClickAgainAt(peer->MouseTarget(), PlaceOfDay(calendar, date).value_or(*place));
  return "";
}

std::string QtHand::ChooseMenu(Form& form, MenuItem& item) {
  QAction* action = desktop_.WindowOf(form)->Actions().ActionOf(item);
  if (action == nullptr) return item.FullName() + " is not on the menu bar";
  action->trigger();
  return "";
}

std::string QtHand::ClickForm(Form& form, MouseButton button) {
  ClickAt(*desktop_.WindowOf(form)->centralWidget(), QPoint(1, 1), ToQt(button));
  return "";
}

std::string QtHand::Close(Form& form) {
  desktop_.WindowOf(form)->close();
  return "";
}

ControlState QtHand::Read(const Control& control) {
  ControlState state = ReadControl(control);
  FormWindow* window = desktop_.WindowOf(control.Owner());
  if (window == nullptr) return state;
  window->Flush();
  if (const WidgetPeer* peer = window->PeerOf(control)) peer->Read(state);
  return state;
}

std::string QtHand::Screenshot(Form* form, const std::filesystem::path& to) {
  desktop_.Settle();
  QWidget* window = form == nullptr ? desktop_.TopWindow() : desktop_.WindowOf(*form);
  if (window == nullptr) return "there is no window";
  return window->grab().save(QString::fromStdString(to.string()), "PNG") ? "" : "can't write " + to.string();
}

void QtHand::Settle() { desktop_.Settle(); }

}  // namespace lantos::ui
