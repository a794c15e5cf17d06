#include "masters/vehicles/VehicleTable.h"
#include "records/MakesModels.h"

#include <algorithm>

namespace lantos {
namespace {

constexpr std::array<std::string_view, kVehicleColumnCount> kNames = {"Year",    "Make",  "Model",   "License", "VIN",
                                                                      "Mileage", "VLink", "Deleted", "X"};
constexpr std::string_view kUnit = "Unit";
constexpr std::string_view kDescending = " Desc";

bool IsWild(char c) { return c == '%' || c == '*'; }

// Whether the text begins with the pattern. A wild-card is tried again one character later whenever what follows it
// doesn't fit.
bool BeginsLike(std::string_view text, std::string_view pattern) {
  std::size_t at = 0;
  std::size_t in = 0;
  std::size_t afterWild = std::string_view::npos;
  std::size_t retryAt = 0;
  while (in < pattern.size()) {
    if (IsWild(pattern[in])) {
      afterWild = ++in;
      retryAt = at;
    } else if (at < text.size() && ToUpper(text[at]) == ToUpper(pattern[in])) {
      ++at;
      ++in;
    } else if (afterWild != std::string_view::npos && retryAt < text.size()) {
      at = ++retryAt;
      in = afterWild;
    } else {
      return false;
    }
  }
  return true;
}

bool FieldPasses(std::string_view field, std::string_view typed) {
  return TrimView(typed).empty() || BeginsLike(field, typed);
}

int Compare(std::int32_t a, std::int32_t b) { return a < b ? -1 : a > b ? 1 : 0; }

int Compare(const VehicleRow& a, const VehicleRow& b, VehicleColumn column) {
  switch (column) {
    case VehicleColumn::Mileage:
      return Compare(a.Mileage, b.Mileage);
    case VehicleColumn::VLink:
      return Compare(a.VLink, b.VLink);
    case VehicleColumn::Deleted:
      return Compare(a.Deleted, b.Deleted);
    default:
      return ToUpper(CellOf(a, column)).compare(ToUpper(CellOf(b, column)));
  }
}

}  // namespace

VehicleRow MakeVehicleRow(const VehicleRecord& record, FileLink offset) {
  return {record.Get(vehicle::Year),
          record.Get(vehicle::Make),
          record.Get(vehicle::Model),
          record.Get(vehicle::LicenseNumber),
          record.Get(vehicle::VIN),
          record.Get(vehicle::Mileage),
          offset,
          record.Get(vehicle::Deleted)};
}

std::string_view NameOf(VehicleColumn column, bool fleet) {
  return fleet && column == VehicleColumn::License ? kUnit : kNames[static_cast<std::size_t>(column)];
}

std::string CellOf(const VehicleRow& row, VehicleColumn column) {
  switch (column) {
    case VehicleColumn::Year:
      return row.Year;
    case VehicleColumn::Make:
      return row.Make;
    case VehicleColumn::Model:
      return row.Model;
    case VehicleColumn::License:
      return row.License;
    case VehicleColumn::VIN:
      return row.VIN;
    case VehicleColumn::Mileage:
      return std::to_string(row.Mileage);
    case VehicleColumn::VLink:
      return std::to_string(row.VLink);
    case VehicleColumn::Deleted:
      return std::to_string(row.Deleted);
    case VehicleColumn::X:
      break;
  }
  return row.IsDeleted() ? "X" : " ";
}

std::string VehicleSort::Text(bool fleet) const {
  return std::string(NameOf(column, fleet)) + (descending ? std::string(kDescending) : std::string());
}

VehicleSort VehicleSort::Parse(std::string_view text) {
  VehicleSort sort;
  std::string_view name = TrimView(text);
  const bool descending = name.ends_with(kDescending);
  if (descending) name.remove_suffix(kDescending.size());
  if (name == kUnit) name = kNames[static_cast<std::size_t>(VehicleColumn::License)];
  const auto found = std::find(kNames.begin(), kNames.end(), name);
  if (found == kNames.end()) return sort;
  sort.column = static_cast<VehicleColumn>(found - kNames.begin());
  sort.descending = descending;
  return sort;
}

bool VehicleFilter::Passes(const VehicleRow& row) const {
  return (showDeleted || !row.IsDeleted()) && FieldPasses(row.Year, Year) && FieldPasses(row.Make, Make) &&
         FieldPasses(row.Model, Model) && FieldPasses(row.License, License) && FieldPasses(row.VIN, VIN);
}

std::vector<const VehicleRow*> Arrange(const std::vector<VehicleRow>& rows, const VehicleFilter& filter,
                                       const VehicleSort& sort) {
  std::vector<const VehicleRow*> shown;
  for (const VehicleRow& row : rows) {
    if (filter.Passes(row)) shown.push_back(&row);
  }
  std::stable_sort(shown.begin(), shown.end(), [&sort](const VehicleRow* a, const VehicleRow* b) {
    const int order = Compare(*a, *b, sort.column);
    return sort.descending ? order > 0 : order < 0;
  });
  return shown;
}

}  // namespace lantos
