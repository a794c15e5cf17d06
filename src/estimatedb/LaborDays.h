#pragma once

#include "estimatedb/de.h"

namespace lantos {

// The rows of TechHours in the order of their days. Over ten years the engine sorts half a million lines for them,
// since they are grouped by columns of two tables. So the database keeps the lines that count in a table of its own,
// LaborDays, ordered by day and technician: triggers follow each change in it, whichever program makes the change. The
// first look makes the table; where that can't be done (another copy is writing, the disk is full, nothing may be
// written) the rows come from TechHours itself. Throws DatabaseError.
Recordset& KeptTechHours(de& database);

}  // namespace lantos
