#pragma once

#include "screens/NumberFields.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// The print options of all workstations. Shows the environment's options and changes them on Save; loading them
// before and saving them after is the caller's.
class frmPrintOptions : public SizedForm {
 public:
  explicit frmPrintOptions(Shop& shop);

  bool ok = false;

  ui::CheckBox optCustW{*this, "optCustW", "Print C&ustomer on Worksheet"};
  ui::CheckBox optCommW{*this, "optCommW", "Print Co&mments on Worksheet"};
  ui::CheckBox optNoteW{*this, "optNoteW", "Print &Notes on Worksheet"};
  ui::CheckBox optVehW{*this, "optVehW", "Print &Veh. Summary on Worksheet"};
  ui::Label lblVehSummaryYears{*this, "lblVehSummaryYears", "&Years of history to include"};
  ui::TextBox txtVehSummaryYears{*this, "txtVehSummaryYears"};
  ui::Label lblVehSummaryLaborLines{*this, "lblVehSummaryLaborLines", "&Labor lines to print (1-8)"};
  ui::TextBox txtVehSummaryLaborLines{*this, "txtVehSummaryLaborLines"};
  ui::Label lblLaborLines{*this, "lblLaborLines", "&Blank Lines per Labor on WS"};
  ui::TextBox txtLaborLines{*this, "txtLaborLines"};
  ui::Label lblPartLines{*this, "lblPartLines", "Blank &Part lines on Worksheet"};
  ui::TextBox txtPartLines{*this, "txtPartLines"};
  ui::CheckBox optDisclosure{*this, "optDisclosure", "Print &Disclosure on Estimate"};
  ui::CheckBox optPreviewWS{*this, "optPreviewWS", "Print Preview &Worksheet"};
  ui::CheckBox optPreviewEst{*this, "optPreviewEst", "Print Preview &Estimate"};
  ui::CheckBox optShowDialog{*this, "optShowDialog", "Show Prin&ter Dialog"};
  ui::CheckBox optPartOnEst{*this, "optPartOnEst", "Print Part Numbe&rs on Estimate"};
  ui::Button cmdSave{*this, "cmdSave", "&Save"};
  ui::Button cmdCancel{*this, "cmdCancel", "&Cancel"};

 private:
  struct Switch;
  struct Number;
  static const Switch kSwitches[];
  static const Number kNumbers[];

  void OnLoad() override;
  void Accept() override;
  void Cancel() override;
  // False when the text is no number of the range: told, and the focus is on it.
  bool Take(const Number& number, PrintOptions& options);

  Shop& shop_;
  NumberFields numbers_{*this};
};

}  // namespace lantos
