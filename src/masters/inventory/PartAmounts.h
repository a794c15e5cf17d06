#pragma once

#include <cstdint>
#include <deque>
#include <string>

#include "records/inventory/InventoryLayout.h"
#include "screens/NumberFields.h"

namespace lantos {

// The boxes of a part's numbers. Money stands there as "0.00", rates as "0.0000", levels of stock as whole numbers. A
// number that the person didn't change isn't stored.
class PartAmounts {
 public:
  PartAmounts(ui::Form& form, NumberFields& numbers) : form_(form), numbers_(numbers) {}
  PartAmounts(const PartAmounts&) = delete;

  // name is what messages and screen readers call the box. Wired after the screen's own procedures.
  void AddMoney(ui::TextBox& box, LongField field, const std::string& name);
  void AddRate(ui::TextBox& box, LongField field, const std::string& name);
  void AddLevel(ui::TextBox& box, IntegerField field, const std::string& name);

  void Show(const InventoryRecord& part);
  // False when a box holds no number, or one that its field can't hold: the first has been told of and has the focus.
  bool CanBeStored();
  // Behind CanBeStored.
  void Store(InventoryRecord& part) const;

 private:
  struct Amount {
    ui::TextBox& box;
    std::string name;
    int decimals;
    std::int32_t least, most;  // that the field holds
    std::size_t offset;
    std::int32_t shown = 0;  // as stored, in units of the last decimal
  };
  void Add(const Amount& amount, std::size_t longest);
  static std::int32_t ValueIn(const Amount& amount);
  static bool Fits(const Amount& amount);

  ui::Form& form_;
  NumberFields& numbers_;
  std::deque<Amount> amounts_;
};

// What a text of money is stored as; a text that is no number is 0.
Cents CentsIn(const std::string& text);

}  // namespace lantos
