#include "masters/customers/KeptCustomer.h"

namespace lantos {

KeptCustomer::KeptCustomer(Customers& customers)
    : customers_(customers), tag_(customers.CurrentTag), record_(customers.CurrentCustomer) {}

void KeptCustomer::PutBack() {
  settled_ = true;
  customers_.PutBack(tag_, record_);
}

void KeptCustomer::ReadAgain() {
  settled_ = true;
  const std::int32_t number = record_.Get(customer::Number);
  if (customers_.FindCustomerTag(number) == customers_.Count()) return PutBack();
  if (!customers_.ReadCustomer(Customers::From::File)) PutBack();
}

}  // namespace lantos
