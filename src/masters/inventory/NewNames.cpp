#include "masters/inventory/NewNames.h"

#include "masters/inventory/frmDept.h"

namespace lantos {

int AddDepartment(Shop& shop) {
  frmDept form(shop, shop.records.departments);
  form.ShowModal();
  return form.Index();
}

int AddManufacturer(Shop& shop) {
  frmDept form(shop, shop.records.manufacturers, "Add Manufacturer", "Manufacturer");
  form.ShowModal();
  return form.Index();
}

}  // namespace lantos
