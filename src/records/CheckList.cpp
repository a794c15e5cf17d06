#include "records/CheckList.h"

#include "frame/Text.h"
#include "records/TextLines.h"

namespace lantos {

void CheckListTable::LoadChecklistFile() {
  if (fileRead_) return;
  const auto lines = ReadTextLines(environment_, kCheckListFile);
  if (!lines) return;
  for (const std::string& line : *lines) {
    ChecklistItem item;
    item.Name = Trim(std::string_view(line).substr(0, line.find(',')));  // what stands behind a comma doesn't count
    if (item.Name.empty()) continue;
    items.push_back(std::move(item));
    fileRead_ = true;
  }
}

void CheckListTable::ClearCheckListValues() {
  for (ChecklistItem& item : items) {
    item.Used = false;
    item.Service.clear();
    item.DueBackMiles.clear();
  }
  ChecklistLoaded = false;
}

int CheckListTable::Find(std::string_view name) const {
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (items[i].Name == name) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace lantos
