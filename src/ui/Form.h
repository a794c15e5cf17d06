#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ui/Desktop.h"
#include "ui/FormKeys.h"
#include "ui/Menu.h"
#include "ui/Placement.h"

namespace lantos::ui {

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
class Form : public FormKeys, public Placement, public MenuBar {
 public:
  Form(Desktop& desktop, std::string name, std::string caption);
  ~Form() override;

  Desktop& GetDesktop() const { return desktop_; }
  const std::string& Name() const { return name_; }
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);
  std::optional<Color> BackColor() const { return backColor_; }
  void SetBackColor(std::optional<Color> color);

  bool IsLoaded() const { return loaded_; }
  bool Visible() const override { return visible_; }
  void LoadForm();   // runs OnLoad once
  void ShowModal();  // loads, shows, returns when it is hidden or unloaded
  void Show();       // without waiting
  void Hide();
  bool Unload();  // false when OnUnload refused

  // What the person and the window system do to the window.
  void DoClose() override;
  void DoMouseUp(MouseButton button) override;
  void DoResize(Twips width, Twips height, WindowState state);

  void Run(const std::function<void()>& event) override;

  void SetPeer(FormPeer* peer) { peer_ = peer; }
  FormPeer* Peer() const { return peer_; }

 protected:
  virtual void OnLoad() {}
  virtual void OnActivate() {}  // shown, the focus in place
  // By the close box: what the form's Cancel does. Unless it hides or refuses, the form unloads.
  virtual void OnQueryClose(bool& /*refuse*/) {}
  virtual void OnUnload(bool& /*refuse*/) {}
  virtual void OnResize() {}
  virtual void OnMouseUp(MouseButton) {}

 private:
  void PlaceChanged() override;
  void SizeWasSet() override;
  void FocusMoved() override;
  std::string& Clipboard() override { return desktop_.clipboard; }

  Desktop& desktop_;
  std::string name_;
  std::string caption_;
  std::optional<Color> backColor_;
  bool loaded_ = false;
  bool visible_ = false;
  FormPeer* peer_ = nullptr;
};

}  // namespace lantos::ui
