#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "estimatedb/modEstimates.h"
#include "records/Customers.h"

namespace lantos {

// The lines that an estimate gives in the lists of week and day. A customer that is null is unknown.

// Last name, comma, first name: the stored form, cut at 32 characters.
std::string ListedName(const CustomerRecord* customer);

// In fixed columns: number, name, phones, vehicle, hours. The only line that doesn't begin with a blank.
std::string MainLine(const Estimate& estimate, const CustomerRecord* customer);
// Empty when there are none, or blanks alone.
std::string CommentLine(const Estimate& estimate);
std::string StatusLine(const Estimate& estimate, std::string_view word);
// The current row of Labors, with the first line of its description.
std::string LaborLine(const Recordset& labor);

}  // namespace lantos
