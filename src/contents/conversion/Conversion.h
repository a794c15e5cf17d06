#pragma once

#include <string>

#include "contents/Workbench.h"
#include "contents/conversion/StepsDone.h"
#include "workorders/OrderFilling.h"
#include "workorders/Workorders.h"

namespace lantos {

// Turns the estimate on show into an open work order of the main application, and takes its parts out of stock. There
// is no transaction around it: what goes wrong halfway stays halfway, and the error then says in words what was done.
// The run log has the work order's number and each step.
class Conversion {
 public:
  Conversion(const Workbench& bench, Workorders& workorders);

  // From the section's password to the estimate's new status, with all questions and messages. What ended it early has
  // been told, or throws.
  void Run();
  // Whether it came so far that the work order has its number, which it keeps whatever follows.
  bool HasTakenNumber() const { return hasTakenNumber_; }

 private:
  bool MayConvert();
  bool Confirm();
  bool FindCustomer();
  // The vehicle as the files know it, or as the estimate tells of it, into the work order. False when the person
  // ends the conversion.
  bool TakeVehicle();
  bool EditVehicle();
  void StoreVehicleIfChanged();

  void TakeNumber();
  // The parts leave the stock one by one, ahead of all else.
  void TakeParts();
  void TakeOtherLines();
  void WriteFiles();
  void TellOfReorders();
  void MarkEstimate();
  void ChangeStatus();

  Estimate& Current() const { return bench_.database.estimates.CurrentEstimate; }
  Workorder& Order() const { return workorders_.Current; }
  std::string OrderNumber() const;

  Workbench bench_;
  Workorders& workorders_;
  OrderFilling filling_;
  StepsDone done_;
  bool hasTakenNumber_ = false;
  std::string reorderList_;
  std::string notMoved_;  // part numbers, each behind a carriage return
};

}  // namespace lantos
