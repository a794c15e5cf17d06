#pragma once

#include <string>

#include "estimatedb/engine/Recordset.h"
#include "printing/ReportLines.h"
#include "records/LaborText.h"

namespace lantos {

// How what an estimate holds reads on every paper.

// The lines of a labor description, each as long as its field at most.
LaborText LaborOnPaper(std::string_view description);
// A part, with its number ahead or without.
enum class PartNumber { Shown, Hidden };
std::string PartOnPaper(const Recordset& part, PartNumber number);
// The notes under their heading, a row for each line with text. False, and nothing added, when there are none. Closes
// the rows.
bool AddNotes(ReportLines& lines, Recordset& rows);

}  // namespace lantos
