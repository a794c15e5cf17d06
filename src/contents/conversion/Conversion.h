#pragma once

#include <string>
#include <vector>

#include "contents/Workbench.h"
#include "workorders/Workorders.h"

namespace lantos {

// Turns the estimate on show into an open work order of the main application, and takes its parts out of stock. There
// is no transaction around it: what goes wrong halfway stays halfway, and the error then says in words what was done.
// The run log has the work order's number and each step.
class Conversion {
 public:
  Conversion(const Workbench& bench, Workorders& workorders) : bench_(bench), workorders_(workorders) {}

  // From the section's password to the estimate's new status, with all questions and messages. What ended it early has
  // been told, or throws.
  void Run();

 private:
  bool MayConvert();
  bool Confirm();
  bool FindCustomer();
  void TakeCustomer();
  // The vehicle as the files know it, or as the estimate tells of it, into the work order. False when the operator
  // ends the conversion.
  bool TakeVehicle();
  bool EditVehicle();
  void StoreVehicleIfChanged();

  void TakeNumber();
  void FillHeader();
  void TakeParts();
  void TakeLabor();
  void TakeExtras(Recordset& rows, WoLines<WoExtraLine>& lines);
  void TakeNotes();
  void WriteFiles();
  void TellOfReorders();
  void MarkEstimate();
  void ChangeStatus();

  // Takes a part out of stock, with its usage record. Returns what is left; 1 for a part that isn't in the inventory,
  // of which nothing moves.
  std::int16_t UpdateStockForConversion(const std::string& partNumber, std::int16_t quantity, Cents cost, Cents price);
  void CheckStockNumber(std::string_view found, const std::string& wanted, const char* file);

  void Done(std::string step);
  [[noreturn]] void RethrowWithWords(const std::exception& error) const;
  Estimate& Current() const { return bench_.database.estimates.CurrentEstimate; }
  Workorder& Order() const { return workorders_.Current; }
  std::string OrderNumber() const;
  std::string Goal() const;  // the work order, in words

  Workbench bench_;
  Workorders& workorders_;
  std::string reorderList_;
  std::vector<std::string> done_;
  bool isWritten_ = false;
};

}  // namespace lantos
