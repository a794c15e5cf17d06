#include "masters/inventory/PartAmounts.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "frame/Numbers.h"

namespace lantos {

namespace {

constexpr int kMoney = 2;  // decimals
constexpr int kRate = 4;
constexpr int kLevel = 0;
constexpr std::size_t kLongestNumber = 12;  // "-21474836.48"
constexpr std::size_t kLongestLevel = 6;    // "-32768"

double Units(int decimals) { return decimals == kMoney ? 100 : decimals == kRate ? 10000 : 1; }

std::string Text(std::int32_t value, int decimals) {
  return decimals == kMoney  ? FormatHundredths(value)
         : decimals == kRate ? FormatTenThousandths(value)
                             : std::to_string(value);
}

}  // namespace

Cents CentsIn(const std::string& text) { return RoundHalfEven(Val(text) * Units(kMoney)); }

void PartAmounts::AddMoney(ui::TextBox& box, LongField field, const std::string& name) {
  using Long = std::numeric_limits<std::int32_t>;
  Add({box, name, kMoney, Long::min(), Long::max(), field.offset}, kLongestNumber);
}

void PartAmounts::AddRate(ui::TextBox& box, LongField field, const std::string& name) {
  using Long = std::numeric_limits<std::int32_t>;
  Add({box, name, kRate, Long::min(), Long::max(), field.offset}, kLongestNumber);
}

void PartAmounts::AddLevel(ui::TextBox& box, IntegerField field, const std::string& name) {
  using Integer = std::numeric_limits<std::int16_t>;
  Add({box, name, kLevel, Integer::min(), Integer::max(), field.offset}, kLongestLevel);
}

void PartAmounts::Add(const Amount& amount, std::size_t longest) {
  amounts_.push_back(amount);
  amount.box.SetMaxLength(longest);
  amount.box.SetSpokenName(amount.name);
  numbers_.Add(amount.box, amount.name);
}

void PartAmounts::Show(const InventoryRecord& part) {
  for (Amount& amount : amounts_) {
    amount.shown =
        amount.decimals == kLevel ? part.Get(IntegerField{amount.offset}) : part.Get(LongField{amount.offset});
    amount.box.SetText(Text(amount.shown, amount.decimals));
  }
}

bool PartAmounts::Fits(const Amount& amount) {
  const double value = std::nearbyint(Val(amount.box.Text()) * Units(amount.decimals));
  return value >= amount.least && value <= amount.most;
}

std::int32_t PartAmounts::ValueIn(const Amount& amount) {
  return RoundHalfEven(Val(amount.box.Text()) * Units(amount.decimals));
}

bool PartAmounts::CanBeStored() {
  if (!numbers_.AreNumbers()) return false;
  const auto wrong = std::find_if_not(amounts_.begin(), amounts_.end(), Fits);
  if (wrong == amounts_.end()) return true;
  form_.GetDesktop().Tell(wrong->name + ": \"" + wrong->box.Text() + "\" can't be stored. It must be from " +
                              Text(wrong->least, wrong->decimals) + " to " + Text(wrong->most, wrong->decimals) + ".",
                          form_.Caption(), ui::Icon::Exclamation);
  wrong->box.SetFocus();
  return false;
}

void PartAmounts::Store(InventoryRecord& part) const {
  for (const Amount& amount : amounts_) {
    const std::int32_t value = ValueIn(amount);
    if (value == amount.shown) continue;
    if (amount.decimals == kLevel) {
      part.Put(IntegerField{amount.offset}, static_cast<std::int16_t>(value));
    } else {
      part.Put(LongField{amount.offset}, value);
    }
  }
}

}  // namespace lantos
