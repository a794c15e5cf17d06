#pragma once

#include <vector>

#include "shopmaker/Random.h"
#include "shopmaker/SampleShop.h"

namespace lantos::sample {

// Who worked in the shop when.
class Crew {
 public:
  explicit Crew(const SampleShop& shop);

  // The number of one of those at work on a day; who is longest with the shop also did what lies before everybody's
  // time.
  std::int32_t Pick(Random& random, DaySerial day) const;

 private:
  struct Member {
    std::int32_t number;
    DaySerial hired, left;
  };
  std::vector<Member> members_;
};

}  // namespace lantos::sample
