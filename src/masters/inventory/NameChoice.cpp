#include "masters/inventory/NameChoice.h"

#include <algorithm>
#include <utility>

#include "frame/Text.h"
#include "masters/inventory/NewNames.h"

namespace lantos {

namespace {

constexpr const char* kNew = "<New>";
constexpr int kFirstName = 1;  // row

}  // namespace

const NameKind kDepartmentNames{"Unrecognized department specified!", &AddDepartment};
const NameKind kManufacturerNames{"Unrecognized manufacturer specified!", &AddManufacturer};

NameChoice::NameChoice(Shop& shop, ui::ComboBox& combo, const NameList& names, const NameKind& kind)
    : shop_(shop), combo_(combo), names_(names), kind_(kind) {
  combo_.SetEditable(true);
  combo_.OnChange = [this] { Chosen(); };
  combo_.OnClick = [this] {
    if (combo_.ListIndex() == 0) return AddNew();
    Chosen();
  };
  combo_.OnKeyDown = [this](ui::KeyPress& key) { PassOverNew(key); };
  combo_.OnValidate = [this](bool& keepFocus) { keepFocus = Check() == Entry::ToCorrect; };
}

// The text stays, and the row that bears it becomes current.
void NameChoice::Fill() {
  const bool wasBusy = std::exchange(busy_, true);
  const std::string text = combo_.Text();
  combo_.Clear();
  combo_.AddItem(kNew);
  for (const std::string& name : names_.Names()) combo_.AddItem(name);
  combo_.SetText("");
  combo_.SetText(text);
  busy_ = wasBusy;
}

void NameChoice::TakeAsKnown() { known_ = before_ = combo_.Text(); }

void NameChoice::Chosen() {
  if (busy_ || combo_.Text() == before_) return;
  if (combo_.Text() != kNew) before_ = combo_.Text();
  if (onChange) onChange();
}

void NameChoice::AddNew() {
  if (busy_) return;
  busy_ = true;
  int place = -1;
  try {
    place = kind_.add(shop_);
  } catch (...) {
    busy_ = false;
    combo_.SetText(before_);
    throw;
  }
  Fill();
  combo_.SetText(place < 0 ? before_ : names_.Names().at(static_cast<std::size_t>(place)));
  busy_ = false;
  Chosen();
}

// In the closed list an arrow chooses at once: whoever walks the names would be asked for a new one.
void NameChoice::PassOverNew(ui::KeyPress& key) {
  const int row = combo_.ListIndex();
  const bool leadsToNew = key.Is("Up") ? row <= kFirstName : key.Is("Down") && row < 0;
  if (combo_.DroppedRow() || !leadsToNew) return;
  key.Clear();
  if (row < 0 && combo_.ListCount() > kFirstName) combo_.DoSelect(kFirstName);
}

bool NameChoice::IsListed(const std::string& name) const {
  return std::find(names_.Names().begin(), names_.Names().end(), name) != names_.Names().end();
}

NameChoice::Entry NameChoice::Check() {
  if (combo_.Text() == kNew) {  // typed letter by letter
    before_ = known_;
    AddNew();
  }
  const std::string name = Trim(combo_.Text());
  if (name.empty() || name == known_ || IsListed(name)) return Entry::Known;
  if (shop_.desktop.Ask(std::string(kind_.refusal), "Ingredient - Store Location", ui::Buttons::RetryCancel) ==
      ui::Answer::Retry) {
    return Entry::ToCorrect;
  }
  combo_.SetText(known_);
  return Entry::PutBack;
}

}  // namespace lantos
