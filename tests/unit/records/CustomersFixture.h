#pragma once

#include "Fixture.h"
#include "frame/Dates.h"
#include "records/Customers.h"

namespace lantos::test {

using ui::Answer;
using ui::Buttons;
using ui::Icon;

class CustomersTest : public ShopTest {
 protected:
  CustomersTest() { environment.log.Open(); }

  // Customers 1, 2, 3 … with masters in the same order.
  void PutCustomers(std::int32_t count) {
    Image tags;
    Image masters;
    for (std::int32_t i = 0; i < count; ++i) {
      const std::string name = "Name" + std::to_string(i + 1);
      tags.Append(CustomerTagImage(i + 1, name + ",", i * 317));
      masters.Append(CustomerImage(i + 1, name));
    }
    Put(kCustomerTagFile, tags);
    Put(kCustomerFile, masters);
  }
  void MakeCurrentCustomer(std::int32_t number, std::string_view lastname, std::string_view firstname) {
    customers.CurrentCustomer = {};
    customers.CurrentCustomer.Put(customer::Number, number);
    customers.CurrentCustomer.Put(customer::Lastname, lastname);
    customers.CurrentCustomer.Put(customer::Firstname, firstname);
    customers.CurrentCustomer.Put(customer::VLink, kNoLink);
  }
  // Empty for a customer who isn't known.
  std::string LookedUpName(std::int32_t number) {
    const CustomerRecord* customer = customers.LookupCustomer(number);
    return customer == nullptr ? std::string() : customer->Get(customer::Lastname);
  }
  std::string CurrentLastname() const { return customers.CurrentCustomer.Get(customer::Lastname); }

  Customers& customers = records.customers;
};

}  // namespace lantos::test
