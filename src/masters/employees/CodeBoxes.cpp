#include "masters/employees/CodeBoxes.h"

namespace lantos {

void CodeBoxes::Add(ui::ComboBox& box, ByteField field, std::initializer_list<Choice> choices) {
  Bind(box, field);
  for (const Choice& choice : choices) box.AddItem(choice.text, choice.code);
}

void CodeBoxes::Add(ui::ComboBox& box, ByteField field, std::span<const std::string_view> names) {
  Bind(box, field);
  std::int32_t code = 0;
  for (const std::string_view name : names) box.AddItem(std::string(name), code++);
}

void CodeBoxes::Bind(ui::ComboBox& box, ByteField field) {
  codes_.push_back({box, field});
  Code& code = codes_.back();
  box.OnClick = [this, &code] {
    if (code.box.ListIndex() != code.shown) changed_();
  };
}

void CodeBoxes::Show(const EmployeeRecord& record) {
  for (Code& code : codes_) {
    code.shown = code.box.FindData(record.Get(code.field));
    code.box.SetListIndex(code.shown);
  }
}

void CodeBoxes::ShowNone() {
  for (Code& code : codes_) {
    code.shown = -1;
    code.box.SetListIndex(-1);
  }
}

void CodeBoxes::Store(EmployeeRecord& record) const {
  for (const Code& code : codes_) {
    const int row = code.box.ListIndex();
    if (row >= 0 && row != code.shown) record.Put(code.field, static_cast<std::uint8_t>(code.box.ItemData(row)));
  }
}

}  // namespace lantos
