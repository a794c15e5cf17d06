#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "ui/ControlLook.h"
#include "ui/Key.h"

namespace lantos::ui {

class Form;
class Frame;

// How far PgUp and PgDn go where nothing tells how many rows can be seen.
inline constexpr int kRowsAPage = 10;

// The pixels of a control, if it has any.
class ControlPeer {
 public:
  virtual ~ControlPeer() = default;
  virtual void Refresh(Aspect aspect) = 0;
  // Of a list or grid: the rows that can be seen at once, at least 1.
  virtual int RowsAPage() const { return kRowsAPage; }
  virtual void ScrollSideways(int /*steps*/) {}
  // Of a list: the row at its upper edge; 0 where nothing tells.
  virtual int TopRow() const { return 0; }
  // Once what has changed is shown the list is scrolled to there, whatever row is the current one.
  virtual void KeepTopRow(int /*row*/) {}
};

// A plain control: properties and events, no pixels. Constructed as a member of its form under the name that the
// program gives it; the order of construction is the tab order.
//
// Setters are for code: they fire what the platform fires for a change from code. The Do… procedures are for the
// person's hand: they do what the platform does for a click or a key, events included, and expect that the control
// is shown and enabled. Both desktops come in through them.
class Control : public ControlLook {
 public:
  Control(Form& form, std::string name, int index = -1);
  ~Control() override;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  virtual std::string_view Type() const = 0;
  const std::string& Name() const { return name_; }
  int Index() const { return index_; }  // of a member of a control array, else -1
  std::string FullName() const;         // "List1(3)"
  Form& Owner() const { return form_; }

  Frame* Container() const { return container_; }
  void SetContainer(Frame& frame);
  bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  bool IsShown() const;   // itself and everything around it
  bool IsUsable() const;  // shown and enabled, itself and everything around it

  virtual bool TakesFocus() const { return false; }
  bool TabStop() const { return tabStop_; }
  void SetTabStop(bool stop) { tabStop_ = stop; }
  // A control that doesn't cause validation (a Cancel button, say) can be reached past a refused Validate.
  bool CausesValidation() const { return causesValidation_; }
  void SetCausesValidation(bool causes) { causesValidation_ = causes; }
  bool HasFocus() const;
  void SetFocus();  // from code

  std::function<void()> OnClick;
  std::function<void()> OnDoubleClick;
  std::function<void()> OnGotFocus;
  std::function<void()> OnLostFocus;
  std::function<void(bool& keepFocus)> OnValidate;
  std::function<void(KeyPress&)> OnKeyDown;
  std::function<void(MouseButton)> OnMouseUp;

  // What the person does to every kind of control. They run guarded: an error ends the event alone.
  virtual void DoClick();
  virtual void DoDoubleClick();
  void DoMouseUp(MouseButton button);

  void SetPeer(ControlPeer* peer) { peer_ = peer; }
  ControlPeer* Peer() const { return peer_; }

 protected:
  void Changed(Aspect aspect) override;
  void FireClick();

 private:
  Form& form_;
  std::string name_;
  int index_;
  Frame* container_ = nullptr;
  bool visible_ = true;
  bool enabled_ = true;
  bool tabStop_ = true;
  bool causesValidation_ = true;
  ControlPeer* peer_ = nullptr;
};

}  // namespace lantos::ui
