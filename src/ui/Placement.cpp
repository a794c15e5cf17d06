#include "ui/Placement.h"

namespace lantos::ui {

void Placement::SetSize(Twips width, Twips height) {
  width_ = width;
  height_ = height;
  PlaceChanged();
}

void Placement::SetPosition(Twips left, Twips top) {
  left_ = left;
  top_ = top;
  PlaceChanged();
}

void Placement::SetState(WindowState state) {
  state_ = state;
  PlaceChanged();
}

bool Placement::TakeSize(Twips width, Twips height, WindowState state) {
  const bool changed = width_ != width || height_ != height || state_ != state;
  width_ = width;
  height_ = height;
  state_ = state;
  return changed;
}

}  // namespace lantos::ui
