#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "records/Customers.h"
#include "records/MakesModels.h"
#include "records/Vehicles.h"
#include "shop/Shop.h"

namespace lantos {

// The eight fields of the customer search, as typed.
struct CustomerQuery {
  std::string NameKey;
  std::string Number;
  std::string License;
  std::string VIN;
  std::string Phone;
  std::string Year;
  std::string Make;
  std::string Model;
};

enum class SearchKey { None, Name, Number, License, Vin, Phone, Vehicle };
std::string_view LabelOf(SearchKey key);  // "Customer Name"
// The first field that isn't blank decides; year, make and model stand together at the end.
SearchKey KeyOf(const CustomerQuery& query);

// Finds customers in the tag array by one of six keys. A hit is the place of the customer's tag in the array, in the
// order found; a customer found through two vehicles is there twice.
class CustomerSearch {
 public:
  using Say = std::function<void(std::string_view)>;
  // say gets the line that tells the person what is going on.
  CustomerSearch(Shop& shop, Say say) : shop_(shop), say_(std::move(say)) {}

  std::vector<std::size_t> Find(const CustomerQuery& query);

 private:
  void FindByName(std::string_view text);
  void FindByNumber(std::string_view text);
  void FindByPhone(std::string_view text);
  void FindByModel(std::string_view year, std::string_view make, std::string_view model);
  void FindByVehicle(const std::function<bool(const VehicleRecord&)>& matches);
  void AddOwner(std::int32_t number);

  Shop& shop_;
  Say say_;
  std::vector<std::size_t> hits_;
};

// Lines of the result list for the tag at the index: one for the name, one for the spouse when there is one.
std::vector<std::string> CustomerLines(Customers& customers, std::size_t index);

}  // namespace lantos
