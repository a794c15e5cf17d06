#pragma once

#include <string>

#include "estimatedb/EstimateDatabase.h"
#include "printing/ReportLines.h"
#include "records/Customers.h"
#include "shop/Records.h"
#include "ui/Report.h"

namespace lantos {

// As the main window shows them.
struct TotalTexts {
  std::string labor, parts, sublet, waste, tax, total;
};

// The customer's copy of the current estimate. Each group is left out when it has no lines.
class EstimateReport {
 public:
  EstimateReport(Environment& environment, Records& records, EstimateDatabase& database)
      : environment_(environment), records_(records), database_(database) {}

  // With the disclosure statement or without, as the print options say. A disclaimer that isn't there under either
  // name is a FileError.
  ui::Report Make(const CustomerRecord& customer, const TotalTexts& totals) const;

 private:
  void ComposeLabor(ReportLines& lines) const;
  void ComposeParts(ReportLines& lines) const;
  void ComposeExtras(ReportLines& lines, Recordset& rows, const char* heading) const;
  std::string Disclosure() const;

  std::int32_t Number() const { return database_.estimates.CurrentEstimate.EstimateNumber; }

  Environment& environment_;
  Records& records_;
  EstimateDatabase& database_;
};

// The estimate's disclaimer, else the work order's.
std::string ReadDisclaimer(Environment& environment);

}  // namespace lantos
