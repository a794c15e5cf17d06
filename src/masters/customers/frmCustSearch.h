#pragma once

#include <string>
#include <vector>

#include "masters/customers/CustomerSearch.h"
#include "records/MakesModels.h"
#include "shop/Shop.h"
#include "ui/Form.h"

namespace lantos {

// Finds a customer by any one of six keys. It is left with a request, which whoever shows it carries out; shown
// again, it stands as it was left.
class frmCustSearch : public ui::Form {
 public:
  enum class Request { None, Selected, New };

  explicit frmCustSearch(Shop& shop);

  // What it was left with. Selected: the customer is in the working record.
  Request Result() const { return request_; }
  // The result lines anew, as names may have been edited.
  void ShowHits();

  ui::TextBox NameKey{*this, "NameKey"};
  ui::TextBox Number{*this, "Number"};
  ui::Label lblLicense{*this, "lblLicense"};
  ui::TextBox License{*this, "License"};
  ui::TextBox VIN{*this, "VIN"};
  ui::TextBox Phone{*this, "Phone"};
  ui::TextBox Year{*this, "Year"};
  ui::TextBox Make{*this, "Make"};
  ui::TextBox Model{*this, "Model"};
  ui::Button cmdSearch{*this, "cmdSearch", "&Search"};
  ui::Button cmdClear{*this, "cmdClear", "C&lear"};
  ui::ListBox CustList{*this, "CustList"};
  ui::Label Msg{*this, "Msg"};
  ui::Button cmdSelect{*this, "cmdSelect", "S&elect"};
  ui::Button cmdNew{*this, "cmdNew", "&New"};
  ui::Button cmdCancel{*this, "cmdCancel", "Close"};

 protected:
  void OnLoad() override;
  void OnKeyDown(ui::KeyPress& key) override;
  void OnQueryClose(bool& refuse) override;
  void OnUnload(bool& refuse) override;
  void OnResize() override;

 private:
  void WireButtons();
  void Search();
  void Clear();
  void Select();
  void LeaveWith(Request request);

  Shop& shop_;
  std::vector<std::size_t> hits_;  // places in the tag array
  Request request_ = Request::None;
};

}  // namespace lantos
