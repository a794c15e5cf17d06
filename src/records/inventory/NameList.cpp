#include "records/inventory/NameList.h"

#include <utility>

#include "frame/Text.h"
#include "records/TextLines.h"
#include "records/inventory/InventoryLayout.h"

namespace lantos {

void NameList::Load() {
  names_.clear();
  const auto lines = ReadTextLines(environment_, file_);
  if (!lines || lines->empty()) return;
  const std::string& line = lines->front();
  for (std::size_t at = 0; at < line.size(); at += kNameColumn) {
    names_.push_back(TrimNull(std::string_view(line).substr(at, kNameColumn)));
  }
}

void NameList::Add(std::string_view name) {
  std::vector<std::string> names = names_;
  names.push_back(Left(Trim(name), kNameColumn));
  std::string line;
  for (const std::string& each : names) line += LeftJustify(each, kNameColumn);
  WriteTextLines(environment_, file_, {line});
  names_ = std::move(names);
}

}  // namespace lantos
