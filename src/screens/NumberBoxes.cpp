#include "screens/NumberBoxes.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

#include "frame/Numbers.h"
#include "screens/EnterBoxAnew.h"

namespace lantos {

namespace {

constexpr int kMoney = 2;  // decimals
constexpr int kRate = 4;
constexpr int kWhole = 0;
constexpr std::size_t kLongestNumber = 12;  // "-21474836.48"
constexpr std::size_t kLongestLevel = 6;    // "-32768"
constexpr std::size_t kLongestCount = 3;    // "255"

using Long = std::numeric_limits<std::int32_t>;
using Integer = std::numeric_limits<std::int16_t>;
using Byte = std::numeric_limits<std::uint8_t>;

double Units(int decimals) { return decimals == kMoney ? 100 : decimals == kRate ? 10000 : 1; }

std::string Text(std::int32_t value, int decimals) {
  return decimals == kMoney  ? FormatHundredths(value)
         : decimals == kRate ? FormatTenThousandths(value)
                             : std::to_string(value);
}

// A half is one as it reads: 0.575 times 100 comes out a hair below 57.5.
double InUnits(const std::string& text, int decimals) {
  constexpr double kNoise = 4e-15;
  const double product = Val(text) * Units(decimals);
  const double half = std::round(product * 2) / 2;
  return std::fabs(product - half) <= std::fabs(product) * kNoise ? half : product;
}

}  // namespace

void NumberBoxes::AddMoney(ui::TextBox& box, LongField field, const std::string& name) {
  Add({box, name, kMoney, Long::min(), Long::max(), Lies::InLong, field.offset}, kLongestNumber);
}

void NumberBoxes::AddRate(ui::TextBox& box, LongField field, const std::string& name) {
  Add({box, name, kRate, Long::min(), Long::max(), Lies::InLong, field.offset}, kLongestNumber);
}

void NumberBoxes::AddLevel(ui::TextBox& box, IntegerField field, const std::string& name) {
  Add({box, name, kWhole, Integer::min(), Integer::max(), Lies::InInteger, field.offset}, kLongestLevel);
}

void NumberBoxes::AddCount(ui::TextBox& box, ByteField field, const std::string& name) {
  Add({box, name, kWhole, Byte::min(), Byte::max(), Lies::InByte, field.offset}, kLongestCount);
}

void NumberBoxes::AddMoney(ui::TextBox& box, const std::string& name) {
  Add({box, name, kMoney, Long::min(), Long::max()}, kLongestNumber);
}

void NumberBoxes::Add(const Number& number, std::size_t longest) {
  boxes_.push_back(number);
  number.box.SetMaxLength(longest);
  number.box.SetSpokenName(number.name);
  numbers_.Add(number.box, number.name);
}

void NumberBoxes::Show(Number& number, std::int32_t value) {
  number.shown = value;
  number.box.SetText(Text(value, number.decimals));
}

bool NumberBoxes::Fits(const Number& number) {
  const double value = std::nearbyint(InUnits(number.box.Text(), number.decimals));
  return value >= number.least && value <= number.most;
}

std::int32_t NumberBoxes::ValueIn(const Number& number) {
  return RoundHalfEven(InUnits(number.box.Text(), number.decimals));
}

template <class Boxes>
auto& NumberBoxes::NumberIn(Boxes& boxes, const ui::TextBox& box) {
  const auto found = std::find_if(boxes.begin(), boxes.end(), [&](const Number& each) { return &each.box == &box; });
  if (found == boxes.end()) throw std::logic_error(box.FullName() + " isn't among the numbers");
  return *found;
}

void NumberBoxes::ShowValue(const ui::TextBox& box, std::int32_t value) { Show(NumberIn(boxes_, box), value); }

std::int32_t NumberBoxes::ValueIn(const ui::TextBox& box) const { return ValueIn(NumberIn(boxes_, box)); }

bool NumberBoxes::IsChanged(const ui::TextBox& box) const { return IsChanged(NumberIn(boxes_, box)); }

bool NumberBoxes::CanBeStored() {
  if (!numbers_.AreNumbers()) return false;
  const auto wrong = std::find_if_not(boxes_.begin(), boxes_.end(), Fits);
  if (wrong == boxes_.end()) return true;
  form_.GetDesktop().Tell(wrong->name + ": \"" + wrong->box.Text() + "\" can't be stored. It must be from " +
                              Text(wrong->least, wrong->decimals) + " to " + Text(wrong->most, wrong->decimals) + ".",
                          form_.Caption(), ui::Icon::Exclamation);
  EnterBoxAnew(form_, wrong->box);
  return false;
}

}  // namespace lantos
