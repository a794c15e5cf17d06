#include "Target.h"
#include "records/Customers.h"
#include "records/modSystem.h"

namespace lantos::fuzz {

void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  CustomerRecord owner;
  owner.Put(customer::Number, 1);
  owner.Put(customer::VLink, 0);
  CustomerTag tag;
  tag.Put(customertag::Number, 1);
  shop.Put(kCustomerTagFile, {reinterpret_cast<const char*>(tag.Bytes().data()), CustomerTag::kLength});
  shop.Put(kCustomerFile, {reinterpret_cast<const char*>(owner.Bytes().data()), CustomerRecord::kLength});
  shop.Put(kVehicleFile, bytes);
  shop.Put(kSystemFile, std::string(SystemRecord::kLength, '\0'));
  ReadVehicles(shop);
  ReadCustomers(shop);
  Require(shop.Content(kVehicleFile) == bytes);
  ChangeCustomers(shop);
}

}  // namespace lantos::fuzz
