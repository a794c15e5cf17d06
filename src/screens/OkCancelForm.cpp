#include "screens/OkCancelForm.h"

#include "frame/PlainWords.h"
#include "ui/WindowPlace.h"

namespace lantos {

namespace {

constexpr std::string_view kWhatCanBeDone =
    "\r\rWhat you entered is still here: save it again, or leave the screen without it.";

}  // namespace

void OkCancelForm::UseButtons(ui::Button& accept, ui::Button& cancel) {
  accept.OnClick = [this] { Accept(); };
  cancel.OnClick = [this] { Leave(); };
  // A person who leaves isn't held by a field that doesn't validate.
  cancel.SetCausesValidation(false);
  SetDefaultButton(accept);
  SetCancelButton(cancel);
}

void OkCancelForm::OnKeyDown(ui::KeyPress& key) {
  if (keys_.HandleGlobalKeys(key, *this)) return;
  if (key.Is("F10")) {
    key.Clear();
    Accept();
  } else if (key.Is("Esc")) {
    key.Clear();
    Leave();
  }
}

void OkCancelForm::OnQueryClose(bool& refuse) {
  Leave();
  refuse = Visible();
}

void OkCancelForm::Leave() {
  if (!changes_.MayBeDropped()) return;
  Cancel();
  if (refused_) GetDesktop().Tell(storing_.name() + " was not stored.", Caption(), ui::Icon::Exclamation);
}

void OkCancelForm::SaveAndHide() {
  try {
    if (storing_.store) Store();
  } catch (const BackToScreen&) {
    return;
  }
  saved_ = true;
  Hide();
}

// A refusal that is told in words says too what can be done about it.
void OkCancelForm::Store() {
  refused_ = true;
  try {
    storing_.store();
  } catch (const WordedError& error) {
    throw WordedError(error.what(), error.Words() + std::string(kWhatCanBeDone));
  }
  refused_ = false;
}

SizedForm::SizedForm(ui::Desktop& desktop, ui::GlobalKeys& keys, UserSettings& settings, std::string name,
                     std::string caption)
    : OkCancelForm(desktop, keys, std::move(name), std::move(caption)), settings_(settings) {
  SetResizable(true);
}

SizedForm::~SizedForm() { Unload(); }

void SizedForm::SetDesignedSize(ui::Twips width, ui::Twips height) {
  minimumWidth_ = width;
  minimumHeight_ = height;
  SetSize(width, height);
}

void SizedForm::OnLoad() { ui::RestoreWindow(settings_, *this); }

void SizedForm::OnUnload(bool& /*refuse*/) { ui::SaveWindow(settings_, *this); }

void SizedForm::OnResize() { ui::FitMinimumSize(*this, minimumWidth_, minimumHeight_); }

}  // namespace lantos
