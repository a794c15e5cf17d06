#include "contents/AmountFields.h"

#include <fmt/format.h>

#include <vector>

namespace lantos {

std::int32_t Product(std::int32_t a, std::int32_t b) { return LongOrOverflow(static_cast<std::int64_t>(a) * b); }

std::int32_t Sum(std::int32_t a, std::int32_t b) { return LongOrOverflow(static_cast<std::int64_t>(a) + b); }

double HundredfoldOf(const ui::TextBox& box) { return Val(fmt::format("{:.15g}", Val(box.Text()) * 100)); }

void AtLeastOne(ui::TextBox& quantity) {
  const bool isEmpty = TrimView(quantity.Text()).empty();
  const bool isNothing = IsNumeric(quantity.Text()) && WholeOrOverflow(Val(quantity.Text())) == 0;
  if (isEmpty || isNothing) quantity.SetText("1");
}

void EnterMovesThrough(std::initializer_list<ui::Control*> fields) {
  const std::vector<ui::Control*> order(fields);
  for (std::size_t i = 0; i + 1 < order.size(); ++i) {
    order[i]->OnKeyDown = [order, i](ui::KeyPress& key) {
      if (!key.Is("Enter")) return;
      key.Clear();
      for (std::size_t next = i + 1; next < order.size(); ++next) {
        if (!order[next]->IsUsable()) continue;
        order[next]->Owner().MoveFocus(order[next]);
        return;
      }
    };
  }
}

bool HasRequired(ui::Form& form, std::initializer_list<RequiredField> fields) {
  for (const RequiredField& field : fields) {
    if (!TrimView(field.box->Text()).empty()) continue;
    form.GetDesktop().Tell(field.message, form.Caption());
    if (field.box->IsUsable()) field.box->SetFocus();
    return false;
  }
  return true;
}

}  // namespace lantos
