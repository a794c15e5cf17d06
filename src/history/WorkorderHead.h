#pragma once

#include "frame/Options.h"
#include "ui/Form.h"
#include "workorders/Workorder.h"

namespace lantos {

// The head of the work order on show: whose it is, which vehicle's, where it stands and what it came to.
class WorkorderHead {
 public:
  explicit WorkorderHead(ui::Form& form) : form_(form) { Clear(); }
  void Clear();
  // In a fleet shop the licence number is the unit's.
  enum class Naming { License, Unit };
  void Show(const Workorder& workorder, const PaymentMethodTable& methods, Naming naming);

 private:
  ui::Form& form_;

 public:
  ui::Label custname{form_, "custname"};
  ui::Label spousename{form_, "spousename"};
  ui::Label address{form_, "address"};
  ui::Label citystatezip{form_, "citystatezip"};
  ui::Label phonenumbers{form_, "phonenumbers"};
  ui::Label yearmakemodel{form_, "yearmakemodel"};
  ui::Label engmiles{form_, "engmiles"};
  ui::Label licvin{form_, "licvin"};
  ui::Label tax_id_number{form_, "tax_id_number"};
  ui::Label salesperson{form_, "salesperson"};
  ui::Label workorder_number{form_, "workorder_number"};
  ui::Label workorder_type{form_, "workorder_type"};
  ui::Label status{form_, "status"};
  ui::Label status_date{form_, "status_date"};
  ui::Label pricing{form_, "pricing"};
  ui::Label method{form_, "method"};
  ui::Label total1{form_, "total1"};
  ui::Label wo_po_tax{form_, "wo_po_tax"};
  ui::Label paymentcomment{form_, "paymentcomment"};

 private:
  void ShowOwner(const CustomerRecord& owner);
  void ShowVehicle(const VehicleRecord& car, Naming naming);
};

}  // namespace lantos
