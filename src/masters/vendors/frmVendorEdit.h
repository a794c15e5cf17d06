#pragma once

#include <cstddef>
#include <vector>

#include "records/Vendors.h"
#include "screens/EditForm.h"

namespace lantos {

// Edits one vendor, or only shows it, and goes on to its neighbours in a list. Saving writes the file.
class frmVendorEdit : public EditForm {
 public:
  enum class Purpose { Edit, View };
  // The list as indexes of vendors in its order, and the place in it to begin with, whose vendor is CurrentVendor.
  frmVendorEdit(Shop& shop, Purpose purpose, std::vector<std::size_t> list, std::size_t place);

  // The vendor on show.
  std::size_t Index() const { return list_[place_]; }

  ui::TextBox VendorName{*this, "VendorName"};
  ui::TextBox Contact{*this, "Contact"};
  ui::TextBox Address{*this, "Address"};
  ui::TextBox City{*this, "City"};
  ui::TextBox State{*this, "State"};
  ui::TextBox Zip{*this, "Zip"};
  ui::TextBox Phone1{*this, "Phone1"};
  ui::TextBox Phone1Ext{*this, "Phone1Ext"};
  ui::TextBox Phone2{*this, "Phone2"};
  ui::TextBox Phone3{*this, "Phone3"};
  ui::TextBox TaxIdNumber{*this, "TaxIdNumber"};
  ui::Button cmdSave{*this, "cmdSave", "&Save"};
  ui::Button cmdReset{*this, "cmdReset", "&Reset"};
  ui::Button cmdPrev{*this, "cmdPrev", "&Prev"};
  ui::Button cmdNext{*this, "cmdNext", "&Next"};
  ui::Button cmdCancel{*this, "cmdCancel", "Close"};

 protected:
  void OnLoad() override { Reset(); }
  void Save() override;
  void ShowFields() override;
  void OtherKey(ui::KeyPress& key) override;

 private:
  void BindFields();
  void WireButtons();
  void OnlyShow();
  enum class Direction { Back, Forward };
  std::size_t EndOfListAt(Direction direction) const;
  void Step(Direction direction);
  bool GoTo(Direction direction);

  Vendors& vendors_;
  VendorRecord shown_;
  std::vector<std::size_t> list_;
  std::size_t place_;
};

}  // namespace lantos
