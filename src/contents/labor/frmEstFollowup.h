#pragma once

#include <vector>

#include "contents/labor/LaborLines.h"
#include "records/Followups.h"
#include "screens/OkCancelForm.h"

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
  void TakeUp(std::size_t row, Followups::Using& file);

  Workbench& bench_;
  LaborLines& labor_;
  std::vector<Followup> followups_;  // behind the rows
};

// Recommendations of earlier work orders for this customer's vehicle become labor lines.
void LaborFollowup(Workbench& bench, LaborLines& labor);

}  // namespace lantos
