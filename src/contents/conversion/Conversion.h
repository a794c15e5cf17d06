#pragma once

#include <optional>
#include <string>

#include "contents/Workbench.h"
#include "contents/conversion/ConvertedRows.h"
#include "contents/conversion/StepsDone.h"
#include "records/Vehicles.h"
#include "workorders/ConversionJournal.h"
#include "workorders/OrderFilling.h"
#include "workorders/StockRepair.h"
#include "workorders/Workorders.h"

namespace lantos {

// How the finishing of a conversion ended: whole or with the person told why not, or with something gone that no later
// try will find either.
enum class Finishing { Ended, NotPossible };

// Turns the estimate on show into an open work order of the main application, and takes its parts out of stock. There
// is no transaction around it: what goes wrong halfway stays halfway, and the error then says in words what was done.
// The run log has the work order's number and each step; so has a journal, for as long as it takes (HalfDone).
class Conversion {
 public:
  Conversion(const Workbench& bench, Workorders& workorders);

  // From the section's password to the estimate's new status, with all questions and messages. What ended it early has
  // been told, or throws.
  void Run();
  // Brings one that ended in the middle to its end, the estimate being on show: with its number, and without what is
  // done already. The journal is the one that was left behind. Throws as Run does.
  Finishing Finish(const BegunConversion& begun, ConversionJournal& journal);
  // Whether it came so far that the work order has its number, which it keeps whatever follows.
  bool HasTakenNumber() const { return hasTakenNumber_; }

 private:
  // What another copy did to the estimate meanwhile is told and asked about.
  bool IsStillMeant();
  // All that is asked ahead of the number. False when the person ends the conversion, or a guard does.
  bool AskAll();
  void BeginOrder();
  bool MayConvert();
  bool Confirm();
  // The vehicle as the files know it, or as the estimate tells of it, into the work order. False when the person
  // ends the conversion.
  bool TakeVehicle();
  void FindVehicle();
  bool EditVehicle();
  bool StoreEdited(const VehicleRecord& read, VehicleRecord& ours);
  void StoreVehicleIfChanged();
  bool HasItsVehicleStill();

  void TakeNumber();
  // All that stands behind the number, or what is missing of it.
  void TakeLinesAndWrite(const Workorders::FilesWritten& written);
  // The parts leave the stock one by one, ahead of all else.
  void TakeParts(const Workorders::FilesWritten& written);
  void FinishStock();
  void FinishEstimate();
  bool SellsWhatItBegan(const Workorders::FilesWritten& written);
  bool IsMoved(const std::string& number);
  void WriteFiles(const Workorders::FilesWritten& written);
  void WriteArchivedTag(const Workorders::FilesWritten& written);
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
  std::optional<ConversionJournal> ownJournal_;
  ConversionJournal* journal_ = nullptr;
  const BegunConversion* begun_ = nullptr;  // when one is finished
  std::optional<ConvertedRows> rows_;
  bool isAsBegun_ = true;          // the lines of one that is finished
  std::vector<bool> isNoted_;      // by its parts: their usage was there, or given up
  bool isVehicleWritten_ = false;  // from its screen, or given up there
  bool hasTakenNumber_ = false;
  std::string reorderList_;
  std::string notDone_;  // what the person gave up of the stock, for the last message
};

}  // namespace lantos
