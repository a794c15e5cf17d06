#pragma once

#include <optional>

#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// Asks for the name of a new vendor and puts it on file. A name that is there already, in any case, isn't added again.
class frmVendorAdd : public OkCancelForm {
 public:
  explicit frmVendorAdd(Shop& shop);

  // The new vendor's index; none when nothing was added.
  std::optional<std::size_t> Added() const { return added_; }

  ui::TextBox VendorName{*this, "VendorName"};
  ui::Label Msg{*this, "Msg"};
  ui::Button cmdOK{*this, "cmdOK", "&OK"};
  ui::Button cmdCancel{*this, "cmdCancel", "&Cancel"};

 private:
  void Accept() override;
  void Refuse(const std::string& message);

  Shop& shop_;
  std::optional<std::size_t> added_;
};

}  // namespace lantos
