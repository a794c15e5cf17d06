#pragma once

#include <cstdint>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>

#include "frame/FileIO.h"
#include "frame/Types.h"

namespace lantos {

enum class ExportKind { Estimates, Customers, Vehicles, Parts, Labor };

// How many of how many rows are done. What it throws ends the work.
using TellRows = std::function<void(std::uint64_t done, std::uint64_t of)>;

// One list of the shop as comma-separated values (frame/CsvText.h) with a heading. Money is in dollars with two places,
// hours likewise, days as 2003-09-30, a day that is none is empty. Others may work meanwhile. Throws FileError,
// DatabaseError.
std::string ShopAsCsv(const FileIO& files, ExportKind kind, const TellRows& tell);
// The same rows as objects with the names of the heading: numbers, hours and money as numbers, a day that is none as
// null.
nlohmann::ordered_json ShopAsJson(const FileIO& files, ExportKind kind, const TellRows& tell);

enum class EventKind { Day, Estimate };

// The appointments of a span of days, both included, as a calendar (RFC 5545): whole days, one event a day with its
// hours and names, or one an estimate. An event of the same day or estimate of a shop has the same name each time, so
// that a calendar that reads it again changes its own; shops are told apart by their names and zip codes. Cancelled and
// rescheduled ones aren't in it. Throws as above.
std::string ShopAsCalendar(const FileIO& files, DaySerial first, DaySerial last, EventKind kind, const TellRows& tell);

}  // namespace lantos
