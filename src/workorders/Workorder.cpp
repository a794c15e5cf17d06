#include "workorders/Workorder.h"

namespace lantos {

void ClearWorkorder(Workorder& workorder) {
  workorder = {};
  workorder.Customer.Put(customer::salesperson, "None");
  workorder.Vehicle.Put(vehicle::VLink, kNoLink);
}

}  // namespace lantos
