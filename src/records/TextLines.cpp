#include "records/TextLines.h"

#include <span>

#include "frame/ReplaceContent.h"
#include "frame/UnfitFile.h"
#include "records/OpenedFile.h"
#include "records/TextLineReader.h"

namespace lantos {

namespace {

// Room that was taken for a text that never came: behind the last line's end nothing is room.
void DropRoom(const SharedFile& file, std::vector<std::string>& lines) {
  std::byte end{1};
  if (!lines.empty()) file.ReadAt(file.Length() - 1, std::span(&end, 1));
  if (end != std::byte{0}) return;
  std::string& last = lines.back();
  last.erase(last.find_last_not_of('\0') + 1);
  if (last.empty()) lines.pop_back();
}

}  // namespace

std::optional<std::vector<std::string>> ReadTextLines(Environment& environment, std::string_view name, Deny deny) {
  if (!environment.files.IsThere(name)) return std::nullopt;
  OpenedFile file(environment.openFiles, name, Access::Read, deny);
  return TextLinesIn(environment, *file, name);
}

std::vector<std::string> TextLinesIn(Environment& environment, const SharedFile& file, std::string_view name) {
  RefuseTooLong(environment.files.PathOf(name), file.Length(), kLongestTextFile);
  std::vector<std::string> lines;
  TextLineReader reader(file, 0, name);
  for (std::string line; reader.Next(line);) lines.push_back(line);
  DropRoom(file, lines);
  return lines;
}

void PutTextLines(SharedFile& file, const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  ReplaceContent(file, std::as_bytes(std::span(text)));
}

}  // namespace lantos
