#include "ui/Documents.h"

#include <unistd.h>

#include "frame/FileIO.h"
#include "frame/Text.h"

namespace lantos::ui {

std::string PlainDocument(std::string_view path) {
  std::string plain(path);
  std::erase(plain, '"');
  return Trim(plain);
}

bool IsAddress(std::string_view plain) {
  return Contains(plain, "://") || plain.starts_with("mailto:") || plain.starts_with("www.");
}

std::filesystem::path FileOfDocument(std::string_view plain) { return PlatformPath(plain); }

bool IsProgram(const std::filesystem::path& file) {
  std::error_code ignored;
  return std::filesystem::is_regular_file(file, ignored) && ::access(file.c_str(), X_OK) == 0;
}

int LookAtDocument(std::string_view path) {
  const std::string plain = PlainDocument(path);
  if (IsAddress(plain)) return kOpened;
  const std::filesystem::path file = FileOfDocument(plain);
  std::error_code ignored;
  if (!std::filesystem::exists(file, ignored)) {
    const bool hasFolder = !file.has_parent_path() || std::filesystem::is_directory(file.parent_path(), ignored);
    return hasFolder ? kFileNotFound : kPathNotFound;
  }
  if (std::filesystem::is_directory(file, ignored)) return kOpened;
  if (::access(file.c_str(), R_OK) != 0) return kAccessDenied;
  // Nothing can be associated with a file that has no extension and is no program.
  const bool hasExtension = Contains(file.filename().string(), ".");
  return hasExtension || IsProgram(file) ? kOpened : kNoAssociation;
}

}  // namespace lantos::ui
