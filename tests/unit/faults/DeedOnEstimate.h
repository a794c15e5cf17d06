#pragma once

#include "faults/Deed.h"

namespace lantos::test {

template <class Bench>
struct OnEstimate : DeedOn<Bench> {
  EstimateDatabase* Database() override { return &this->database; }
};

}  // namespace lantos::test
