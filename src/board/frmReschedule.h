#pragma once

#include "board/EstimateCopy.h"
#include "estimatedb/EstimateDatabase.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// Moves the current estimate to another day: never in place, but by a copy on the new day, with the old one marked.
class frmReschedule : public OkCancelForm {
 public:
  // A proposed day before the first one that the program can have been used on is taken for none: today then.
  frmReschedule(Shop& shop, EstimateDatabase& database, DaySerial proposed);

  ui::Label lblDate{*this, "lblDate", "New &date"};
  ui::DTPicker DTPicker1{*this, "DTPicker1"};
  ui::Label lblHint{*this, "lblHint", "(Click the down arrow to select date via the calendar.)"};
  ui::Button cmdOK{*this, "cmdOK", "Save <F10>"};
  ui::Button cmdCancel{*this, "cmdCancel", "Cancel <Esc>"};

  bool ok = false;
  DaySerial newDate = 0;
  // A copy stands in the database, whole or not, whatever became of the rest.
  bool HasCopied() const { return copy_.Number() != 0; }

 private:
  void OnActivate() override { DTPicker1.SetFocus(); }
  void Accept() override;
  void Mark(DaySerial date);
  void MarkStatus();

  Shop& shop_;
  EstimateDatabase& database_;
  EstimateCopy copy_;
};

}  // namespace lantos
