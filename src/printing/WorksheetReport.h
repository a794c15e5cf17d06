#pragma once

#include <string>

#include "estimatedb/EstimateDatabase.h"
#include "printing/ReportLines.h"
#include "records/Customers.h"
#include "shop/Records.h"
#include "ui/Report.h"

namespace lantos {

// The paper that travels with the vehicle: what is to be done on the current estimate, room to log hours and parts, and
// what was done to the vehicle before.
class WorksheetReport {
 public:
  WorksheetReport(Environment& environment, ui::Desktop& desktop, Records& records, EstimateDatabase& database)
      : environment_(environment), desktop_(desktop), records_(records), database_(database) {}

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
  ui::Desktop& desktop_;
  Records& records_;
  EstimateDatabase& database_;
};

}  // namespace lantos
