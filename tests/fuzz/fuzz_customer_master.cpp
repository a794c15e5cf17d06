#include "Target.h"
#include "records/CustomerTag.h"
#include "records/Vehicles.h"
#include "records/modSystem.h"

namespace lantos::fuzz {

namespace {

std::string Tags() {
  std::string tags;
  std::int32_t number = 0;
  for (const FileLink offset : {0, 317, 634, 100, -1, -2, 2147483647}) {
    CustomerTag tag;
    tag.Put(customertag::Number, ++number);
    tag.Put(customertag::Offset, offset);
    tags.append(reinterpret_cast<const char*>(tag.Bytes().data()), CustomerTag::kLength);
  }
  return tags;
}

}  // namespace

// Links into the vehicle file are taken as they come.
void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  shop.Put(kCustomerTagFile, Tags());
  shop.Put(kCustomerFile, bytes);
  shop.Put(kVehicleFile, std::string(3 * VehicleRecord::kLength, '\0'));
  shop.Put(kSystemFile, std::string(SystemRecord::kLength, '\0'));
  ReadCustomers(shop);
  Require(shop.Content(kCustomerFile) == bytes);
  ChangeCustomers(shop);
}

}  // namespace lantos::fuzz
