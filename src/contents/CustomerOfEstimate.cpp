#include "contents/CustomerOfEstimate.h"

#include "records/Customers.h"

namespace lantos {

// A list without anybody proves nothing while its file has tags: it was held, and the person didn't wait.
CustomerFound FindCustomer(Shop& shop, std::int32_t number) {
  Customers& customers = shop.records.customers;
  if (customers.MakeCurrent(number, Customers::From::File)) return CustomerFound::Yes;
  const bool isListRead =
      customers.Count() > 0 || shop.environment.files.Length(std::string(kCustomerTagFile)) < CustomerTag::kLength;
  const bool isListed = customers.IndexOf(number) != customers.Count();
  return isListRead && !isListed ? CustomerFound::NotOnFile : CustomerFound::NotRead;
}

void TellNotFound(Shop& shop, CustomerFound found, const std::string& title) {
  if (found == CustomerFound::NotOnFile) {
    shop.desktop.Tell("The customer of this estimate isn't on file. Choose a customer first.", title,
                      ui::Icon::Information);
  } else if (found == CustomerFound::NotRead) {
    shop.desktop.Tell("The customer of this estimate could not be read. Nothing was changed.", title,
                      ui::Icon::Exclamation);
  }
}

bool HasCustomer(Shop& shop, std::int32_t number, const std::string& title) {
  const CustomerFound found = FindCustomer(shop, number);
  TellNotFound(shop, found, title);
  return found == CustomerFound::Yes;
}

}  // namespace lantos
