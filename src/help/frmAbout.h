#pragma once

#include "estimatedb/EstimateDatabase.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// What this copy is and what it works on, to be read and to be copied into a report.
class frmAbout : public SizedForm {
 public:
  frmAbout(Shop& shop, EstimateDatabase& database);

  ui::Label lblTitle{*this, "lblTitle", "Lantos"};
  ui::Label lblPurpose{*this, "lblPurpose", "Appointment Scheduler"};
  ui::TextBox txtAbout{*this, "txtAbout"};
  ui::Button cmdCopy{*this, "cmdCopy", "&Copy for a Report"};
  ui::Label lblCopied{*this, "lblCopied"};
  ui::Button cmdClose{*this, "cmdClose", "Close"};

 private:
  void OnLoad() override;
  void OnKeyDown(ui::KeyPress& key) override;
  void Accept() override { Hide(); }
  void Copy();

  Shop& shop_;
  EstimateDatabase& database_;
};

}  // namespace lantos
