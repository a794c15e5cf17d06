#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/Environment.h"

namespace lantos {

inline constexpr std::string_view kCheckListFile = "CHECKLST.TXT";

struct ChecklistItem {
  bool Used = false;
  std::string Name;  // as in the file, the brackets of a category included
  std::string Service;
  std::string DueBackMiles;

  bool IsCategory() const { return !Name.empty() && Name.front() == '['; }
};

// The inspection points of the shop, in file order, with the values of one estimate or work order at a time.
class CheckListTable {
 public:
  explicit CheckListTable(Environment& environment) : environment_(environment) {}

  // Fills the table once. Nothing happens when there is no file, or an empty one. FileError when it can't be read.
  void LoadChecklistFile();
  // Unticks every item and empties its values; no values are loaded then.
  void ClearCheckListValues();
  // The index of a name, letter for letter; -1 when there is none.
  int Find(std::string_view name) const;

  std::vector<ChecklistItem> items;
  bool ChecklistLoaded = false;  // the table holds the values of the current estimate

 private:
  Environment& environment_;
  bool fileRead_ = false;
};

}  // namespace lantos
