#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "records/inventory/NameList.h"
#include "shop/Shop.h"
#include "ui/Controls.h"

namespace lantos {

// What two drop-downs of one kind differ in.
struct NameKind {
  std::string_view refusal;  // of a name that isn't in the list
  int (*add)(Shop&);         // asks for a new name; its place in the list, or -1
};
extern const NameKind kDepartmentNames;
extern const NameKind kManufacturerNames;

// A drop-down of the shop's departments or manufacturers, with "<New>" on top. What stands in the part's record, and
// no name at all, need not be in the list: they aren't what the person specified.
class NameChoice {
 public:
  // names outlives it. Takes the combo's events.
  NameChoice(Shop& shop, ui::ComboBox& combo, const NameList& names, const NameKind& kind);
  NameChoice(const NameChoice&) = delete;

  std::function<void()> onChange;  // of the person's doing

  void Fill();
  // Behind a change of the text by code: it stands in the record.
  void TakeAsKnown();

  enum class Entry { Known, PutBack, ToCorrect };
  // What leaving the entry comes to. A name that isn't in the list is told of: the person corrects it, or has what
  // stands in the record back.
  Entry Check();

 private:
  void Chosen();
  void AddNew();
  void PassOverNew(ui::KeyPress& key);
  bool IsListed(const std::string& name) const;

  Shop& shop_;
  ui::ComboBox& combo_;
  const NameList& names_;
  const NameKind& kind_;
  std::string known_;   // in the record
  std::string before_;  // what a "<New>" that comes to nothing goes back to
  bool busy_ = false;   // with rows and text of its own
};

}  // namespace lantos
