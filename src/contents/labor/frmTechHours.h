#pragma once

#include <optional>
#include <vector>

#include "contents/labor/TechnicianHours.h"
#include "records/modEmployees.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// How many hours of labor each technician has on a day. To look, or to pick one of them for a line of labor.
class frmTechHours : public SizedForm {
 public:
  enum class Purpose { Look, Pick };
  // day is the one that it opens on.
  frmTechHours(Shop& shop, de& database, Purpose purpose, DaySerial day);
  ~frmTechHours() override { Unload(); }

  ui::Label lblDTPicker1{*this, "lblDTPicker1", "&Date"};
  ui::DTPicker DTPicker1{*this, "DTPicker1"};
  ui::Button cmdPrev{*this, "cmdPrev", "< Prev <"};
  ui::Button cmdNext{*this, "cmdNext", "> Next >"};
  ui::Label lblDate{*this, "lblDate"};
  ui::ListBox List1{*this, "List1"};
  ui::CheckBox Check1{*this, "Check1", "Show Scheduled Employees Only"};
  ui::Button cmdSelect{*this, "cmdSelect", "&Select"};
  ui::Button cmdCancel{*this, "cmdCancel", "Cancel"};

  // The number of the employee that was selected, 0 for "Unassigned"; nothing when the person left without one.
  const std::optional<std::int32_t>& Picked() const { return picked_; }

 private:
  void OnLoad() override;
  void OnActivate() override { List1.SetFocus(); }
  void OnUnload(bool& refuse) override;
  void OnKeyDown(ui::KeyPress& key) override;
  void Accept() override;

  void ReadEmployees();
  void Move(DaySerial days);
  // Anew for the day in DTPicker1; who is selected stays so.
  void FillList();
  void AddLine(std::int32_t number, std::int64_t hours, std::string_view name);
  std::string NameOf(std::int32_t number) const;

  Shop& shop_;
  de& database_;
  std::optional<TechnicianHours> hours_;
  std::vector<EmployeeName> employees_;
  std::optional<std::int32_t> picked_;
};

}  // namespace lantos
