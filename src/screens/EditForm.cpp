#include "screens/EditForm.h"

#include "frame/Dates.h"
#include "records/Record.h"
#include "screens/EnterBoxAnew.h"

namespace lantos {
namespace {

constexpr DaySerial kLastDay = 2958465;  // 31 December 9999

}  // namespace

std::string TextOfFileDate(FileDate date) {
  const DaySerial day = FromFileDate(date);
  return day < 1 || day > kLastDay ? std::string() : FormatDate(day);
}

void EditForm::SetEditButtons(ui::Button& save, ui::Button& reset, ui::Button& cancel) {
  SetEditButtons(save, cancel);
  reset_ = &reset;
  reset.SetToolTip("Reset <F2>");
  reset.OnClick = [this] { Reset(); };
  reset.SetCausesValidation(false);
}

void EditForm::SetEditButtons(ui::Button& save, ui::Button& cancel) {
  save_ = &save;
  cancel_ = &cancel;
  save.SetToolTip("Save <F10>");
  cancel.SetToolTip("Cancel <Esc>");
  save.OnClick = [this] { Save(); };
  cancel.OnClick = [this] { Cancel(); };
  cancel.SetCausesValidation(false);
  SetDefaultButton(save);
  SetCancelButton(cancel);
  changes_.TurnCaptionOf(cancel);
}

void EditForm::Watch(ui::TextBox& box) {
  box.OnChange = [this] { MarkChanged(); };
}

void EditForm::Bind(ui::TextBox& box, TextField field) {
  box.SetMaxLength(field.width - 1);
  Watch(box);
  texts_.push_back({field, [&box] { return box.Text(); }, [&box](const std::string& text) { box.SetText(text); }, ""});
}

void EditForm::Bind(ui::ComboBox& box, TextField field) {
  box.SetMaxLength(field.width - 1);
  texts_.push_back({field, [&box] { return box.Text(); }, [&box](const std::string& text) { box.SetText(text); }, ""});
}

void EditForm::BindDate(ui::TextBox& box) {
  box.SetMaxLength(10);
  Watch(box);
  box.OnValidate = [this, &box](bool& keepFocus) { keepFocus = !CheckDate(box); };
}

void EditForm::ShowOnly(ui::TextBox& box) {
  box.SetLocked(true);
  box.SetTabStop(false);
}

void EditForm::ShowDate(ui::TextBox& box, FileDate date) { box.SetText(TextOfFileDate(date)); }

// Days up to the first serial can't be told apart from bare serials once they are stored.
std::optional<FileDate> EditForm::ParseDateText(const std::string& text) const {
  if (TrimView(text).empty()) return 0;
  const std::optional<DaySerial> day = ParseDate(text, FromSerial(shop_.environment.Today()).year);
  if (!day || *day < 1) return std::nullopt;
  return ToFileDate(*day);
}

bool EditForm::CheckDate(ui::TextBox& box) {
  const std::optional<FileDate> date = ParseDateText(box.Text());
  if (date) {
    box.SetText(TextOfFileDate(*date));
    return true;
  }
  shop_.desktop.Tell(badDate_, Caption(), ui::Icon::Exclamation);
  if (box.HasFocus()) EnterBoxAnew(*this, box);
  return false;
}

FileDate EditForm::DateIn(const ui::TextBox& box, FileDate inRecord) const {
  if (box.Text() == TextOfFileDate(inRecord)) return inRecord;
  return ParseDateText(box.Text()).value_or(inRecord);
}

void EditForm::Reset() {
  {
    const Quiet quiet(*this);
    ShowFields();
  }
  MarkUnchanged();
}

// Or what is typed next would go into the middle of a text that nobody has read yet.
void EditForm::EnterAnew(ui::Control* fromButton) {
  ui::Control* field = dynamic_cast<ui::Typing*>(Focus()) == nullptr ? fromButton : Focus();
  if (field == nullptr) return;
  cancel_->SetFocus();
  field->SetFocus();
}

void EditForm::Cancel() {
  if (!changes_.MayBeDropped()) return;
  MarkUnchanged();
  Hide();
}

bool EditForm::MayGoOn() const {
  return !Changed() || shop_.desktop.Ask("Discard current changes?", Caption(), ui::Buttons::YesNo,
                                         ui::Icon::Question) == ui::Answer::Yes;
}

void EditForm::Press(ui::Button& button) {
  if (button.IsUsable() && button.OnClick) button.OnClick();
}

void EditForm::OnKeyDown(ui::KeyPress& key) {
  if (shop_.keys.HandleGlobalKeys(key, *this)) return;
  ui::Button* button = key.Is("F10") ? save_ : key.Is("F2") ? reset_ : key.Is("Esc") ? cancel_ : nullptr;
  if (button == nullptr || !button->Visible()) return OtherKey(key);
  key.Clear();
  Press(*button);
}

void EditForm::OnQueryClose(bool& refuse) {
  Cancel();
  refuse = Visible();
}

}  // namespace lantos
