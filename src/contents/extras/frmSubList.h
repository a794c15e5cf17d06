#pragma once

#include <vector>

#include "contents/Workbench.h"
#include "records/PurchaseOrders.h"
#include "screens/OkCancelForm.h"

namespace lantos {

// The sublets of the shop's purchase orders, to pick one from.
class frmSubList : public OkCancelForm {
 public:
  explicit frmSubList(Workbench& bench);

  ui::ListBox POSubletList{*this, "POSubletList"};
  ui::Button cmdSelect{*this, "cmdSelect", "&Select"};
  ui::Button cmdCancel{*this, "cmdCancel", "&Cancel"};

  bool Chosen() const { return chosen_; }
  ExtraLine CurrentExtra;  // the one chosen

 private:
  void OnLoad() override;
  void Accept() override;

  Workbench& bench_;
  std::vector<OrderedSublet> sublets_;  // behind the rows from the second on
  bool chosen_ = false;
};

}  // namespace lantos
