#include "admin/SystemFields.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "frame/Numbers.h"
#include "frame/Text.h"
#include "screens/EnterBoxAnew.h"

namespace lantos {

namespace {

constexpr int kMoney = 2;  // decimals
constexpr int kRate = 4;
constexpr std::size_t kLongestNumber = 12;  // "999999999.99", "9999999.9999"
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

double Units(int decimals) { return decimals == kMoney ? 100 : 10000; }

std::string Shown(std::int32_t value, int decimals) {
  return decimals == kMoney ? FormatHundredths(value) : FormatTenThousandths(value);
}

// A sign would turn a percent into dollars, and a rate into nothing that is meant.
void AdmitDigits(char& character) {
  const bool isDigit = character >= '0' && character <= '9';
  if (!isDigit && character != '.') character = '\0';
}

// What is behind them would be lost without a word.
bool HasMoreDecimals(std::string_view text, int decimals) {
  text = TrimView(text);
  const std::size_t point = text.find('.');
  return point != std::string_view::npos && text.size() - point - 1 > static_cast<std::size_t>(decimals);
}

// The status line for as long as it lives.
class Status {
 public:
  Status(ui::Desktop& desktop, std::string_view text) : desktop_(desktop) { desktop_.ShowStatus(text); }
  ~Status() { desktop_.ShowStatus(""); }
  Status(const Status&) = delete;

 private:
  ui::Desktop& desktop_;
};

}  // namespace

void SystemFields::AddText(ui::TextBox& box, TextField field, std::size_t width, const std::string& name) {
  box.SetMaxLength(width);
  texts_.push_back({box, field, name, ""});
}

void SystemFields::AddMoney(ui::TextBox& box, LongField field, const std::string& name) {
  Add({.box = box, .field = field, .name = name, .decimals = kMoney, .shownText = ""});
}

void SystemFields::AddRate(ui::TextBox& box, LongField field, const std::string& name) {
  Add({.box = box, .field = field, .name = name, .decimals = kRate, .shownText = ""});
}

void SystemFields::AddSurcharge(ui::TextBox& box, ui::OptionButton& percent, ui::OptionButton& dollars, LongField field,
                                const std::string& name) {
  Add({.box = box,
       .field = field,
       .name = name,
       .decimals = kRate,
       .percent = &percent,
       .dollars = &dollars,
       .shownText = ""});
}

void SystemFields::Add(const Number& number) {
  amounts_.push_back(number);
  number.box.SetMaxLength(kLongestNumber);
  number.box.SetSpokenName(number.name);
  number.box.OnKeyPress = AdmitDigits;
  numbers_.Add(number.box, number.name);
}

void SystemFields::AddYesNo(ui::CheckBox& box, ByteField field, const std::string& name) {
  yesNos_.push_back({box, field, name});
}

void SystemFields::Show(const SystemRecord& record) {
  shown_ = record;
  for (Text& text : texts_) {
    text.shown = record.Get(text.field);
    text.box.SetText(text.shown);
  }
  for (Number& number : amounts_) Show(number, record.Get(number.field));
  for (YesNo& yesNo : yesNos_) {
    yesNo.shown = record.Get(yesNo.field) == 'Y';
    yesNo.box.SetValue(yesNo.shown);
  }
}

void SystemFields::Show(Number& number, std::int32_t value) {
  const bool isDollars = number.dollars != nullptr && value < 0;
  number.shownText =
      isDollars ? FormatFixed(-static_cast<double>(value) / Units(kRate), kMoney) : Shown(value, number.decimals);
  number.box.SetText(number.shownText);
  if (number.dollars != nullptr) (isDollars ? number.dollars : number.percent)->SetValue(true);
  number.shown = ValueIn(number);
}

std::int32_t SystemFields::ValueIn(const Number& number) {
  const std::int32_t value = RoundHalfEven(Val(number.box.Text()) * Units(number.decimals));
  return number.dollars != nullptr && number.dollars->Value() ? -value : value;
}

// What stands there as it came is left alone, whatever it is.
bool SystemFields::Fits(const Number& number) {
  if (number.box.Text() == number.shownText) return true;
  if (HasMoreDecimals(number.box.Text(), number.decimals)) return false;
  const double value = std::nearbyint(Val(number.box.Text()) * Units(number.decimals));
  return value >= 0 && value <= kMost;
}

bool SystemFields::CanBeStored() {
  if (!numbers_.AreNumbers()) return false;
  const auto wrong = std::find_if_not(amounts_.begin(), amounts_.end(), Fits);
  if (wrong == amounts_.end()) return true;
  const std::string limits =
      HasMoreDecimals(wrong->box.Text(), wrong->decimals)
          ? "have at most " + std::to_string(wrong->decimals) + " decimals."
          : "be from " + Shown(0, wrong->decimals) + " to " + Shown(kMost, wrong->decimals) + ".";
  form_.GetDesktop().Tell(wrong->name + ": \"" + wrong->box.Text() + "\" can't be stored. It must " + limits,
                          form_.Caption(), ui::Icon::Exclamation);
  EnterBoxAnew(form_, wrong->box);
  return false;
}

void SystemFields::Store(SystemRecord& record) const {
  for (const Text& text : texts_) {
    const std::string typed = Trim(text.box.Text());
    if (typed != text.shown) record.Put(text.field, typed);
  }
  for (const Number& number : amounts_) {
    const std::int32_t value = ValueIn(number);
    if (value != number.shown) record.Put(number.field, value);
  }
  for (const YesNo& yesNo : yesNos_) {
    if (yesNo.box.Value() != yesNo.shown) record.Put(yesNo.field, yesNo.box.Value() ? 'Y' : 'N');
  }
}

std::vector<MergedField> SystemFields::Table() const {
  using Reads = MergedField::Reads;
  std::vector<MergedField> table;
  for (const Text& text : texts_) table.emplace_back(text.name, text.field);
  for (const Number& number : amounts_) {
    const Reads reads = number.dollars != nullptr   ? Reads::PercentOrDollars
                        : number.decimals == kMoney ? Reads::Money
                                                    : Reads::TenThousandths;
    table.emplace_back(number.name, number.field, reads);
  }
  for (const YesNo& yesNo : yesNos_) table.emplace_back(yesNo.name, yesNo.field, Reads::YesNo);
  return table;
}

bool SystemFields::Save(modSystem& system) {
  SystemRecord ours = shown_;
  Store(ours);
  const std::vector<MergedField> table = Table();
  RecordMerge merge(table, shown_, ours);
  const auto put = [&](SystemRecord& record) {
    merge.Into(record);
    for (const YesNo& yesNo : yesNos_) record.Put(yesNo.field, record.Get(yesNo.field) == 'Y' ? 'Y' : 'N');
  };
  return merge.Run(form_.GetDesktop(), form_.Caption(), [&] { system.Update(put); });
}

bool SaveSystem(Shop& shop, std::string_view status, SystemFields& fields) {
  const Status shown(shop.desktop, status);
  return fields.Save(shop.records.system);
}

}  // namespace lantos
