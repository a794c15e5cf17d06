#pragma once

#include "contents/ListedLine.h"
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
  // One that is to take the place of the line that has its number.
  struct Replaced {
    std::int32_t number;
    ListedLine line;
  };
  // Under a new number, or in place of another.
  void EditAndStore(const std::string& caption, const ExtraLine& line, Replaced* replaced = nullptr);
  std::int32_t Store(const ExtraLine& line, Replaced* replaced = nullptr);
  // Asks where the line that is to be replaced is another by then; nothing when that one is kept.
  std::optional<std::int32_t> StoreInPlace(const ExtraLine& line, Replaced& replaced);
  std::optional<LineValues> ValuesStored(std::int32_t number);
  std::string NameOf(const ExtraLine& line) const;

  Workbench& bench_;
  const ExtrasTable& table_;
  NumberedList<ExtraLine> lines_;
};

// The sublets of the estimate on show; there must be one.
void EstimateSublets(Workbench& bench);
// The waste charges of the estimate on show; there must be one.
void EstimateWaste(Workbench& bench);

}  // namespace lantos
