#pragma once

#include "records/Customers.h"

namespace lantos {

// The edit screen works on the current customer, and shows others there while the person steps through the shop. When
// the person leaves without a choice the customer of before is to be current again; an error on the way brings that one
// back too.
class KeptCustomer {
 public:
  explicit KeptCustomer(Customers& customers);
  ~KeptCustomer() {
    if (!settled_) PutBack();
  }
  KeptCustomer(const KeptCustomer&) = delete;
  void PutBack();
  void Release() { settled_ = true; }  // who is current now is to stay
  // From the file: the screen may have written that very customer, and the next to write an old state would undo it.
  void ReadAgain();

 private:
  Customers& customers_;
  CustomerTag tag_;
  CustomerRecord record_;
  bool settled_ = false;
};

}  // namespace lantos
