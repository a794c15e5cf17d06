#include "estimatedb/modEstimates.h"

#include <algorithm>
#include <array>
#include <limits>
#include <stdexcept>
#include <utility>

#include "frame/Text.h"

namespace lantos {

namespace {

struct StatusRow {
  std::string_view word;
  bool countsTowardDay;
};

// By status code.
constexpr std::array<StatusRow, kStatusCount> kStatuses = {{
    {"Scheduled", true},
    {"Arrived", true},
    {"In Progress", true},
    {"Completed", true},
    {"Departed", true},
    {"Continued", true},
    {"Cancelled", false},
    {"Rescheduled", false},
    {"No-show", true},
    {"Estimate Only", false},
}};

const StatusRow* FindStatus(std::int16_t status) {
  const bool isKnown = status >= 0 && static_cast<std::size_t>(status) < kStatuses.size();
  return isKnown ? &kStatuses[static_cast<std::size_t>(status)] : nullptr;
}

std::int16_t AsShort(std::int32_t value) {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(std::clamp<std::int32_t>(value, Limits::min(), Limits::max()));
}

}  // namespace

void modEstimates::LoadEstimate(std::int32_t number) {
  Recordset& row = de_.EstimateByNumber(number);
  if (!row.Eof()) ReadRow(row, CurrentEstimate);
  row.Close();
}

void modEstimates::ReadRow(const Recordset& row, Estimate& estimate) {
  estimate.EstimateNumber = row.Long("EstimateNumber");
  estimate.CustomerNumber = row.Long("CustomerNumber");
  estimate.VehicleLink = row.Long("VehicleLink");
  estimate.SchedDate = row.Date("SchedDate");
  estimate.StartDate = row.Date("StartDate", -1);
  estimate.StopDate = row.Date("StopDate", -1);
  estimate.Status = AsShort(row.Long("Status"));
  estimate.Mechanic = row.Long("Mechanic");
  estimate.TotalPrice = row.Number("TotalPrice");
  estimate.Comments = row.Text("Comments");
  estimate.CreateDate = row.Date("CreateDate");
  estimate.VehYear = Trim(row.Text("VehYear"));
  estimate.VehMake = Trim(row.Text("VehMake"));
  estimate.VehModel = Trim(row.Text("VehModel"));
  estimate.VehVIN = Trim(row.Text("VehVIN"));
  estimate.VehLic = Trim(row.Text("VehLic"));
  estimate.VehDate = Trim(row.Text("VehDate"));
  estimate.VehMileage = Trim(row.Text("VehMileage"));
  estimate.VehEng = Trim(row.Text("VehEng"));
  estimate.VehTrans = Trim(row.Text("VehTrans"));
}

std::int32_t modEstimates::CreateEstimate(DaySerial date, std::int16_t status) {
  const std::int32_t number = TakeNumber();
  AddRow(number, date, status);
  return number;
}

std::int32_t modEstimates::TakeNumber() {
  const std::optional<std::int32_t> taken =
      system_.TakeFreeNumber(sysrec::last_estimate_number, [this](std::int32_t each) { return IsOnFile(each); },
                             {.found = {}, .beforehand = {}, .highest = [this] { return Highest(); }});
  if (!taken) throw std::runtime_error("The estimate was given no number. No estimate was made.");
  return *taken;
}

void modEstimates::AddRow(std::int32_t number, DaySerial date, std::int16_t status) {
  Recordset& table = de_.Rs("EstimatesTable");
  if (!table.IsOpen()) de_.EstimatesTable(date);
  de_.AddEstimateRow(number, date, status);
  table.Close();
}

bool modEstimates::IsOnFile(std::int32_t number) {
  Recordset& row = de_.EstimateByNumber(number);
  const bool isThere = !row.Eof();
  row.Close();
  return isThere;
}

std::int32_t modEstimates::Highest() {
  Recordset& row = de_.HighestEstimate(kHighestNumber);
  const std::int32_t highest = row.Eof() ? 0 : row.Long("Highest");
  row.Close();
  return highest;
}

void modEstimates::CloneEstimateContents(std::int32_t oldNumber, std::int32_t newNumber) {
  de_.Connection().Apart([&] {
    de_.CloneEstimate(oldNumber, newNumber);
    de_.CloneParts(newNumber, oldNumber);
    de_.CloneLabors(newNumber, oldNumber);
    de_.CloneNotes(newNumber, oldNumber);
    de_.CloneSublets(newNumber, oldNumber);
    de_.CloneWaste(newNumber, oldNumber);
  });
}

void modEstimates::SaveStatus() { de_.SetStatus(CurrentEstimate.Status, CurrentEstimate.EstimateNumber); }

void modEstimates::ChangeStatus(std::int16_t status) {
  const std::int16_t old = std::exchange(CurrentEstimate.Status, status);
  try {
    SaveStatus();
  } catch (...) {
    CurrentEstimate.Status = old;
    throw;
  }
}

std::string modEstimates::StatusText(std::int16_t& status, DaySerial schedDate) const {
  if (status == kScheduled && schedDate < environment_.Today()) status = kNoShow;
  return std::string(StatusWord(status));
}

std::string_view modEstimates::StatusWord(std::int16_t status) {
  const StatusRow* row = FindStatus(status);
  return row == nullptr ? "Unknown" : row->word;
}

bool modEstimates::CountsTowardDay(std::int16_t status) {
  const StatusRow* row = FindStatus(status);
  return row != nullptr && row->countsTowardDay;
}

}  // namespace lantos
