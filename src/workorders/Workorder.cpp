#include "workorders/Workorder.h"

namespace lantos {

Workorder::Workorder() {
  Customer.Put(customer::salesperson, "None");
  Vehicle.Put(vehicle::VLink, kNoLink);
}

void ClearWorkorder(Workorder& workorder) {
  static const Workorder kCleared;
  workorder = kCleared;
}

}  // namespace lantos
