#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "masters/inventory/NameChoice.h"
#include "masters/inventory/PartRows.h"
#include "screens/EditForm.h"
#include "screens/NumberBoxes.h"

namespace lantos {

// Edits one part: the one in the working records of the inventory. Its number is another screen's to change.
class frmInvEdit : public EditForm {
 public:
  // part is where the working records come from. The rows outlive the screen.
  frmInvEdit(Shop& shop, PartRows& rows, PartAt part);

  ui::TextBox StockNumber{*this, "StockNumber"};
  ui::TextBox Description{*this, "Description"};
  ui::ComboBox ComboD{*this, "ComboD"};
  ui::ComboBox ComboM{*this, "ComboM"};
  ui::ControlArray<ui::TextBox, 4> AltNumber{*this, "AltNumber"};
  ui::ControlArray<ui::Button, 4> cmdGoToAlt{*this, "cmdGoToAlt"};
  ui::ControlArray<ui::TextBox, 4> Pricing{*this, "Pricing"};
  ui::ControlArray<ui::TextBox, 4> MarkupPercent{*this, "MarkupPercent"};
  ui::Button cmdRecalc{*this, "cmdRecalc", "Reca&lc $ from %"};
  ui::CheckBox IsStocked{*this, "IsStocked", "S&tocked"};
  ui::CheckBox HasACore{*this, "HasACore", "&Has a core"};
  ui::TextBox CoreCost{*this, "CoreCost"};
  ui::CheckBox HasWaste{*this, "HasWaste", "Has &waste"};
  ui::TextBox DisposalFee{*this, "DisposalFee"};
  ui::TextBox Location{*this, "Location"};
  ui::TextBox Comment{*this, "Comment"};
  ui::TextBox ReorderLevel{*this, "ReorderLevel"};
  ui::TextBox QtyInStock{*this, "QtyInStock"};
  ui::TextBox IdealLevel{*this, "IdealLevel"};
  ui::Button cmdEditKit{*this, "cmdEditKit", "Edit &kit"};
  ui::Button cmdUsage{*this, "cmdUsage", "&Usage"};
  ui::Button cmdRecv{*this, "cmdRecv", "&Receiving"};
  ui::Button cmdSave{*this, "cmdSave", "&Save"};
  ui::Button cmdReset{*this, "cmdReset", "Reset"};
  ui::Button cmdPrev{*this, "cmdPrev", "&Prev"};
  ui::Button cmdNext{*this, "cmdNext", "Ne&xt"};
  ui::Button cmdCancel{*this, "cmdCancel", "Close"};

 protected:
  void OnLoad() override;
  void OnActivate() override { Description.SetFocus(); }
  void Save() override;
  void ShowFields() override;
  void OtherKey(ui::KeyPress& key) override;

 private:
  void BindTexts();
  void BindAmounts();
  void BindFlag(ui::CheckBox& box, ByteField field);
  void WireAlternates();
  void WireButtons();
  void StoreFields(InventoryRecord& part) const;
  void FollowLocation();
  void Recalculate();

  bool IsAlternate(std::size_t place);
  void TellUnknown(const std::string& number);
  bool AreNamesKnown();
  bool MayPricesBeMissing();
  void TellOfNoRoomForCore(bool hadCore);

  void GoToAlternate(std::size_t place);
  void GoTo(const std::optional<PartAt>& part);

  struct Flag {
    ui::CheckBox& box;
    ByteField field;
    bool shown = false;
  };

  PartRows& rows_;
  PartAt part_;
  NumberBoxes amounts_{*this, numbers_};
  NameChoice departments_;
  NameChoice manufacturers_;
  std::vector<Flag> flags_;
  InventoryRecord shown_;
  std::array<std::string, 4> shownAlternates_;
};

// Reads the part into the working records and lets the person edit it, and from there its neighbours in the rows and
// its alternates. Nothing is shown when the part can't be read and the person gave up.
void EditPart(Shop& shop, PartRows& rows, PartAt part);

}  // namespace lantos
