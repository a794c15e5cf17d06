#include "ui/WindowPlace.h"

#include <fmt/format.h>

#include <algorithm>

namespace lantos::ui {

namespace {

constexpr Twips kMinimumWidth = 640 * kTwipsPerPixel;
constexpr Twips kMinimumHeight = 480 * kTwipsPerPixel;

std::string Stored(Twips value) { return fmt::format("{}", value); }

Twips Read(const UserSettings& settings, const std::string& key, Twips current) {
  return static_cast<Twips>(settings.GetNumber(key, current));
}

WindowState ToState(double value) {
  if (value == 1) return WindowState::Minimized;
  return value == 2 ? WindowState::Maximized : WindowState::Normal;
}

}  // namespace

void SaveWindow(UserSettings& settings, const Form& form) {
  if (form.State() == WindowState::Minimized) return;
  settings.Save(form.Name() + "State", std::to_string(static_cast<int>(form.State())));
  if (form.State() == WindowState::Maximized) return;
  settings.Save(form.Name() + "Width", Stored(form.Width()));
  settings.Save(form.Name() + "Height", Stored(form.Height()));
}

void RestoreWindow(const UserSettings& settings, Form& form) {
  form.SetSize(Read(settings, form.Name() + "Width", form.Width()),
               Read(settings, form.Name() + "Height", form.Height()));
  form.SetState(ToState(settings.GetNumber(form.Name() + "State", static_cast<double>(form.State()))));
}

void SaveControlPlace(UserSettings& settings, const std::string& caption, const ControlPlace& place) {
  settings.Save(caption + " State", std::to_string(place.state));
  if (place.state != 0) return;
  settings.Save(caption + " Top", Stored(place.top));
  settings.Save(caption + " Left", Stored(place.left));
  settings.Save(caption + " Width", Stored(place.width));
  settings.Save(caption + " Height", Stored(place.height));
}

ControlPlace RestoreControlPlace(const UserSettings& settings, const std::string& caption, ControlPlace current) {
  current.top = Read(settings, caption + " Top", current.top);
  current.left = Read(settings, caption + " Left", current.left);
  current.width = Read(settings, caption + " Width", current.width);
  current.height = Read(settings, caption + " Height", current.height);
  current.state = static_cast<int>(settings.GetNumber(caption + " State", current.state));
  return current;
}

void FitMinimumSize(Form& form, Twips minimumWidth, Twips minimumHeight) {
  if (form.State() != WindowState::Normal) return;
  const Twips width = minimumWidth < 1 ? kMinimumWidth : minimumWidth;
  const Twips height = minimumHeight < 1 ? kMinimumHeight : minimumHeight;
  if (form.Width() < width || form.Height() < height) {
    form.SetSize(std::max(form.Width(), width), std::max(form.Height(), height));
  }
}

}  // namespace lantos::ui
