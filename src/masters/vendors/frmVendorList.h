#pragma once

#include <cstddef>
#include <optional>

#include "masters/vendors/frmVendorEdit.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// The vendors by name, in the order of their file. To maintain, they can be added, edited and deleted; to view, only
// looked at.
class frmVendorList : public SizedForm {
 public:
  enum class Purpose { Maintain, View };
  frmVendorList(Shop& shop, Purpose purpose);

  ui::ListBox VendorList{*this, "VendorList"};
  ui::Button cmdSelect{*this, "cmdSelect", "&Select"};
  ui::Button cmdEdit{*this, "cmdEdit", "&Edit"};
  ui::Button cmdNew{*this, "cmdNew", "&New"};
  ui::Button cmdDelete{*this, "cmdDelete", "&Delete"};
  ui::Button cmdCancel{*this, "cmdCancel", "Close"};

 private:
  void WireButtons();
  void OnLoad() override;
  void OnKeyDown(ui::KeyPress& key) override;
  void Accept() override { Open(frmVendorEdit::Purpose::View); }
  // Brings the rows in line with the vendors in memory; a row that is right stays untouched, and stays selected.
  void ShowRows();
  // The selected vendor, as CurrentVendor. None when there is none, or none any more, which has been told.
  std::optional<std::size_t> TakeChosen();
  void Open(frmVendorEdit::Purpose purpose);
  void New();
  void Delete();

  Shop& shop_;
};

}  // namespace lantos
