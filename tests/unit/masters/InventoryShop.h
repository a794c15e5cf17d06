#pragma once

#include <string>
#include <vector>

#include "MasterShop.h"
#include "masters/inventory/frmInvList.h"

namespace lantos::test {

// A shop whose two inventory files are made by the program's own routines, and its list, read to the end.
class InventoryShop : public MasterShop {
 protected:
  Inventory::PartIndex AddPart(std::string_view number) {
    Inventory::PartIndex index = Inventory::kNoPart;
    inventory.NewInventoryPart(number, index);
    return index;
  }
  // The same with a master of its own.
  template <class Fill>
  Inventory::PartIndex AddPart(std::string_view number, Fill fill) {
    const Inventory::PartIndex index = AddPart(number);
    std::optional<Inventory::Part> part = inventory.Read(index);
    fill(*part);
    inventory.Write(*part, index, Inventory::Core::Stays, Inventory::Broadcast::No);
    return index;
  }
  void LoadList() {
    inventory.SizeArrays();
    list.LoadForm();
    inventory.FinishLoading();
  }
  std::vector<std::string> Numbers() const {
    std::vector<std::string> numbers;
    for (int row = 0; row < list.DataGrid1.RowCount(); ++row) numbers.push_back(list.DataGrid1.RowAt(row).cells.at(1));
    return numbers;
  }
  std::string Current() const {
    const int row = list.DataGrid1.Row();
    return row < 0 ? "" : list.DataGrid1.RowAt(row).cells.at(1);
  }
  // What the person does on the list to have the part current.
  void GoTo(std::string_view number) {
    test::Type(list.SearchPart, number);
    test::Press(list, "Enter");
    ASSERT_EQ(Current(), number);
  }
  std::string Tags() const { return directory.Content("TQINVTAG.DAT"); }
  std::string Masters() const { return directory.Content("TQINVENT.DAT"); }

  Inventory& inventory = records.inventory;
  frmInvList list{shop};
};

}  // namespace lantos::test
