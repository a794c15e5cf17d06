#include "records/inventory/NameList.h"

#include <algorithm>
#include <span>
#include <utility>

#include "frame/ReplaceContent.h"
#include "frame/Text.h"
#include "records/Patience.h"
#include "records/TextLineReader.h"
#include "records/TextLines.h"
#include "records/inventory/InventoryLayout.h"

namespace lantos {

namespace {

std::vector<std::string> NamesIn(std::string_view line) {
  std::vector<std::string> names;
  for (std::size_t at = 0; at < line.size(); at += kNameColumn) {
    names.push_back(TrimNull(line.substr(at, kNameColumn)));
  }
  return names;
}

std::string LineOf(const std::vector<std::string>& names) {
  std::string line;
  for (const std::string& each : names) line += LeftJustify(each, kNameColumn);
  return line + "\r\n";
}

bool IsAmong(const std::vector<std::string>& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

void NameList::Load() {
  names_.clear();
  const auto lines = ReadTextLines(environment_, file_);
  if (lines && !lines->empty()) names_ = NamesIn(lines->front());
}

std::size_t NameList::Add(std::string_view name) {
  const std::string added = Trim(Left(Trim(name), kNameColumn));
  OpenedFile file(environment_.openFiles);
  OpenPatiently(file, environment_, file_, Access::ReadWrite, Deny::All);
  std::string line;
  TextLineReader(*file).Next(line);
  std::vector<std::string> names = Together(NamesIn(line));
  names.push_back(added);
  const std::string text = LineOf(names);
  ReplaceContent(*file, std::as_bytes(std::span(text)));
  file.Close();
  names_ = std::move(names);
  return names_.size() - 1;
}

std::vector<std::string> NameList::Together(const std::vector<std::string>& onFile) const {
  std::vector<std::string> names = names_;
  for (const std::string& each : onFile) {
    if (!IsAmong(names, each)) names.push_back(each);
  }
  return names;
}

}  // namespace lantos
