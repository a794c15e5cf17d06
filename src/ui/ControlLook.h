#pragma once

#include <optional>
#include <string>

#include "ui/Look.h"

namespace lantos::ui {

// What of a control has changed, for whoever shows it.
enum class Aspect { Text, Caption, Value, Rows, Selection, Shown, Enabled, Look, ToolTip, Date, Dropped };

// How a control looks, whatever it is, and what is said about it.
class ControlLook {
 public:
  virtual ~ControlLook() = default;

  const std::string& ToolTip() const { return toolTip_; }
  void SetToolTip(std::string text);
  // What a screen reader says of it, where neither its caption nor a label does; SpokenNameOf has it all together.
  const std::string& SpokenName() const { return spokenName_; }
  void SetSpokenName(std::string name);
  const std::string& Tag() const { return tag_; }
  void SetTag(std::string text) { tag_ = std::move(text); }
  const std::optional<Color>& BackColor() const { return backColor_; }
  void SetBackColor(std::optional<Color> color);
  bool Bold() const { return bold_; }
  void SetBold(bool bold);
  int FontSize() const { return fontSize_; }  // points; 0 leaves it to the theme
  void SetFontSize(int points);
  FontFace Face() const { return face_; }
  void SetFace(FontFace face);

 protected:
  virtual void Changed(Aspect aspect) = 0;

 private:
  bool bold_ = false;
  int fontSize_ = 0;
  FontFace face_ = FontFace::Normal;
  std::string toolTip_;
  std::string spokenName_;
  std::string tag_;
  std::optional<Color> backColor_;
};

}  // namespace lantos::ui
