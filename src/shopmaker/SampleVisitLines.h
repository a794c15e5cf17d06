#pragma once

#include <string_view>

#include "shopmaker/PartShelf.h"
#include "shopmaker/SampleCrew.h"

namespace lantos::sample {

// What was done at a visit of earlier years, in lines as an estimate has them.
class VisitLines {
 public:
  VisitLines(const SampleShop& shop, const Crew& crew) : shop_(shop), crew_(crew), shelf_(shop) {}

  // The parts fit the make, at the customer's prices.
  SampleEstimate Imagine(Random& random, const SampleWorkorder& order, std::string_view make) const;

 private:
  Cents RateThen(DaySerial day) const;  // an hour was cheaper in earlier years
  void AddPart(Random& random, const SampleWorkorder& order, const JobPart& wanted, std::string_view make,
               SampleEstimate& visit) const;

  const SampleShop& shop_;
  const Crew& crew_;
  const PartShelf shelf_;
};

}  // namespace lantos::sample
