#pragma once

#include <vector>

#include "records/CheckList.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// The inspection points: categories on the left, the items of one of them on the right, each with a box to tick. Works
// on the table in memory; Cancel puts it back.
class frmWOChklst : public SizedForm {
 public:
  explicit frmWOChklst(Shop& shop);

  ui::Frame frameCategories{*this, "frameCategories", "Categories"};
  ui::ListBox List1{*this, "List1"};
  ui::Button cmdSelect1{*this, "cmdSelect1", "Select &All"};
  ui::Button cmdClear1{*this, "cmdClear1", "&Clear All"};
  ui::Frame frameItems{*this, "frameItems", "Items"};
  ui::ListBox List2{*this, "List2"};
  ui::Button cmdSelect2{*this, "cmdSelect2", "Select A&ll"};
  ui::Button cmdClear2{*this, "cmdClear2", "Clea&r All"};
  ui::Label lblService{*this, "lblService", "&Service"};
  ui::TextBox Service{*this, "Service"};
  ui::Label lblDueBackMiles{*this, "lblDueBackMiles", "&Due back at (miles)"};
  ui::TextBox DueBackMiles{*this, "DueBackMiles"};
  ui::Button cmdSave{*this, "cmdSave", "Save <F10>"};
  ui::Button cmdCancel{*this, "cmdCancel", "Discard Changes <Esc>"};

 private:
  void OnLoad() override;
  void Accept() override;
  void Cancel() override;

  void CategoryChosen(int row);
  void TickCategory(int row, bool ticked);
  void TickItem(int row, bool ticked);
  enum class Boxes { Ticked, Cleared };
  void SetAll(ui::ListBox& list, Boxes boxes);
  void ShowFirstCategory();
  void ListItems(std::size_t category);
  void FillItems(std::size_t category);
  void ShowValues();
  std::size_t EndOfCategory(std::size_t category) const;
  ChecklistItem& Item(const ui::ListBox& list, int row);

  CheckListTable& table_;
  std::vector<ChecklistItem> before_;  // for Cancel
  bool loadedBefore_ = false;
  bool showing_ = false;  // values being put into the two fields
};

}  // namespace lantos
