#include "estimatedb/postgres/OwnChanges.h"

#include <fmt/format.h>

#include <random>

namespace lantos {

namespace {

std::string NewName() {
  std::random_device random;
  return fmt::format("{:08x}{:08x}", random(), random());
}

}  // namespace

OwnChanges::OwnChanges() : name_(NewName()) {}

void OwnChanges::Doubt() {
  name_ = NewName();
  ++doubts_;
}

}  // namespace lantos
