#pragma once

#include <functional>

#include "records/Customers.h"
#include "records/Vehicles.h"
#include "screens/EditForm.h"

namespace lantos {

// Changes or creates one customer: the one in the working record.
class frmCustEdit : public EditForm {
 public:
  explicit frmCustEdit(Shop& shop);

  // Before it is shown. A new customer isn't on file until it is saved.
  enum class Customer { Known, New };
  void Begin(Customer customer);
  // Opens the vehicle list of the working record's customer.
  std::function<void()> OpenVehicles;
  // The number of the new customer who was saved.
  std::int32_t Added() const { return added_; }

  ui::TextBox CustomerNumber{*this, "CustomerNumber"};
  ui::TextBox Date{*this, "Date"};
  ui::TextBox Lastname{*this, "Lastname"};
  ui::TextBox Firstname{*this, "Firstname"};
  ui::TextBox Spouse{*this, "Spouse"};
  ui::TextBox SpouseLastname{*this, "SpouseLastname"};
  ui::TextBox Address{*this, "Address"};
  ui::TextBox City{*this, "City"};
  ui::TextBox State{*this, "State"};
  ui::TextBox Zip{*this, "Zip"};
  ui::TextBox Home{*this, "Home"};
  ui::TextBox Work{*this, "Work"};
  ui::TextBox Ext{*this, "Ext"};
  ui::TextBox Other{*this, "Other"};
  ui::TextBox TaxID{*this, "TaxID"};
  ui::ComboBox PricingLevel{*this, "PricingLevel"};
  ui::ComboBox EmpList{*this, "EmpList"};
  ui::CheckBox Check1{*this, "Check1", "Active Employees Only"};
  ui::TextBox Comment{*this, "Comment"};
  ui::Button cmdSave{*this, "cmdSave", "&Save"};
  ui::Button cmdReset{*this, "cmdReset", "&Reset"};
  ui::Button cmdPrev{*this, "cmdPrev", "&Prev"};
  ui::Button cmdNext{*this, "cmdNext", "&Next"};
  ui::Button cmdVehicles{*this, "cmdVehicles", "&Vehicles"};
  ui::Button cmdCancel{*this, "cmdCancel", "Close"};

 protected:
  void OnLoad() override;
  void OnActivate() override { Lastname.SetFocus(); }  // what is above it is seldom touched
  void Save() override;
  void ShowFields() override;
  void OtherKey(ui::KeyPress& key) override;

 private:
  void BindFields();
  void WireButtons();
  void FillEmployees();
  void ShowSalesperson(const std::string& name);
  void StoreFields(CustomerRecord& record) const;
  bool Write();
  bool WriteFields();
  enum class Direction { Back, Forward };
  void Step(Direction direction);
  void TellOfLostTag();

  bool isNew_ = false;
  std::int32_t added_ = 0;
  CustomerRecord shown_;
  int shownLevel_ = -1;
  std::string shownSalesperson_;
};

}  // namespace lantos
