#include "workorders/Workorder.h"

namespace lantos {

void ClearWorkorder(Workorder& workorder) {
  static const Workorder kBlank;
  workorder = kBlank;
  workorder.Customer.Put(customer::salesperson, "None");
  workorder.Vehicle.Put(vehicle::VLink, kNoLink);
}

}  // namespace lantos
