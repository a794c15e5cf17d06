#include "masters/employees/EmployeeScreens.h"

#include "masters/employees/frmEmpMaint.h"

namespace lantos {

void EmployeeMaintenance(Shop& shop, de2& database) {
  frmEmpMaint form(shop, database);
  form.ShowModal();
  form.Unload();
}

}  // namespace lantos
