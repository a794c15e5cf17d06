#include "Target.h"
#include "records/Customers.h"
#include "records/Vehicles.h"
#include "records/modSystem.h"

namespace lantos::fuzz {

// The tags lead into a master file that is sound.
void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  shop.Put(kCustomerTagFile, bytes);
  shop.Put(kCustomerFile, std::string(3 * CustomerRecord::kLength, '\1'));
  shop.Put(kVehicleFile, std::string(2 * VehicleRecord::kLength, '\0'));
  shop.Put(kSystemFile, std::string(SystemRecord::kLength, '\0'));
  ReadCustomers(shop);
  Require(shop.Content(kCustomerTagFile) == bytes);
  ChangeCustomers(shop);
}

}  // namespace lantos::fuzz
