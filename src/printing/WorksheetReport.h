#pragma once

#include <string>

#include "estimatedb/EstimateDatabase.h"
#include "printing/ReportLines.h"
#include "records/Customers.h"
#include "ui/Report.h"
#include "workorders/Workorders.h"

namespace lantos {

// The paper that travels with the vehicle: what is to be done on the current estimate, room to log hours and parts, and
// what was done to the vehicle before. Reading its past goes through the one current work order.
class WorksheetReport {
 public:
  WorksheetReport(Environment& environment, Records& records, EstimateDatabase& database, Workorders& workorders)
      : environment_(environment), records_(records), database_(database), workorders_(workorders) {}

  ui::Report Make(const CustomerRecord& customer);

 private:
  void ComposeComments(ReportLines& lines) const;
  void ComposeLabor(ReportLines& lines) const;
  void ComposeParts(ReportLines& lines) const;
  void ComposeFollowups(ReportLines& lines) const;

  const Estimate& Current() const { return database_.estimates.CurrentEstimate; }
  std::int32_t Number() const { return Current().EstimateNumber; }
  const PrintOptions& Options() const { return environment_.printOptions; }

  Environment& environment_;
  Records& records_;
  EstimateDatabase& database_;
  Workorders& workorders_;
};

}  // namespace lantos
