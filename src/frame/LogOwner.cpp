#include "frame/LogOwner.h"

#include <fmt/format.h>

namespace lantos {

namespace {

constexpr std::string_view kOfWorkstation = "Workstation: ";
constexpr std::string_view kOfUser = ", user: ";

}  // namespace

std::string WorkstationLine(std::string_view workstation, std::string_view user) {
  return fmt::format("{}{}{}{}", kOfWorkstation, workstation, kOfUser, user);
}

bool ParseWorkstationLine(std::string_view line, std::string& workstation, std::string& user) {
  const std::size_t behind = line.rfind(kOfUser);
  if (!line.starts_with(kOfWorkstation) || behind == std::string_view::npos) return false;
  workstation = line.substr(kOfWorkstation.size(), behind - kOfWorkstation.size());
  user = line.substr(behind + kOfUser.size());
  return true;
}

}  // namespace lantos
