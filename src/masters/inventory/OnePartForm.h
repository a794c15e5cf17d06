#pragma once

#include <string>

#include "records/inventory/Inventory.h"
#include "records/inventory/PartUpdate.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// A question about one part of the list, whose number and description stand on it.
class OnePartForm : public OkCancelForm {
 public:
  ui::Label lblPart{*this, "lblPart"};
  ui::Label lblDesc{*this, "lblDesc"};

 protected:
  static constexpr const char* kOnlyOneInstance =
      "Make sure only one instance of Korvel is running, otherwise, Inventory will not be accurate.";

  // kNoPart leaves both blank.
  OnePartForm(Shop& shop, std::string name, std::string caption, Inventory::PartIndex index);
  // Leaves the form, unless the part could not be read. That another copy was there first is told.
  void LeaveWith(PartUpdated done);

  Shop& shop_;
  Inventory::PartIndex index_;
};

}  // namespace lantos
