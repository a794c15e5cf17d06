#pragma once

#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// Edits the text at the foot of the estimates. The shop's disclaimer for work orders is where it begins, as long as
// there is none of its own.
class frmDisclaimer : public SizedForm {
 public:
  explicit frmDisclaimer(Shop& shop);

  ui::TextBox txtDisclaimer{*this, "txtDisclaimer"};
  ui::Label lblNote{*this, "lblNote",
                    "Note: the system will attempt to print the estimate disclaimer exactly as shown above."};
  ui::Button cmdSave{*this, "cmdSave", "Save <F10>"};
  ui::Button cmdReset{*this, "cmdReset", "Reset <F2>"};
  ui::Button cmdCancel{*this, "cmdCancel", "Close"};

 private:
  void OnLoad() override;
  void OnActivate() override { txtDisclaimer.SetFocus(); }
  void OnKeyDown(ui::KeyPress& key) override;
  void Accept() override;
  void ReadText();

  Shop& shop_;
};

}  // namespace lantos
