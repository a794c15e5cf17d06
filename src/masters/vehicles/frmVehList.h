#pragma once

#include <functional>
#include <string>
#include <vector>

#include "masters/vehicles/VehicleTable.h"
#include "shop/Shop.h"
#include "ui/Form.h"

namespace lantos {

// The vehicles of the current customer. It is left with a request, which whoever shows it carries out; shown again,
// it stands as it was left.
class frmVehList : public ui::Form {
 public:
  enum class Request { None, New, Edit, Select };

  // Shows what was done to a vehicle, by its VIN; it is said by year, make and model. False when there is nothing to
  // show. Without this the button for it is greyed.
  using History = std::function<bool(const std::string& vin, const std::string& vehicle)>;
  explicit frmVehList(Shop& shop, History history = nullptr);

  Request Result() const { return request_; }
  FileLink Chosen() const;  // the current row's vehicle, kNoLink without one
  // A vehicle has joined the customer's chain, as its first.
  void AddRow(const VehicleRecord& record, FileLink link);
  // A vehicle of the list has changed.
  void UpdateRow(const VehicleRecord& record, FileLink link);

  ui::TextBox CustomerNumber{*this, "CustomerNumber"};
  ui::TextBox CustName{*this, "CustName"};
  ui::TextBox txtYear{*this, "txtYear"};
  ui::TextBox txtMake{*this, "txtMake"};
  ui::TextBox txtModel{*this, "txtModel"};
  ui::Label lblLicense{*this, "lblLicense"};
  ui::TextBox txtLicense{*this, "txtLicense"};
  ui::TextBox txtVIN{*this, "txtVIN"};
  ui::CheckBox chkShowDeleted{*this, "chkShowDeleted", "Show Deleted (X)"};
  ui::Grid DataGrid1{*this, "DataGrid1"};
  ui::Button cmdSelect{*this, "cmdSelect", "&Select"};
  ui::Button cmdEdit{*this, "cmdEdit", "&Edit"};
  ui::Button cmdNew{*this, "cmdNew", "&New"};
  ui::Button cmdDelete{*this, "cmdDelete", "&Delete"};
  ui::Button cmdHistory{*this, "cmdHistory", "H&istory"};
  ui::Button cmdCancel{*this, "cmdCancel", "Close"};

 protected:
  void OnLoad() override;
  void OnActivate() override;
  void OnKeyDown(ui::KeyPress& key) override;
  void OnQueryClose(bool& refuse) override;

 private:
  void WireFilters();
  void WireButtons();
  void ReadRows();
  void ShowRows();
  void SortBy(VehicleColumn column);
  void LeaveWithRow(Request request);
  void LeaveWith(Request request);
  void Delete();
  void ShowHistory();
  void Toggle(FileLink link, const std::string& title);
  VehicleRow* FindRow(FileLink link);

  Shop& shop_;
  History history_;
  bool fleet_;
  VehicleSort sort_;
  std::vector<VehicleRow> rows_;  // in the order of the chain
  Request request_ = Request::None;
};

}  // namespace lantos
