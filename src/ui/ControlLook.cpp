#include "ui/ControlLook.h"

namespace lantos::ui {

void ControlLook::SetToolTip(std::string text) {
  toolTip_ = std::move(text);
  Changed(Aspect::ToolTip);
}

void ControlLook::SetSpokenName(std::string name) {
  spokenName_ = std::move(name);
  Changed(Aspect::ToolTip);
}

void ControlLook::SetBackColor(std::optional<Color> color) {
  if (backColor_ == color) return;
  backColor_ = color;
  Changed(Aspect::Look);
}

void ControlLook::SetBold(bool bold) {
  if (bold_ == bold) return;
  bold_ = bold;
  Changed(Aspect::Look);
}

void ControlLook::SetFontSize(int points) {
  if (fontSize_ == points) return;
  fontSize_ = points;
  Changed(Aspect::Look);
}

void ControlLook::SetFace(FontFace face) {
  if (face_ == face) return;
  face_ = face;
  Changed(Aspect::Look);
}

}  // namespace lantos::ui
