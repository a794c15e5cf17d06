#pragma once

#include <string>

#include "frame/FileIO.h"
#include "frame/Types.h"

namespace lantos {

enum class ExportKind { Estimates, Customers, Vehicles, Parts, Labor };

// One list of the shop as comma-separated values (frame/CsvText.h) with a heading. Money is in dollars with two places,
// hours likewise, days as 2003-09-30, a day that is none is empty. Others may work meanwhile. Throws FileError,
// DatabaseError.
std::string ShopAsCsv(const FileIO& files, ExportKind kind);

enum class EventKind { Day, Estimate };

// The appointments of a span of days, both included, as a calendar (RFC 5545): whole days, one event a day with its
// hours and names, or one an estimate. An event of the same day or estimate has the same name each time, so that a
// calendar that reads it again changes its own. Cancelled and rescheduled ones aren't in it. Throws as above.
std::string ShopAsCalendar(const FileIO& files, DaySerial first, DaySerial last, EventKind kind);

}  // namespace lantos
