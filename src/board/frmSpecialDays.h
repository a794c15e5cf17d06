#pragma once

#include "estimatedb/de.h"
#include "screens/NumberFields.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// The days whose hours differ from the standard ones: a list with its three editors.
class frmSpecialDays : public SizedForm {
 public:
  frmSpecialDays(Shop& shop, de& database);

  ui::Label lblDate{*this, "lblDate", "D&ate"};
  ui::DTPicker DTPicker1{*this, "DTPicker1"};
  ui::Label lblHours{*this, "lblHours", "&Hours"};
  ui::TextBox txtHours{*this, "txtHours"};
  ui::Label lblComments{*this, "lblComments", "Descri&ption"};
  ui::TextBox txtComments{*this, "txtComments"};
  ui::ListBox List1{*this, "List1"};
  ui::CheckBox Check1{*this, "Check1", "Show h&istory"};
  ui::Button cmdSave{*this, "cmdSave", "&Save"};
  ui::Button cmdDelete{*this, "cmdDelete", "&Delete"};
  ui::Button cmdCancel{*this, "cmdCancel", "&Close"};

 private:
  void OnLoad() override;
  void OnKeyDown(ui::KeyPress& key) override;
  void Accept() override;
  void Delete();
  void LoadList();
  void EditLine();
  void DateLeft();
  void AddLine(DaySerial date, const std::string& line);
  void RemoveLine(DaySerial date);
  void TellHoursMustBeNumeric();

  Shop& shop_;
  de& database_;
  NumberFields numbers_{*this};
  bool datePicked_ = false;  // by the person, and not yet looked up
};

}  // namespace lantos
