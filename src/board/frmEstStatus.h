#pragma once

#include "board/StatusChange.h"
#include "screens/OkCancelForm.h"

namespace lantos {

// All ten statuses for the current estimate, in any order: the free way to change one. It stays open until the status
// has been changed or the person leaves.
class frmEstStatus : public SizedForm {
 public:
  frmEstStatus(Shop& shop, EstimateDatabase& database, ContinueEstimate continueEstimate);

  ui::ControlArray<ui::OptionButton, kStatusCount> Option1{*this, "Option1"};
  ui::Label lblFootnote{*this, "lblFootnote", std::string(kStatusFootnote)};
  ui::Button cmdOK{*this, "cmdOK", "&OK"};
  ui::Button cmdCancel{*this, "cmdCancel", "&Cancel"};

 private:
  void OnLoad() override;
  void Accept() override;

  Shop& shop_;
  EstimateDatabase& database_;
  ContinueEstimate continueEstimate_;
};

}  // namespace lantos
