#include "masters/customers/KeptCustomer.h"

namespace lantos {

KeptCustomer::KeptCustomer(Customers& customers)
    : customers_(customers), tag_(customers.CurrentTag), record_(customers.CurrentCustomer) {}

void KeptCustomer::PutBack() {
  settled_ = true;
  customers_.CurrentTag = tag_;
  customers_.CurrentCustomer = record_;
}

void KeptCustomer::ReadAgain() {
  settled_ = true;
  const std::int32_t number = record_.Get(customer::Number);
  if (customers_.FindCustomerTag(number) == customers_.Count()) return PutBack();
  // A record of the same number would pass for the one that is wanted.
  customers_.CurrentCustomer = {};
  if (!customers_.ReadCustomer()) PutBack();
}

}  // namespace lantos
