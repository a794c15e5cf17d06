#pragma once

#include "contents/NumberedList.h"
#include "contents/extras/ExtrasTable.h"
#include "screens/OkCancelForm.h"

namespace lantos {

// The sublets or the waste charges of the estimate on show: the list of them, and their adding, changing and removing.
// Every change is in the database at once.
class frmEstExtras : public SizedForm {
 public:
  frmEstExtras(Workbench& bench, const ExtrasTable& table);

  ui::Label lblEstimateNumber{*this, "lblEstimateNumber"};
  ui::Label lblCustName{*this, "lblCustName"};
  ui::ListBox listLines;  // named by the table
  ui::Button cmdAdd{*this, "cmdAdd", "&Add"};
  ui::Button cmdChange{*this, "cmdChange", "&Change"};
  ui::Button cmdRemove{*this, "cmdRemove", "&Remove"};
  ui::Button cmdClose{*this, "cmdClose", "C&lose"};

 private:
  void OnLoad() override;
  void OnKeyDown(ui::KeyPress& key) override;
  void Accept() override { Hide(); }

  void WireCommands();
  void ShowHeader();
  void LoadLines();
  void Add();
  void Change();
  void Remove();
  // Under the number, in place of the line that has it, or under a new one.
  void EditAndStore(const std::string& caption, const ExtraLine& line, std::optional<std::int32_t> number);
  std::int32_t Store(std::optional<std::int32_t> number, const ExtraLine& line);

  Workbench& bench_;
  const ExtrasTable& table_;
  NumberedList<ExtraLine> lines_;
};

// The sublets of the estimate on show; there must be one.
void EstimateSublets(Workbench& bench);
// The waste charges of the estimate on show; there must be one.
void EstimateWaste(Workbench& bench);

}  // namespace lantos
