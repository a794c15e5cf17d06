#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "contents/Surcharge.h"
#include "contents/Workbench.h"
#include "contents/parts/PartRows.h"
#include "records/inventory/Inventory.h"

namespace lantos {

// The parts of the estimate on show. Nothing here writes to the inventory: stock moves at conversion.
class PartLines {
 public:
  PartLines(Workbench& bench, std::vector<PartLine>& lines, Surcharge& surcharge)
      : bench_(bench), lines_(lines), surcharge_(surcharge) {}

  // Whether an added part's row becomes the selected one.
  enum class Choosing { ItsRow, NoRow };

  // A part can stand only once on an estimate: another entry of its number is merged into its row, and its prices
  // replace those of the whole row. The total follows from quantity and price. Surcharge and totals are the caller's.
  void AddPartLine(const PartLine& entry, Choosing choosing);
  void RemovePartLine(int row);
  // Fills the list from the database.
  void LoadPartList();
  // On the screen only: the parts stay in the database.
  void ClearPartList();
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
  // Surcharge and totals follow the change, if there was one. Where it fails on its way, list and both of them follow
  // what the database has.
  enum class Changed { Nothing, Lines };
  void Make(const std::function<Changed()>& change);
  bool AddStockPart();
  void AddCoreOf(const std::string& partNumber);
  std::int32_t NextWasteNumber();
  void AddDisposalFee(std::int32_t number);
  std::vector<int> SelectedRows() const;
  void UsePriceLevelOfCustomer();
  PartLine KitComponentLine(const struct KitRow& row, const PartLine& kit) const;
  Inventory& Stock() const { return bench_.shop.records.inventory; }

  Workbench& bench_;
  std::vector<PartLine>& lines_;  // behind the rows
  Surcharge& surcharge_;
};

}  // namespace lantos
