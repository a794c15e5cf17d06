#include "records/TextLines.h"

#include <span>

#include "frame/ReplaceContent.h"
#include "frame/UnfitFile.h"
#include "records/OpenedFile.h"
#include "records/TextLineReader.h"

namespace lantos {

namespace {

// Room that was taken for a text that never came.
void DropRoom(std::vector<std::string>& lines) {
  if (lines.empty() || !lines.back().ends_with('\0')) return;
  std::string& last = lines.back();
  last.erase(last.find_last_not_of('\0') + 1);
  if (last.empty()) lines.pop_back();
}

}  // namespace

std::optional<std::vector<std::string>> ReadTextLines(Environment& environment, std::string_view name, Deny deny) {
  if (!environment.files.IsThere(name)) return std::nullopt;
  OpenedFile file(environment.openFiles, name, Access::Read, deny);
  RefuseTooLong(environment.files.PathOf(name), file->Length(), kLongestTextFile);
  std::vector<std::string> lines;
  TextLineReader reader(*file, 0, name);
  for (std::string line; reader.Next(line);) lines.push_back(line);
  DropRoom(lines);
  return lines;
}

void WriteTextLines(Environment& environment, std::string_view name, const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  OpenedFile file(environment.openFiles, name, Access::ReadWrite, Deny::All);
  ReplaceContent(*file, std::as_bytes(std::span(text)));
}

}  // namespace lantos
