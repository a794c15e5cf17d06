#include "ListReaders.h"
#include "Target.h"
#include "records/modEmployees.h"

namespace lantos::fuzz {

void Try(std::string_view bytes) {
  QuietShop& shop = TheShop();
  EmployeeRecord person;
  person.Put(employee::EmpNumber, 7);
  shop.Put(kEmployeeFile, {reinterpret_cast<const char*>(person.Bytes().data()), EmployeeRecord::kLength});
  shop.Put(kPayrollFile, bytes);
  ReadPayroll(shop);
  Require(shop.Content(kPayrollFile) == bytes);
  ChangePayroll(shop);
  Require(shop.Content(kPayrollFile).size() == bytes.size());
}

}  // namespace lantos::fuzz
