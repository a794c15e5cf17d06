#include "records/TextLines.h"

#include <span>

#include "records/OpenedFile.h"

namespace lantos {

namespace {

std::vector<std::string> LinesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = text.find_first_of("\r\n");
    lines.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos) break;
    const bool pair = text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n';
    text.remove_prefix(end + (pair ? 2 : 1));
  }
  return lines;
}

}  // namespace

std::optional<std::vector<std::string>> ReadTextLines(Environment& environment, std::string_view name) {
  if (!environment.files.IsThere(name)) return std::nullopt;
  OpenedFile file(environment.openFiles, name, Access::Read, Deny::All);
  std::string text(file->Length(), '\0');
  text.resize(file->ReadAt(0, std::as_writable_bytes(std::span(text))));
  return LinesOf(text);
}

void WriteTextLines(Environment& environment, std::string_view name, const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  OpenedFile file(environment.openFiles, name, Access::Write, Deny::All);
  file->WriteAt(0, std::as_bytes(std::span(text)));
  file->Truncate(text.size());
}

}  // namespace lantos
