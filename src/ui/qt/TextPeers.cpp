#include <QLineEdit>
#include <QPlainTextEdit>

#include "ui/Desktop.h"
#include "ui/qt/FormWindow.h"
#include "ui/qt/Text.h"
#include "ui/qt/WidgetPeer.h"

namespace lantos::ui {

namespace {

class LinePeer : public WidgetPeer {
 public:
  LinePeer(FormWindow& window, TextBox& control, QLineEdit& edit)
      : WidgetPeer(window, control, edit), box_(control), edit_(edit) {
    QObject::connect(&edit_, &QLineEdit::textEdited, &edit_, [this](const QString& text) {
      if (!IsPersonsDoing()) return;
      const std::string typed = FromQt(text);
      box_.DoEdit(box_.UpperCase() ? ToUpper(typed) : typed);
      if (Window().IsAttached()) Refresh(Aspect::Text);
    });
  }

  void Read(ControlState& state) const override {
    WidgetPeer::Read(state);
    state.text = ShownText(edit_.text());
    state.locked = edit_.isReadOnly();
  }

 private:
  void Apply(unsigned /*aspects*/) override {
    edit_.setEchoMode(box_.Password() ? QLineEdit::Password : QLineEdit::Normal);
    edit_.setReadOnly(box_.Locked());
    const QString text = ToQt(box_.Text());
    // The limit is for typing: what the program itself sets may be longer.
    const int limit = box_.MaxLength() == 0 ? 32767 : static_cast<int>(box_.MaxLength());
    edit_.setMaxLength(std::max(limit, static_cast<int>(text.size())));
    if (edit_.text() == text) return;
    const int place = edit_.cursorPosition();
    edit_.setText(text);
    edit_.setCursorPosition(edit_.hasFocus() ? place : 0);
  }

  TextBox& box_;
  QLineEdit& edit_;
};

class PagePeer : public WidgetPeer {
 public:
  PagePeer(FormWindow& window, TextBox& control, QPlainTextEdit& edit)
      : WidgetPeer(window, control, edit), box_(control), edit_(edit) {
    edit_.setTabChangesFocus(true);
    QObject::connect(&edit_, &QPlainTextEdit::textChanged, &edit_, [this] {
      if (!IsPersonsDoing()) return;
      std::string typed = Shown();
      if (box_.UpperCase()) typed = ToUpper(typed);
      if (box_.MaxLength() != 0 && typed.size() > box_.MaxLength()) typed.resize(box_.MaxLength());
      if (typed.ends_with('\r')) typed.pop_back();  // no half a line end
      box_.DoEdit(std::move(typed));
      if (Window().IsAttached()) Refresh(Aspect::Text);
    });
  }

  void Read(ControlState& state) const override {
    WidgetPeer::Read(state);
    // Which characters end the line can't be seen.
    if (WithLineFeeds(box_.Text()) != FromQt(edit_.toPlainText())) state.text = Shown();
    state.locked = edit_.isReadOnly();
  }

 private:
  std::string Shown() const {
    return FromQt(edit_.toPlainText().replace(QStringLiteral("\n"), QStringLiteral("\r\n")));
  }

  void Apply(unsigned /*aspects*/) override {
    edit_.setReadOnly(box_.Locked());
    const QString text = ToQt(WithLineFeeds(box_.Text()));
    if (edit_.toPlainText() == text) return;
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
