#include "frame/Version.h"

namespace lantos {

namespace {

constexpr int kVersionEra = 2000;

}  // namespace

std::string ProgramVersion() {
  return std::to_string(LANTOS_VERSION_MAJOR + kVersionEra) + "." + std::to_string(LANTOS_VERSION_MINOR) + "." +
         std::to_string(LANTOS_VERSION_REVISION);
}

}  // namespace lantos
