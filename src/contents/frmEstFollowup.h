#pragma once

#include <vector>

#include "admin/OkCancelForm.h"
#include "contents/LaborLines.h"

namespace lantos {

// The open recommendations of earlier work orders for the estimate's vehicle. Those ticked become labor lines, and are
// used up whatever becomes of the estimate.
class frmEstFollowup : public OkCancelForm {
 public:
  frmEstFollowup(Workbench& bench, LaborLines& labor);

  ui::ListBox List1{*this, "List1"};
  ui::Button cmdSave{*this, "cmdSave", "&Save"};
  ui::Button cmdCancel{*this, "cmdCancel", "&Cancel"};

 private:
  void OnLoad() override;
  void Accept() override;
  void TakeUp(Followup& followup, Followups::Using& file);

  Workbench& bench_;
  LaborLines& labor_;
  std::vector<Followup> followups_;  // behind the rows
};

}  // namespace lantos
