#pragma once

#include <array>
#include <string>
#include <string_view>

#include "estimatedb/de.h"
#include "records/modSystem.h"
#include "shop/Records.h"

namespace lantos {

enum Status : std::int16_t {
  kScheduled = 0,
  kArrived = 1,
  kInProgress = 2,
  kCompleted = 3,
  kDeparted = 4,
  kContinued = 5,
  kCancelled = 6,
  kRescheduled = 7,
  kNoShow = 8,
  kEstimateOnly = 9,
};
inline constexpr std::size_t kStatusCount = 10;

struct Estimate {
  std::int32_t EstimateNumber = 0;  // 0: none is current
  std::int32_t CustomerNumber = 0;
  FileLink VehicleLink = 0;
  DaySerial SchedDate = 0;
  DaySerial StartDate = -1;  // -1 when null
  DaySerial StopDate = -1;
  std::int16_t Status = 0;
  std::int32_t Mechanic = 0;
  double TotalPrice = 0;
  std::string Comments;
  DaySerial CreateDate = 0;
  Hundredths TotalHours = 0;  // set only while the board is filled
  Cents TotalLabor = 0;
  std::string VehYear, VehMake, VehModel, VehVIN, VehLic, VehDate, VehMileage, VehEng, VehTrans;
};

class modEstimates {
 public:
  modEstimates(Environment& environment, de& database, modSystem& system)
      : environment_(environment), de_(database), system_(system) {}

  Estimate CurrentEstimate;

  // Fills CurrentEstimate, TotalHours and TotalLabor left as they are. No such row leaves the record as it was.
  void LoadEstimate(std::int32_t number);
  // The columns of the recordset's current row into the record.
  static void ReadRow(const Recordset& row, Estimate& estimate);

  // Takes a number and adds the row. The number is spent even when the row fails.
  std::int32_t CreateEstimate(DaySerial date, std::int16_t status);
  // Its two halves, for a row that is added together with more: the person may be asked for the number, so it is taken
  // ahead of the transaction. A number that an estimate has already is never taken: the next free one is, if the person
  // wants it (see modSystem::TakeFreeNumber), or none is and std::runtime_error says so.
  std::int32_t TakeNumber();
  void AddRow(std::int32_t number, DaySerial date, std::int16_t status);
  // All of it or nothing, within a transaction too: of a copy that stayed empty it can be tried again.
  void CloneEstimateContents(std::int32_t oldNumber, std::int32_t newNumber);
  void SaveStatus();
  // The status in memory and in the database. When the database refuses, memory has the old one.
  void ChangeStatus(std::int16_t status);

  // The word for a status. A Scheduled one of a day before today becomes a No-show in the caller's variable.
  std::string StatusText(std::int16_t& status, DaySerial schedDate) const;

  // The word as it stands; "Unknown" for a code outside the table.
  static std::string_view StatusWord(std::int16_t status);

  // Whether estimates of that status count toward the day's hours; a code outside the table doesn't.
  static bool CountsTowardDay(std::int16_t status);

 private:
  bool IsOnFile(std::int32_t number);
  std::int32_t Highest();

  Environment& environment_;
  de& de_;
  modSystem& system_;
};

}  // namespace lantos
