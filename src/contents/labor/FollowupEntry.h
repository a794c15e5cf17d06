#pragma once

#include "contents/Workbench.h"
#include "contents/labor/FollowupCheck.h"

namespace lantos {

// The three fields of a labor line that say when the customer shall come back. They fill and empty one another as they
// are left.
class FollowupEntry {
 public:
  // All of them outlive the entry; the line's date and followup are looked at, and changed by Store alone.
  FollowupEntry(Workbench& bench, const WoLaborLine& line, ui::TextBox& miles, ui::TextBox& days, ui::TextBox& date);

  void Show();
  // A followup that has been handed out can't be changed any more.
  void DisableWhenUsed();
  // True when nobody has touched the fields, or each of them passes its check.
  bool Check();
  void Store(WoLaborLine& line) const;

 private:
  FollowupFields Read() const;
  void Put(const FollowupFields& fields);
  bool CheckOf(const ui::TextBox& field);
  DaySerial BaseDate() const;

  Workbench& bench_;
  const WoLaborLine& line_;
  ui::TextBox& miles_;
  ui::TextBox& days_;
  ui::TextBox& date_;
  FollowupFields shown_;
};

}  // namespace lantos
