#include "masters/inventory/PartColumns.h"

#include "frame/Numbers.h"
#include "masters/inventory/PartOrder.h"

namespace lantos {

std::vector<ui::GridColumn> PartColumns(StockedColumn stocked) {
  std::vector<ui::GridColumn> columns = {{"SortKey", "SortKey", false, true},
                                         {"Part", "Part"},
                                         {"Description", "Description"},
                                         {"Qty", "Qty", true},
                                         {"Retail1", "Price", true},
                                         {"Retail", "Retail", true},
                                         {"Resale", "Resale", true},
                                         {"Wholesale", "Wholesale", true},
                                         {"Cost", "Cost", true},
                                         {"Tag", "Tag", true, true},
                                         {"Index", "Index", true, true},
                                         {"Offset", "Offset", true, true}};
  if (stocked == StockedColumn::Shown) columns.push_back({"IsStocked", "Stk"});
  return columns;
}

ui::GridRow PartCells(const Inventory& inventory, Inventory::PartIndex part, StockedColumn stocked) {
  const InventoryTag& tag = inventory.Tag(part);
  const auto price = [&tag](int level) {
    return FormatHundredths(tag.Get(inventorytag::Pricing[static_cast<std::size_t>(level)]));
  };
  const std::string number = tag.Get(inventorytag::StockNumber);
  ui::GridRow row;
  row.data = part;
  row.cells = {ComputeSortKey(number),
               number,
               tag.Get(inventorytag::Description),
               std::to_string(tag.Get(inventorytag::InStock)),
               price(inventory.pricingLevel),
               price(3),
               price(2),
               price(1),
               price(0),
               std::to_string(tag.Get(inventorytag::Tag)),
               std::to_string(part),
               std::to_string(inventory.Location(part))};
  if (stocked == StockedColumn::Shown) row.cells.emplace_back(tag.Get(inventorytag::IsStocked) == 1 ? "1" : "0");
  return row;
}

}  // namespace lantos
