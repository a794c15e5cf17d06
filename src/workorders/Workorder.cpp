#include "workorders/Workorder.h"

#include <limits>
#include <stdexcept>

namespace lantos {

std::int16_t WoQuantity(std::int64_t value) {
  if (value < std::numeric_limits<std::int16_t>::min() || value > std::numeric_limits<std::int16_t>::max()) {
    throw std::overflow_error("Overflow: the quantity " + std::to_string(value) + " is too large for a work order.");
  }
  return static_cast<std::int16_t>(value);
}

Workorder::Workorder() {
  Customer.Put(customer::salesperson, "None");
  Vehicle.Put(vehicle::VLink, kNoLink);
}

void ClearWorkorder(Workorder& workorder) {
  static const Workorder kCleared;
  workorder = kCleared;
}

}  // namespace lantos
