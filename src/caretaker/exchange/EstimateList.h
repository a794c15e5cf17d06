#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "caretaker/exchange/ShopExport.h"
#include "frame/FileIO.h"
#include "frame/Types.h"

namespace lantos {

// An estimate as a list of the shop shows it. Texts are UTF-8.
struct ListedEstimate {
  std::int64_t number = 0;
  std::optional<DaySerial> day;
  std::int16_t status = 0;
  std::int64_t customer = 0;
  std::string name;  // of the customer
  std::string vehicle;
  std::string license;
  std::string comments;
  std::int64_t hours = 0;  // Hundredths
};

struct ListedLabor {
  std::int64_t estimate = 0;
  std::int64_t line = 0;
  std::string description;
  std::int64_t hours = 0;  // Hundredths
  std::int64_t rate = 0;   // Cents
  std::int64_t total = 0;  // Cents
  std::int64_t mechanic = 0;
};

struct EstimateList {
  std::vector<ListedEstimate> estimates;  // by number
  std::vector<ListedLabor> labor;         // by estimate and line
};

// Both tables as they are at one moment; the rows are told of as they come, none of how many. Throws FileError,
// DatabaseError.
EstimateList ReadEstimateList(const FileIO& files, const TellRows& tell);

}  // namespace lantos
