#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ui/Controls.h"
#include "ui/Desktop.h"
#include "ui/Menu.h"

namespace lantos::ui {

enum class WindowState { Normal = 0, Minimized = 1, Maximized = 2 };

// What shows a form, if anything does.
class FormPeer {
 public:
  virtual ~FormPeer() = default;
  virtual void CaptionChanged() = 0;
  virtual void FocusChanged() = 0;
  virtual void PlaceChanged() = 0;  // size, position, state
  virtual void LookChanged() = 0;
};

// A screen. It is loaded on its first use, shown modally until it hides itself, read through its members, and
// unloaded by whoever made it (at the latest by its destructor).
class Form {
 public:
  Form(Desktop& desktop, std::string name, std::string caption);
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  Desktop& GetDesktop() const { return desktop_; }
  const std::string& Name() const { return name_; }
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);
  std::optional<Color> BackColor() const { return backColor_; }
  void SetBackColor(std::optional<Color> color);

  // In twips. The designed size is set by the form's constructor.
  Twips LeftEdge() const { return left_; }
  Twips TopEdge() const { return top_; }
  Twips Width() const { return width_; }
  Twips Height() const { return height_; }
  WindowState State() const { return state_; }
  void SetSize(Twips width, Twips height);
  void SetPosition(Twips left, Twips top);
  void SetState(WindowState state);
  bool Resizable() const { return resizable_; }
  // Loaded for the whole run and seldom shown: no window is made for it before it is.
  bool IsResident() const { return resident_; }

  const std::vector<Control*>& Controls() const { return controls_; }
  Control* Find(std::string_view fullName) const;  // null when there is none
  // The menu bar, and the menus that only pop up (their own entries invisible on the bar).
  MenuItem& AddMenu(std::string name, std::string caption);
  const std::vector<std::unique_ptr<MenuItem>>& Menus() const { return menus_; }
  MenuItem* FindMenu(const std::string& fullName) const;

  bool IsLoaded() const { return loaded_; }
  bool Visible() const { return visible_; }
  void LoadForm();   // runs OnLoad once
  void ShowModal();  // loads, shows, returns when it is hidden or unloaded
  void Show();       // without waiting
  void Hide();
  bool Unload();  // false when OnUnload refused

  Control* Focus() const { return focus_; }
  void SetFocus(Control& control);  // from code: lost focus and got focus fire, validation doesn't
  // The person moves on: the control that is left validates; false when it kept the focus.
  bool MoveFocus(Control* to);
  Control* NextInTabOrder(bool backwards = false) const;

  Button* DefaultButton() const { return defaultButton_; }
  Button* CancelButton() const { return cancelButton_; }

  // A key of the person. PreviewKey runs the form's key-down and the focused control's; what they leave uncleared is
  // the platform's. PressKey does the platform's part too: mnemonics, default and cancel button, tab, lists.
  void PreviewKey(KeyPress& key);
  void PressKey(KeyPress key);
  void DoClose();                      // the window's close box
  void DoMouseUp(MouseButton button);  // on the bare form
  void DoResize(Twips width, Twips height, WindowState state);
  void DoMove(Twips left, Twips top) {
    left_ = left;
    top_ = top;
  }

  // Runs an event procedure: an error ends it, is shown and logged, and the program goes on.
  void Run(const std::function<void()>& event);

  void SetPeer(FormPeer* peer) { peer_ = peer; }
  FormPeer* Peer() const { return peer_; }

 protected:
  virtual void OnLoad() {}
  virtual void OnActivate() {}  // shown, the focus in place
  virtual void OnKeyDown(KeyPress&) {}
  // By the close box: what the form's Cancel does. Unless it hides or refuses, the form unloads.
  virtual void OnQueryClose(bool& /*refuse*/) {}
  virtual void OnUnload(bool& /*refuse*/) {}
  virtual void OnResize() {}
  virtual void OnMouseUp(MouseButton) {}

  void SetDefaultButton(Button& button) { defaultButton_ = &button; }
  void SetCancelButton(Button& button) { cancelButton_ = &button; }
  void SetResizable(bool resizable) { resizable_ = resizable; }
  void SetResident(bool resident) { resident_ = resident; }

 private:
  friend class Control;
  void Register(Control& control);
  void Forget(Control& control);
  void TakeFirstFocus();
  void LeaveUnusableFocus();  // the focused control was hidden or disabled: the next one gets the focus
  bool PressMnemonic(char letter);
  void PlatformKey(const KeyPress& key);

  Desktop& desktop_;
  std::string name_;
  std::string caption_;
  std::optional<Color> backColor_;
  Twips left_ = 0;
  Twips top_ = 0;
  Twips width_ = 9600;
  Twips height_ = 7200;
  WindowState state_ = WindowState::Normal;
  bool resizable_ = false;
  bool resident_ = false;
  bool loaded_ = false;
  bool visible_ = false;
  std::vector<Control*> controls_;
  std::vector<std::unique_ptr<MenuItem>> menus_;
  Control* focus_ = nullptr;
  Button* defaultButton_ = nullptr;
  Button* cancelButton_ = nullptr;
  FormPeer* peer_ = nullptr;
};

}  // namespace lantos::ui
