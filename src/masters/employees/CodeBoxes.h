#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "records/modEmployees.h"
#include "ui/Controls.h"

namespace lantos {

// Drop-downs whose choice is a code, as a byte of an employee's record. A code that has no row shows none, and stays as
// it is until the person chooses.
class CodeBoxes {
 public:
  struct Choice {
    std::string text;
    std::uint8_t code;
  };

  // changed is told of each choice that differs from what is stored.
  explicit CodeBoxes(std::function<void()> changed) : changed_(std::move(changed)) {}
  CodeBoxes(const CodeBoxes&) = delete;

  void Add(ui::ComboBox& box, ByteField field, std::initializer_list<Choice> choices);
  // Each by its place as its code.
  void Add(ui::ComboBox& box, ByteField field, std::span<const std::string_view> names);

  void Show(const EmployeeRecord& record);
  void ShowNone();
  // What the person chose.
  void Store(EmployeeRecord& record) const;

 private:
  struct Code {
    ui::ComboBox& box;
    ByteField field;
    int shown = -1;  // row
  };
  void Bind(ui::ComboBox& box, ByteField field);

  std::function<void()> changed_;
  std::deque<Code> codes_;
};

}  // namespace lantos
