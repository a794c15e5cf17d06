#include "records/TextLines.h"

#include <span>

#include "frame/UnfitFile.h"
#include "records/OpenedFile.h"
#include "records/TextLineReader.h"

namespace lantos {

std::optional<std::vector<std::string>> ReadTextLines(Environment& environment, std::string_view name, Deny deny) {
  if (!environment.files.IsThere(name)) return std::nullopt;
  OpenedFile file(environment.openFiles, name, Access::Read, deny);
  RefuseTooLong(environment.files.PathOf(name), file->Length(), kLongestTextFile);
  std::vector<std::string> lines;
  TextLineReader reader(*file, 0, name);
  for (std::string line; reader.Next(line);) lines.push_back(line);
  return lines;
}

void WriteTextLines(Environment& environment, std::string_view name, const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  OpenedFile file(environment.openFiles, name, Access::Write, Deny::All);
  file->WriteAt(0, std::as_bytes(std::span(text)));
  file->Truncate(text.size());
}

}  // namespace lantos
