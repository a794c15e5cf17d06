#pragma once

#include <filesystem>
#include <string>

namespace lantos {

// Whose a run log is, for whoever reads it later. It stands beside the log's bytes, in an attribute of the file: what
// is written down stays as it is. Where the file system has no such attributes the log is nobody's.
struct LogOwner {
  std::string workstation;  // both in the program's page; empty where nobody knows
  std::string user;
};

// Never reports. Names that hold an end of line are cut there.
void SignLog(const std::filesystem::path& log, const LogOwner& owner) noexcept;
LogOwner OwnerOfLog(const std::filesystem::path& log);

}  // namespace lantos
