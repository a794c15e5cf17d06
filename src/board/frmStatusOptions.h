#pragma once

#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// What happens to an estimate's status at eight events. Shows the environment's options and changes them on Save;
// loading them before and saving them after is the caller's.
class frmStatusOptions : public SizedForm {
 public:
  explicit frmStatusOptions(Shop& shop);

  bool ok = false;

  // A frame an event; in each, Yes, No and Ask, and where the event can be refused, Error.
  ui::ControlArray<ui::Frame, kStatusOptionCount> frameOption{*this, "frameOption"};
  ui::ControlArray<ui::OptionButton, 3> Option1{*this, "Option1"};
  ui::ControlArray<ui::OptionButton, 4> Option2{*this, "Option2"};
  ui::ControlArray<ui::OptionButton, 3> Option3{*this, "Option3"};
  ui::ControlArray<ui::OptionButton, 4> Option4{*this, "Option4"};
  ui::ControlArray<ui::OptionButton, 4> Option5{*this, "Option5"};
  ui::ControlArray<ui::OptionButton, 3> Option6{*this, "Option6"};
  ui::ControlArray<ui::OptionButton, 3> Option7{*this, "Option7"};
  ui::ControlArray<ui::OptionButton, 3> Option8{*this, "Option8"};
  ui::Button cmdSave{*this, "cmdSave", "&Save"};
  ui::Button cmdCancel{*this, "cmdCancel", "&Cancel"};

 private:
  void OnLoad() override;
  void Accept() override;
  void Cancel() override;
  // visit(place of the group, its options), in the order of the stored options.
  template <class Visit>
  void ForEachGroup(Visit visit);

  Shop& shop_;
};

}  // namespace lantos
