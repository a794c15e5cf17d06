#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "records/inventory/KitContents.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// What a kit consists of.
class frmInvKit : public SizedForm {
 public:
  frmInvKit(Shop& shop, std::string_view stockNumber);

  ui::Label lblKitPartNumber{*this, "lblKitPartNumber", "&Part Number"};
  ui::TextBox txtKitPartNumber{*this, "txtKitPartNumber"};
  ui::Label lblDesc{*this, "lblDesc", "D&escription"};
  ui::TextBox txtDesc{*this, "txtDesc"};
  ui::Label lblHeading{*this, "lblHeading"};
  ui::ListBox List1{*this, "List1"};
  ui::Button cmdAdd{*this, "cmdAdd", "&Add..."};
  ui::Button cmdChange{*this, "cmdChange", "C&hange..."};
  ui::Button cmdDelete{*this, "cmdDelete", "&Delete"};
  ui::Button cmdMoveUp{*this, "cmdMoveUp", "Move &Up"};
  ui::Button cmdMoveDown{*this, "cmdMoveDown", "Move Do&wn"};
  ui::Button cmdSave{*this, "cmdSave", "&Save"};
  ui::Button cmdCancel{*this, "cmdCancel", "Close"};

  // False when the kit couldn't be read, which has been told: the screen isn't shown then, since a save of what it
  // lacks would empty the kit.
  bool HasContents() const { return contents_.has_value(); }

 private:
  void OnLoad() override;
  void OnActivate() override { List1.SetFocus(); }
  void OnKeyDown(ui::KeyPress& key) override;
  void Accept() override;

  void WireButtons();
  void ReadKit();
  void ShowKit();
  void Add();
  void Change();
  void Delete();
  enum class Direction { Up, Down };
  void Move(Direction direction);
  // The selected row, or none, which has been told in the button's words.
  std::optional<std::size_t> SelectedFor(const std::string& done, const std::string& toDo);
  void Tell(const std::string& text);
  std::string RowText(std::size_t row) const;
  void ShowRows(std::size_t selected);

  Shop& shop_;
  std::string stockNumber_;
  InventoryKitRecord read_;
  std::optional<KitContents> contents_;
};

// Lets the person edit what the kit of this stock number consists of. The working inventory records are as before at
// the end.
void EditKit(Shop& shop, std::string_view stockNumber);

}  // namespace lantos
