#include "screens/UnsavedChanges.h"

#include "screens/AlsoRuns.h"

namespace lantos {

namespace {

constexpr const char* kClose = "Close";
constexpr const char* kCancel = "Cancel";
constexpr const char* kKey = " <Esc>";

}  // namespace

void UnsavedChanges::TurnCaptionOf(ui::Button& cancel) {
  cancel_ = &cancel;
  mnemonic_ = cancel.Caption().starts_with('&') ? "&" : "";
  tipFollows_ = cancel.ToolTip().starts_with(kClose);
  TurnCaption();
}

void UnsavedChanges::TurnCaption() {
  if (cancel_ == nullptr) return;
  const std::string word = any_ ? kCancel : kClose;
  cancel_->SetCaption(mnemonic_ + word);
  if (tipFollows_) cancel_->SetToolTip(word + kKey);
}

void UnsavedChanges::Mark() {
  if (quiet_ > 0 || any_) return;
  any_ = true;
  TurnCaption();
}

void UnsavedChanges::Forget() {
  any_ = false;
  for (const auto& keep : keepShown_) keep();
  TurnCaption();
}

bool UnsavedChanges::MayBeDropped() const {
  if (!any_) return true;
  const ui::Answer answer =
      form_.GetDesktop().Ask(question_.text, form_.Caption(), question_.buttons, ui::Icon::Question);
  // With a third button the No alone keeps the person here.
  return question_.buttons == ui::Buttons::YesNoCancel ? answer != ui::Answer::No : answer == ui::Answer::Yes;
}

void UnsavedChanges::WatchOne(ui::TextBox& box) {
  AlsoRuns(box.OnChange, [this] { Mark(); });
  // What a screen makes of a box that is left isn't the person's doing; what they typed is marked by then.
  if (!box.OnLostFocus) return;
  box.OnLostFocus = [this, own = std::move(box.OnLostFocus)] {
    const Quiet quiet(*this);
    own();
  };
}

void UnsavedChanges::WatchOne(ui::ComboBox& combo) {
  const auto shown = std::make_shared<std::string>(combo.Text());
  keepShown_.emplace_back([&combo, shown] { *shown = combo.Text(); });
  AlsoRuns(combo.OnChange, [this] { Mark(); });
  AlsoRuns(combo.OnClick, [this, &combo, shown] {
    if (combo.Text() != *shown) Mark();
  });
}

void UnsavedChanges::WatchOne(ui::ListBox& list) {
  AlsoRuns(list.OnItemCheck, [this] { Mark(); });
}

void UnsavedChanges::WatchOne(ui::CheckBox& box) {
  AlsoRuns(box.OnClick, [this] { Mark(); });
}

void UnsavedChanges::WatchOne(ui::OptionButton& option) {
  AlsoRuns(option.OnClick, [this] { Mark(); });
}

void UnsavedChanges::WatchOne(ui::DTPicker& picker) {
  AlsoRuns(picker.OnChange, [this] { Mark(); });
}

}  // namespace lantos
