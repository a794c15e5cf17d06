#pragma once

#include <exception>
#include <optional>
#include <string>
#include <vector>

#include "estimatedb/de.h"
#include "payroll/PayRows.h"
#include "records/Payroll.h"
#include "records/modEmployees.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// The pay records of one employee, the newest first, to be looked at, printed as stubs and deleted. A record that is to
// be deleted is only marked until it is saved.
class frmEmpPRHist : public SizedForm {
 public:
  frmEmpPRHist(Shop& shop, de2& korvel, std::int32_t employee);

  ui::Label lblEmployee{*this, "lblEmployee"};
  ui::ListView ListView1{*this, "ListView1"};
  ui::Label MsgLabel{*this, "MsgLabel"};
  ui::CheckBox chkIncludeSSN{*this, "chkIncludeSSN", "&Inc. SSN"};
  ui::Button cmdPrint{*this, "cmdPrint", "&Print Pay Stub"};
  ui::Button cmdDelete{*this, "cmdDelete", "&Delete"};
  ui::Button cmdSave{*this, "cmdSave", "&Save"};
  ui::Button cmdCancel{*this, "cmdCancel", "Close"};

 private:
  void OnLoad() override;
  void OnActivate() override { ListView1.SetFocus(); }
  void OnKeyDown(ui::KeyPress& key) override;
  void Accept() override;

  void Load();
  void LoadRows(const PayChain& chain);
  void LoadNumberChoice();
  std::optional<AdditionalByDate> LoadAdditional();
  std::exception_ptr DeleteAdditional();
  void ShowRows(int current);
  void ShowMessage();
  std::string MarkedDates() const;
  std::optional<std::size_t> CurrentRow() const;
  void ToggleMark();
  void FollowMarks();
  void Print();
  void PrintRow(const PayRow& row, const PayRecord& pay);
  void Press(ui::Button& button);

  Shop& shop_;
  de2& korvel_;
  std::int32_t number_;
  EmployeeRecord employee_;
  std::vector<PayEntry> entries_;
  std::vector<PayRow> rows_;                 // of the entries
  std::string missing_;                      // what withholding had no table for, and what couldn't be read
  std::vector<std::string> additionalToGo_;  // dates of records that are gone
};

}  // namespace lantos
