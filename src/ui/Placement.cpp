#include "ui/Placement.h"

namespace lantos::ui {

void Placement::SetSize(Twips width, Twips height) {
  const bool changed = width_ != width || height_ != height;
  width_ = width;
  height_ = height;
  PlaceChanged();
  if (changed) SizeWasSet();
}

void Placement::SetPosition(Twips left, Twips top) {
  hasPosition_ = true;
  left_ = left;
  top_ = top;
  PlaceChanged();
}

void Placement::SetState(WindowState state) {
  const bool changed = state_ != state;
  state_ = state;
  PlaceChanged();
  if (changed) SizeWasSet();
}

bool Placement::TakeSize(Twips width, Twips height, WindowState state) {
  const bool changed = width_ != width || height_ != height || state_ != state;
  width_ = width;
  height_ = height;
  state_ = state;
  return changed;
}

}  // namespace lantos::ui
