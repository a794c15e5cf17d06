#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "records/RecordMerge.h"
#include "records/modSystem.h"
#include "screens/NumberFields.h"
#include "shop/Shop.h"

namespace lantos {

// Controls of a screen that stand for fields of the system record. What the person didn't change isn't stored, so that
// two workstations that change different fields both keep theirs.
class SystemFields {
 public:
  explicit SystemFields(ui::Form& form) : form_(form) {}
  SystemFields(const SystemFields&) = delete;

  // Texts of up to width characters. All are wired after the screen's own procedures. name is what the messages call
  // the box.
  void AddText(ui::TextBox& box, TextField field, std::size_t width, const std::string& name);
  // Dollars with two decimals, and percents with four.
  void AddMoney(ui::TextBox& box, LongField field, const std::string& name);
  void AddRate(ui::TextBox& box, LongField field, const std::string& name);
  // A percent with four decimals, or dollars with two: those are stored below 0.
  void AddSurcharge(ui::TextBox& box, ui::OptionButton& percent, ui::OptionButton& dollars, LongField field,
                    const std::string& name);
  // Stored as the letter "Y" or "N".
  void AddYesNo(ui::CheckBox& box, ByteField field, const std::string& name);

  void Show(const SystemRecord& record);
  // False when a box holds no number, or one that its field can't: the first has been told of and has the focus.
  bool CanBeStored();
  // Behind CanBeStored: stores what the person changed in the record as the file has it then, under one hold. Where
  // somebody else has changed the same the person is asked (see RecordMerge); false, and nothing stored, when they go
  // back to the screen.
  bool Save(modSystem& system);

 private:
  struct Text {
    ui::TextBox& box;
    TextField field;
    std::string name;
    std::string shown;
  };
  struct Number {
    ui::TextBox& box;
    LongField field;
    std::string name;
    int decimals;
    ui::OptionButton* percent = nullptr;  // of a surcharge
    ui::OptionButton* dollars = nullptr;
    std::int32_t shown = 0;  // what the box stood for
    std::string shownText;
  };
  struct YesNo {
    ui::CheckBox& box;
    ByteField field;
    std::string name;
    bool shown = false;
  };
  void Add(const Number& number);
  static void Show(Number& number, std::int32_t value);
  static std::int32_t ValueIn(const Number& number);
  static bool Fits(const Number& number);
  void Store(SystemRecord& record) const;
  std::vector<MergedField> Table() const;

  ui::Form& form_;
  NumberFields numbers_{form_};
  std::deque<Text> texts_;
  std::deque<Number> amounts_;
  std::deque<YesNo> yesNos_;
  SystemRecord shown_;
};

// The same while the status line says so.
bool SaveSystem(Shop& shop, std::string_view status, SystemFields& fields);

}  // namespace lantos
