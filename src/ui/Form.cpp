#include "ui/Form.h"

#include "ui/GlobalKeys.h"

namespace lantos::ui {

namespace {

// Every screen is set in the size of the first one loaded, which is the main window; what a screen sets on its own
// account while it loads stays.
void TakeFontSize(Form& form, const Form& mainWindow) {
  const int points = mainWindow.Controls().empty() ? 0 : mainWindow.Controls().front()->FontSize();
  if (points > 0) ApplyFontFactor(form, (points - 6) / 2);
}

}  // namespace

Form::Form(Desktop& desktop, std::string name, std::string caption)
    : MenuBar(*this), desktop_(desktop), name_(std::move(name)), caption_(std::move(caption)) {}

Form::~Form() {
  // The derived part is gone: whoever made the form has unloaded it, or leaves in a hurry.
  if (loaded_) desktop_.FormUnloaded(*this);
  desktop_.Forget(*this);
}

void Form::SetCaption(std::string caption) {
  if (caption_ == caption) return;
  caption_ = std::move(caption);
  if (peer_ != nullptr) peer_->CaptionChanged();
  if (loaded_) desktop_.FormCaptionChanged(*this);
}

void Form::SetBackColor(std::optional<Color> color) {
  backColor_ = color;
  if (peer_ != nullptr) peer_->LookChanged();
}

void Form::LoadForm() {
  if (loaded_) return;
  loaded_ = true;
  if (!desktop_.LoadedForms().empty()) TakeFontSize(*this, *desktop_.LoadedForms().front());
  desktop_.Remember(*this);
  desktop_.FormLoaded(*this);
  OnLoad();
}

void Form::ShowModal() {
  LoadForm();
  if (!loaded_) return;  // it unloaded itself while loading
  Show();
  if (visible_) desktop_.RunModal(*this);
}

void Form::Show() {
  LoadForm();
  if (!loaded_ || visible_) return;
  visible_ = true;
  desktop_.Remember(*this);
  TakeFirstFocus();
  desktop_.FormShown(*this);
  OnActivate();
}

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  desktop_.FormHidden(*this);
}

bool Form::Unload() {
  if (!loaded_) return true;
  bool refuse = false;
  OnUnload(refuse);
  if (refuse) return false;
  if (!loaded_) return true;
  Hide();
  loaded_ = false;
  DropFocus();
  desktop_.FormUnloaded(*this);
  desktop_.Forget(*this);
  return true;
}

void Form::DoClose() {
  Run([this] {
    bool refuse = false;
    OnQueryClose(refuse);
    if (!refuse && visible_) Unload();
  });
}

void Form::PlaceChanged() {
  if (peer_ != nullptr) peer_->PlaceChanged();
}

void Form::SizeWasSet() {
  if (loaded_) Run([this] { OnResize(); });
}

void Form::FocusMoved() {
  if (peer_ != nullptr) peer_->FocusChanged();
}

void Form::DoResize(Twips width, Twips height, WindowState state) {
  if (TakeSize(width, height, state)) Run([this] { OnResize(); });
}

void Form::DoMouseUp(MouseButton button) {
  Run([&] { OnMouseUp(button); });
}

void Form::Run(const std::function<void()>& event) {
  try {
    event();
  } catch (const std::exception& error) {
    desktop_.SetPointer(Pointer::Normal);
    desktop_.EndEvent(error);
  }
}

}  // namespace lantos::ui
