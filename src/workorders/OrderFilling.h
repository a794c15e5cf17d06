#pragma once

#include "estimatedb/de.h"
#include "records/modEmployees.h"
#include "records/modSystem.h"
#include "workorders/Workorder.h"

namespace lantos {

// How an estimate becomes a work order, in memory. The work order was cleared and has its number; customer and vehicle
// come first, then the header, then the lines, since each goes by what is there before it. Costs, subtotals, tax and
// total grow with every line. What no field of a work order holds is std::overflow_error.
class OrderFilling {
 public:
  // What an hour costs the shop is known to the employee table, which is loaded at the first line of labor.
  OrderFilling(Workorder& order, modEmployees& employees) : order_(order), employees_(employees) {}

  // Whole, but a salesperson who was never set stays what a cleared work order has.
  void TakeCustomer(const CustomerRecord& customer);
  void TakeVehicle(const VehicleRecord& vehicle) { order_.Vehicle = vehicle; }
  // A repair, opened on the day of the estimate. A customer with a tax number is charged none.
  void TakeHeader(DaySerial day, const SystemRecord& system);

  // Returns the line that it became.
  WoPartLine TakePart(const de::Part& part);
  // Of the line of an estimate; date and commission are put here. Hours that were applied on an earlier day are
  // negative, and stay behind.
  void TakeLabor(WoLaborLine line);
  // Waste too is totalled as sublets, and so has their tax. The written text sorts the subtotals out again; tax and
  // total stay.
  void TakeSublet(const de::Extra& line) { TakeExtra(line, order_.Sublets); }
  void TakeWaste(const de::Extra& line) { TakeExtra(line, order_.Waste); }
  // Throws std::out_of_range behind the last one that there is room for.
  void TakeNote(const WoNote& note);

 private:
  void TakeExtra(const de::Extra& from, WoLines<WoExtraLine>& lines);

  Workorder& order_;
  modEmployees& employees_;
  DaySerial day_ = 0;
  std::size_t notes_ = 0;
};

}  // namespace lantos
