#include "frame/PlainWords.h"

#include <filesystem>
#include <new>
#include <system_error>

#include "frame/PathText.h"

namespace lantos {

std::string WordsFor(const std::exception& error) {
  if (const auto* plain = dynamic_cast<const PlainWords*>(&error)) return plain->Words();
  if (const auto* file = dynamic_cast<const std::filesystem::filesystem_error*>(&error)) {
    return "A file or directory can't be used: " + TextOfPath(file->path1()) + ". The run log has the reason.";
  }
  if (dynamic_cast<const std::system_error*>(&error) != nullptr) {
    return "The system refused what was asked for. The run log has the reason.";
  }
  if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr) return "There isn't memory enough for that.";
  return error.what();
}

}  // namespace lantos
