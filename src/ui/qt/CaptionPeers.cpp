#include <QAbstractButton>
#include <QButtonGroup>
#include <QGroupBox>
#include <QLabel>

#include "ui/qt/Appearance.h"
#include "ui/qt/FormWindow.h"
#include "ui/qt/Text.h"
#include "ui/qt/WidgetPeer.h"

namespace lantos::ui {

namespace {

// A label that takes the room that is left shows as much of its text as fits, and all of it in its tool tip.
class LabelPeer : public WidgetPeer {
 public:
  LabelPeer(FormWindow& window, Captioned& control, QLabel& label)
      : WidgetPeer(window, control, label), captioned_(control), label_(label) {
    // Names and addresses are no markup.
    label_.setTextFormat(Qt::PlainText);
  }
  void Read(ControlState& state) const override {
    WidgetPeer::Read(state);
    if (!cut_) state.caption = FromQt(label_.text());
  }
  void Resized() override {
    if (!IsElided() || !Window().IsAttached()) return;
    ShowCaption();
    ShowToolTip();
  }

 private:
  void Apply(unsigned aspects) override {
    if (!Has(aspects, Aspect::Caption) && !Has(aspects, Aspect::Look)) return;
    ShowCaption();
    if (IsElided()) ShowToolTip();
  }

  bool IsElided() const {
    const bool isOneLine = captioned_.Caption().find('\n') == std::string::npos;
    return isOneLine && !label_.wordWrap() && label_.sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
  }

  void ShowCaption() {
    const QString whole = ToQt(captioned_.Caption());
    QString shown = whole;
    if (IsElided()) shown = label_.fontMetrics().elidedText(whole, Qt::ElideRight, label_.contentsRect().width());
    cut_ = shown != whole;
    if (label_.text() != shown) label_.setText(shown);
    MakeRoomForMnemonic(label_);
  }

  QString ToolTipToCome() const override {
    return cut_ && captioned_.ToolTip().empty() ? ToQt(captioned_.Caption()) : WidgetPeer::ToolTipToCome();
  }

  Captioned& captioned_;
  QLabel& label_;
  bool cut_ = false;
};

// A group box shows its caption, any other container none.
class FramePeer : public WidgetPeer {
 public:
  FramePeer(FormWindow& window, Captioned& control, QWidget& widget)
      : WidgetPeer(window, control, widget), captioned_(control), group_(dynamic_cast<QGroupBox*>(&widget)) {}
  void Read(ControlState& state) const override {
    WidgetPeer::Read(state);
    if (group_ != nullptr) state.caption = FromQt(group_->title());
  }

 private:
  void Apply(unsigned aspects) override {
    if (group_ != nullptr && Has(aspects, Aspect::Caption)) group_->setTitle(ToQt(captioned_.Caption()));
  }
  Captioned& captioned_;
  QGroupBox* group_;
};

// Push button, check box and option alike: a click of the widget is the person's click.
class ButtonPeer : public WidgetPeer {
 public:
  ButtonPeer(FormWindow& window, Captioned& control, QAbstractButton& button)
      : WidgetPeer(window, control, button), captioned_(control), button_(button) {
    button_.setAutoExclusive(false);
    QObject::connect(&button_, &QAbstractButton::clicked, &button_, [this] {
      if (!IsPersonsDoing()) return;
      captioned_.DoClick();
      // The widget has changed its mark by itself; what holds is the control's.
      if (Window().IsAttached() && button_.isCheckable()) Refresh(Aspect::Value);
    });
  }
  void Read(ControlState& state) const override {
    WidgetPeer::Read(state);
    state.caption = FromQt(button_.text());
    if (button_.isCheckable()) state.checked = button_.isChecked();
  }

 private:
  void Apply(unsigned aspects) override {
    if (Has(aspects, Aspect::Caption)) button_.setText(ToQt(captioned_.Caption()));
    if (const auto* check = dynamic_cast<CheckBox*>(&captioned_)) button_.setChecked(check->Value());
    if (const auto* option = dynamic_cast<OptionButton*>(&captioned_)) ShowOption(option->Value());
  }

  // An exclusive group refuses to have no button down, which the program may want.
  void ShowOption(bool value) {
    QButtonGroup* group = button_.group();
    const bool loosen = group != nullptr && !value && button_.isChecked();
    if (loosen) group->setExclusive(false);
    button_.setChecked(value);
    if (loosen) group->setExclusive(true);
  }

  Captioned& captioned_;
  QAbstractButton& button_;
};

}  // namespace

std::unique_ptr<WidgetPeer> MakeCaptionPeer(FormWindow& window, Captioned& control, QWidget& widget) {
  if (dynamic_cast<Label*>(&control) != nullptr) {
    return std::make_unique<LabelPeer>(window, control, dynamic_cast<QLabel&>(widget));
  }
  if (dynamic_cast<Frame*>(&control) != nullptr) return std::make_unique<FramePeer>(window, control, widget);
  return std::make_unique<ButtonPeer>(window, control, dynamic_cast<QAbstractButton&>(widget));
}

}  // namespace lantos::ui
