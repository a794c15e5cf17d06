#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextDocument>

#include "ui/Desktop.h"
#include "ui/qt/FormWindow.h"
#include "ui/qt/Text.h"
#include "ui/qt/WidgetPeer.h"

namespace lantos::ui {

namespace {

// What has come in between, by a paste say: what stood there before stays as it is.
std::string WithNewPartInCapitals(std::string_view before, std::string after) {
  const std::size_t shorter = std::min(before.size(), after.size());
  std::size_t head = 0;
  while (head < shorter && before[head] == after[head]) ++head;
  std::size_t tail = 0;
  while (tail < shorter - head && before[before.size() - 1 - tail] == after[after.size() - 1 - tail]) ++tail;
  for (std::size_t i = head; i + tail < after.size(); ++i) after[i] = ToUpper(after[i]);
  return after;
}

// What can't be changed lies on the window's own colour. A colour that the program gives goes before it.
void ShowLocked(QWidget& field, const TextBox& box) {
  if (box.BackColor()) return;
  QPalette palette;
  if (box.Locked()) palette.setColor(QPalette::Base, QApplication::palette().color(QPalette::Window));
  field.setPalette(palette);
}

class LinePeer : public WidgetPeer {
 public:
  LinePeer(FormWindow& window, TextBox& control, QLineEdit& edit)
      : WidgetPeer(window, control, edit), box_(control), edit_(edit) {
    // What is edited isn't all: the way back in a password empties it.
    QObject::connect(&edit_, &QLineEdit::textChanged, &edit_, [this](const QString& text) {
      if (!IsPersonsDoing()) return;
      const std::string typed = FromQt(text);
      box_.DoEdit(box_.UpperCase() ? WithNewPartInCapitals(box_.Text(), typed) : typed);
      if (Window().IsAttached()) Refresh(Aspect::Text);
    });
  }

  void Read(ControlState& state) const override {
    WidgetPeer::Read(state);
    state.text = ShownText(edit_.text());
    state.locked = edit_.isReadOnly();
    state.caret = edit_.cursorPosition();
  }

 private:
  // A field of the window system forgets caret and way back whenever its text or its limit is set, also to what they
  // are already.
  void Apply(unsigned aspects) override {
    if (Has(aspects, Aspect::Enabled) || Has(aspects, Aspect::Look)) ShowLocked(edit_, box_);
    edit_.setEchoMode(box_.Password() ? QLineEdit::Password : QLineEdit::Normal);
    edit_.setReadOnly(box_.Locked());
    const QString text = ToQt(box_.Text());
    if (edit_.text() == text) {
      if (!limited_) Limit(text.size());
      return;
    }
    const int place = edit_.cursorPosition();
    Limit(text.size());
    edit_.setText(text);
    edit_.setCursorPosition(edit_.hasFocus() ? place : 0);
  }

  // The limit is for typing: what the program itself sets may be longer.
  void Limit(qsizetype length) {
    limited_ = true;
    const int limit = box_.MaxLength() == 0 ? kNoLimit : static_cast<int>(box_.MaxLength());
    const int wanted = std::max(limit, static_cast<int>(length));
    if (edit_.maxLength() != wanted) edit_.setMaxLength(wanted);
  }

  static constexpr int kNoLimit = 32767;

  TextBox& box_;
  QLineEdit& edit_;
  bool limited_ = false;
};

// As it stands there: toPlainText would turn blanks that hold two words together into others.
QString TextOn(const QPlainTextEdit& page) {
  return page.document()
      ->toRawText()
      .replace(QChar::ParagraphSeparator, QLatin1Char('\n'))
      .replace(QChar::LineSeparator, QLatin1Char('\n'));
}

class PagePeer : public WidgetPeer {
 public:
  PagePeer(FormWindow& window, TextBox& control, QPlainTextEdit& edit)
      : WidgetPeer(window, control, edit), box_(control), edit_(edit) {
    edit_.setTabChangesFocus(true);
    QObject::connect(&edit_, &QPlainTextEdit::textChanged, &edit_, [this] {
      if (!IsPersonsDoing()) return;
      std::string typed = Shown();
      if (box_.UpperCase()) typed = WithNewPartInCapitals(box_.Text(), std::move(typed));
      if (box_.MaxLength() != 0 && typed.size() > box_.MaxLength()) typed.resize(box_.MaxLength());
      if (typed.ends_with('\r')) typed.pop_back();  // no half a line end
      box_.DoEdit(std::move(typed));
      if (Window().IsAttached()) Refresh(Aspect::Text);
    });
  }

  void Read(ControlState& state) const override {
    WidgetPeer::Read(state);
    // Which characters end the line can't be seen.
    if (WithLineFeeds(box_.Text()) != FromQt(TextOn(edit_))) state.text = Shown();
    state.locked = edit_.isReadOnly();
    state.caret = edit_.textCursor().position();
  }

 private:
  std::string Shown() const { return FromQt(TextOn(edit_).replace(QStringLiteral("\n"), QStringLiteral("\r\n"))); }

  void Apply(unsigned aspects) override {
    if (Has(aspects, Aspect::Enabled) || Has(aspects, Aspect::Look)) ShowLocked(edit_, box_);
    edit_.setReadOnly(box_.Locked());
    // A locked page can still be read and copied from the keyboard.
    if (box_.Locked()) edit_.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    const QString text = ToQt(WithLineFeeds(box_.Text()));
    if (TextOn(edit_) == text) return;
    const int place = edit_.textCursor().position();
    edit_.setPlainText(text);
    if (!edit_.hasFocus()) return;
    QTextCursor cursor = edit_.textCursor();
    cursor.setPosition(std::min(place, static_cast<int>(text.size())));
    edit_.setTextCursor(cursor);
  }

  TextBox& box_;
  QPlainTextEdit& edit_;
};

}  // namespace

std::unique_ptr<WidgetPeer> MakeTextPeer(FormWindow& window, TextBox& control, QWidget& widget) {
  if (control.MultiLine()) return std::make_unique<PagePeer>(window, control, dynamic_cast<QPlainTextEdit&>(widget));
  return std::make_unique<LinePeer>(window, control, dynamic_cast<QLineEdit&>(widget));
}

}  // namespace lantos::ui
