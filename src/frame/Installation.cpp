#include "frame/Installation.h"

#include <cerrno>

namespace lantos {

std::filesystem::path InstalledFolder(std::string_view folder) {
  std::error_code ignored;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", ignored);
  return program.parent_path().parent_path() / "share" / "lantos" / folder;
}

std::string ProgramName() { return std::filesystem::path(program_invocation_short_name).stem().string(); }

}  // namespace lantos
