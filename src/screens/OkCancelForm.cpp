#include "screens/OkCancelForm.h"

#include "ui/WindowPlace.h"

namespace lantos {

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
  if (changes_.MayBeDropped()) Cancel();
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
