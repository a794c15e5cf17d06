#pragma once

#include <string>
#include <utility>
#include <vector>

#include "contents/ContentsBench.h"
#include "contents/parts/frmWOKit.h"
#include "contents/parts/frmWOPart.h"
#include "frame/Numbers.h"
#include "records/inventory/Inventory.h"
#include "records/inventory/InventoryKits.h"
#include "records/modSystem.h"

namespace lantos::test {

struct PartsBench : ContentsBench {
  Inventory& inventory = records.inventory;

  // A part that the inventory holds, in the working records too.
  void Stock(std::string_view number, std::int16_t onHand, std::string_view location = "") {
    inventory.SizeArrays();
    Inventory::PartIndex index = Inventory::kNoPart;
    inventory.NewInventoryPart(number, index);
    inventory.CurrentInv.Put(inventory::QtyInStock, onHand);
    inventory.CurrentInv.Put(inventory::Location, location);
  }
  std::string Stored() { return Ask("select sum(PartTotal) from Parts where EstimateNumber = 1001"); }
};

inline PartLine Line(std::string number, std::int32_t quantity, Cents price) {
  PartLine line;
  line.partNumber = std::move(number);
  line.description = "PART";
  line.quantity = quantity;
  line.price = price;
  return line;
}

}  // namespace lantos::test
