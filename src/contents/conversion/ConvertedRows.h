#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "estimatedb/EstimateDatabase.h"
#include "workorders/ConversionJournal.h"
#include "workorders/OrderFilling.h"

namespace lantos {

// The lines of an estimate as a conversion sells them, read at one moment: what leaves the stock and what is written
// goes by the same lines, whatever other copies make of the estimate meanwhile.
class ConvertedRows {
 public:
  // Throws DatabaseError.
  ConvertedRows(de& data, std::int32_t estimate);

  // From the first one.
  const Recordset& Parts() const { return parts_; }
  // All others, in the order of a work order's sections. Throws as OrderFilling does.
  void TakeOthers(OrderFilling& filling);
  // Of these parts those that the lines don't have, or not in this quantity.
  std::vector<std::string> Lacking(const std::vector<JournaledPart>& parts) const;
  // One number for all of the lines, and for what else of the estimate a work order tells: day, customer, vehicle.
  std::uint64_t Contents(const Estimate& estimate);

 private:
  Recordset parts_, labor_, sublets_, waste_, notes_;
};

}  // namespace lantos
