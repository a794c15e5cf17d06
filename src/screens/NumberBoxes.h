#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>

#include "records/Record.h"
#include "screens/NumberFields.h"

namespace lantos {

// Boxes for the numbers of a record. Money stands there as "0.00", rates as "0.0000", all others as whole numbers; what
// is typed is rounded to that, halves to even, and an empty box is 0. A number that the person didn't change isn't
// stored.
class NumberBoxes {
 public:
  NumberBoxes(ui::Form& form, NumberFields& numbers) : form_(form), numbers_(numbers) {}
  NumberBoxes(const NumberBoxes&) = delete;

  // name is what messages and screen readers call the box. Wired after the screen's own procedures.
  void AddMoney(ui::TextBox& box, LongField field, const std::string& name);
  void AddRate(ui::TextBox& box, LongField field, const std::string& name);
  void AddLevel(ui::TextBox& box, IntegerField field, const std::string& name);
  void AddCount(ui::TextBox& box, ByteField field, const std::string& name);
  // Money that lies elsewhere: Show and Store pass it over.
  void AddMoney(ui::TextBox& box, const std::string& name);

  template <std::size_t Length>
  void Show(const Record<Length>& record) {
    for (Number& number : boxes_) {
      if (number.lies != Lies::Elsewhere) Show(number, Get(record, number));
    }
  }
  void ShowValue(const ui::TextBox& box, std::int32_t value);
  // False when a box holds no number, or one that its field can't hold: the first has been told of and has the focus.
  bool CanBeStored();
  // Behind CanBeStored, as the two that follow.
  template <std::size_t Length>
  void Store(Record<Length>& record) const {
    for (const Number& number : boxes_) {
      if (number.lies != Lies::Elsewhere && IsChanged(number)) Put(record, number);
    }
  }
  // As it is stored, in units of the last decimal.
  std::int32_t ValueIn(const ui::TextBox& box) const;
  bool IsChanged(const ui::TextBox& box) const;

 private:
  enum class Lies { Elsewhere, InByte, InInteger, InLong };
  struct Number {
    ui::TextBox& box;
    std::string name;
    int decimals;
    std::int32_t least, most;  // that the field holds
    Lies lies = Lies::Elsewhere;
    std::size_t offset = 0;
    std::int32_t shown = 0;  // as stored
  };

  template <std::size_t Length>
  static std::int32_t Get(const Record<Length>& record, const Number& number) {
    if (number.lies == Lies::InByte) return record.Get(ByteField{number.offset});
    if (number.lies == Lies::InInteger) return record.Get(IntegerField{number.offset});
    return record.Get(LongField{number.offset});
  }
  template <std::size_t Length>
  static void Put(Record<Length>& record, const Number& number) {
    const std::int32_t value = ValueIn(number);
    if (number.lies == Lies::InByte) return record.Put(ByteField{number.offset}, static_cast<std::uint8_t>(value));
    if (number.lies == Lies::InInteger)
      return record.Put(IntegerField{number.offset}, static_cast<std::int16_t>(value));
    record.Put(LongField{number.offset}, value);
  }

  void Add(const Number& number, std::size_t longest);
  static void Show(Number& number, std::int32_t value);
  static std::int32_t ValueIn(const Number& number);
  static bool IsChanged(const Number& number) { return ValueIn(number) != number.shown; }
  static bool Fits(const Number& number);
  template <class Boxes>
  static auto& NumberIn(Boxes& boxes, const ui::TextBox& box);

  ui::Form& form_;
  NumberFields& numbers_;
  std::deque<Number> boxes_;
};

}  // namespace lantos
