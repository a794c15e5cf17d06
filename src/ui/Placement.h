#pragma once

#include "ui/Look.h"

namespace lantos::ui {

enum class WindowState { Normal = 0, Minimized = 1, Maximized = 2 };

// Where a form's window lies and how large it is, in twips. The designed size is set by the form's constructor.
class Placement {
 public:
  virtual ~Placement() = default;

  Twips LeftEdge() const { return left_; }
  Twips TopEdge() const { return top_; }
  Twips Width() const { return width_; }
  Twips Height() const { return height_; }
  WindowState State() const { return state_; }
  void SetSize(Twips width, Twips height);
  void SetPosition(Twips left, Twips top);
  bool HasPosition() const { return hasPosition_; }  // one was set; else the desktop finds a place
  void SetState(WindowState state);
  bool Resizable() const { return resizable_; }
  // Loaded for the whole run and seldom shown: no window is made for it before it is.
  bool IsResident() const { return resident_; }

  // What the person has made of it.
  void DoMove(Twips left, Twips top) {
    hasPosition_ = true;
    left_ = left;
    top_ = top;
  }

 protected:
  void SetResizable(bool resizable) { resizable_ = resizable; }
  void SetResident(bool resident) { resident_ = resident; }
  // As the window system has it. False when it was so already.
  bool TakeSize(Twips width, Twips height, WindowState state);
  virtual void PlaceChanged() = 0;
  // Size or state were set from code, which fires the same event as the person's hand.
  virtual void SizeWasSet() = 0;

 private:
  bool hasPosition_ = false;
  Twips left_ = 0;
  Twips top_ = 0;
  Twips width_ = 9600;
  Twips height_ = 7200;
  WindowState state_ = WindowState::Normal;
  bool resizable_ = false;
  bool resident_ = false;
};

}  // namespace lantos::ui
