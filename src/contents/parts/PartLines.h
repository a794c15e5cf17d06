#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "contents/ListedLine.h"
#include "contents/Surcharge.h"
#include "contents/Workbench.h"
#include "contents/parts/PartRows.h"
#include "records/inventory/Inventory.h"

namespace lantos {

// The parts of the estimate on show. Nothing here writes to the inventory: stock moves at conversion.
class PartLines {
 public:
  PartLines(Workbench& bench, EstimateLines& lines, Surcharge& surcharge)
      : bench_(bench), lines_(lines.parts), offScreen_(lines.partsOffScreen), surcharge_(surcharge) {}

  // Whether an added part's row becomes the selected one.
  enum class Choosing { ItsRow, NoRow };

  // A part can stand only once on an estimate: another entry of its number is merged into its row, and its prices
  // replace those of the whole row. The total follows from quantity and price. List, surcharge and totals follow.
  void AddPartLine(const PartLine& entry, Choosing choosing);
  void RemovePartLine(int row) { RemovePartLines({row}); }
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
  static constexpr const char* kChangeTitle = "Change Part";
  static constexpr const char* kRemoveTitle = "Remove Part";
  // What stands in the database and isn't seen yet.
  struct Stored {
    std::vector<PartLine> lines;
    Surcharge::Refusal refusal;
  };
  // The surcharge of a part with a core is written with each of the two lines; its refusal is told behind the second.
  enum class Comes { Alone, WithItsCore, AsTheCore };
  // In one piece. Where the database refuses it, list and totals follow what it has.
  Stored Store(const std::function<void()>& change);
  std::vector<PartLine> ReadLines();
  void StorePart(const PartLine& entry);
  void FollowDatabase();
  void RemovePartLines(const std::vector<int>& rowsInOrder);
  std::optional<LineValues> ValuesStored(const std::string& number);
  // Through its screen, which stays until what it is for is stored, or is left. False when nothing was stored.
  using Storing = std::function<std::optional<Stored>()>;
  bool EditAndStore(class frmWOPart& form, const Storing& store, Comes comes = Comes::Alone);
  // Asks where the line that is to be replaced is another by then; nothing when that one is kept.
  std::optional<Stored> StoreInPlace(const std::string& number, ListedLine& listed, const PartLine& entry);
  // Selects the part's row; none without a number.
  void Show(Stored stored, std::string_view selected);
  void ShowLines(std::vector<PartLine> lines);
  void ShowWhatFollows(const Surcharge::Refusal& refusal);
  bool AddStockPart(Comes comes);
  void AddCoreOf(const std::string& partNumber);
  bool AddCorePart(const std::string& partNumber);
  void AddDisposalFee();
  void StoreKit(const class frmWOKit& form);
  std::vector<int> SelectedRows() const;
  void UsePriceLevelOfCustomer();
  PartLine KitComponentLine(const struct KitRow& row, const PartLine& kit) const;
  Inventory& Stock() const { return bench_.shop.records.inventory; }

  Workbench& bench_;
  std::vector<PartLine>& lines_;  // behind the rows
  std::set<std::string>& offScreen_;
  Surcharge& surcharge_;
};

}  // namespace lantos
