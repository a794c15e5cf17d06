#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "records/MakesModels.h"
#include "records/Vehicles.h"

namespace lantos {

// A vehicle of the current customer as the vehicle list shows it.
struct VehicleRow {
  std::string Year;
  std::string Make;
  std::string Model;
  std::string License;
  std::string VIN;
  std::int32_t Mileage = 0;
  FileLink VLink = kNoLink;  // the vehicle's own offset, not its record's link
  std::int32_t Deleted = kVehicleLive;

  bool IsDeleted() const { return Deleted == kVehicleDeleted; }
};
VehicleRow MakeVehicleRow(const VehicleRecord& record, FileLink offset);

enum class VehicleColumn { Year, Make, Model, License, VIN, Mileage, VLink, Deleted, X };
inline constexpr std::size_t kVehicleColumnCount = 9;
// "License" is "Unit" in a fleet shop.
std::string_view NameOf(VehicleColumn column, bool fleet);
std::string CellOf(const VehicleRow& row, VehicleColumn column);

// As stored: a column's name, with " Desc" behind it for the falling order. The other kind of shop's name of the
// license column is taken for this one's; a text that names no column is "VIN".
struct VehicleSort {
  VehicleColumn column = VehicleColumn::VIN;
  bool descending = false;

  std::string Text(bool fleet) const;
  static VehicleSort Parse(std::string_view text);
};

// What is typed above the columns. A row passes when each field begins with its text, without regard to case; "%" and
// "*" in a text stand for anything.
struct VehicleFilter {
  std::string Year;
  std::string Make;
  std::string Model;
  std::string License;
  std::string VIN;
  bool showDeleted = false;

  bool Passes(const VehicleRow& row) const;
};

// Rows that pass, in order; equal ones stay in the order of the chain. The pointers are into rows.
std::vector<const VehicleRow*> Arrange(const std::vector<VehicleRow>& rows, const VehicleFilter& filter,
                                       const VehicleSort& sort);

}  // namespace lantos
