#pragma once

#include <string>

#include "records/inventory/NameList.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// Adds a name to a list: a department, or a manufacturer.
class frmDept : public OkCancelForm {
 public:
  // label says what the name is of.
  frmDept(Shop& shop, NameList& names, const std::string& caption = "Add Department",
          const std::string& label = "Department");

  ui::Label lblDeptName{*this, "lblDeptName"};
  ui::TextBox DeptName{*this, "DeptName"};
  ui::Button cmdSave{*this, "cmdSave", "&Save"};
  ui::Button cmdCancel{*this, "cmdCancel", "Close"};

  // The place of the name in the list, -1 when the person left without one.
  int Index() const { return index_; }

 private:
  void OnActivate() override { DeptName.SetFocus(); }
  void Accept() override;

  NameList& names_;
  int index_ = -1;
};

}  // namespace lantos
