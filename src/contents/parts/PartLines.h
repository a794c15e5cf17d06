#pragma once

#include <string_view>
#include <vector>

#include "contents/Surcharge.h"
#include "contents/Workbench.h"
#include "contents/parts/PartRows.h"
#include "records/inventory/Inventory.h"

namespace lantos {

class frmWOPart;

// The parts of the estimate on show. Nothing here writes to the inventory: stock moves at conversion.
class PartLines {
 public:
  PartLines(Workbench& bench, Surcharge& surcharge) : bench_(bench), surcharge_(surcharge) {}

  // A part can stand only once on an estimate: another entry of its number is merged into its row, and its prices
  // replace those of the whole row. The total follows from quantity and price. With refresh the part's row is selected.
  void AddPartLine(const PartLine& entry, bool refresh);
  void RemovePartLine(int row);
  // Fills the list, empty until now, from the database.
  void LoadPartList();
  // The kit in the working inventory records, and its components at the kit's price, through the kit screen.
  void AddKitLines();

  // The commands of the board.
  void Add();
  void AddNonStock();
  void Change();
  void Remove();

 private:
  void StorePart(const PartLine& entry);
  void ReloadList(std::string_view selected);
  bool AddStockPart();
  void AddCoreOf(const std::string& partNumber);
  void AddDisposalFee();
  std::vector<int> SelectedRows() const;
  void UsePriceLevelOfCustomer();
  PartLine KitComponentLine(const struct KitRow& row, const PartLine& kit) const;
  Inventory& Stock() const { return bench_.shop.records.inventory; }

  Workbench& bench_;
  Surcharge& surcharge_;
  std::vector<PartLine> lines_;  // behind the rows
};

}  // namespace lantos
