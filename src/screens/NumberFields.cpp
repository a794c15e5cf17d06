#include "screens/NumberFields.h"

#include <algorithm>
#include <stdexcept>

#include "frame/Numbers.h"
#include "frame/Text.h"
#include "screens/AlsoRuns.h"
#include "screens/EnterBoxAnew.h"

namespace lantos {

namespace {

constexpr ui::Color kRed{255, 160, 160};  // light: the text on it stays readable

std::string InPlace(const std::string& typed, const std::string& taken) {
  return "\"" + typed + "\" is not a number. " + taken + " stands in its place.";
}

}  // namespace

void NumberFields::Add(ui::TextBox& box, std::string name, Read read) {
  fields_.push_back(Field{box, std::move(name), read, false, false, {}, {}});
  Field& field = fields_.back();
  AlsoRuns(box.OnChange, [&field] { Judge(field); });
}

void NumberFields::FormatOnLeaving(ui::TextBox& box) {
  AlsoRuns(box.OnLostFocus, [this, &box] {
    if (IsNumber(box) || TrimView(box.Text()).empty()) box.SetText(FormatFixed(Val(box.Text()), 2));
  });
}

void NumberFields::TakeOnLeaving(ui::TextBox& box) {
  TakeOnSaving(box);
  AlsoRuns(box.OnLostFocus, [this, &box] { Take(FieldOf(box)); });
}

void NumberFields::Take(Field& field) {
  const std::string typed = field.red && field.taken.empty() ? field.box.Text() : std::string();
  field.box.SetText(FormatFixed(Val(field.box.Text()), 2));
  if (typed.empty()) return;
  field.taken = typed;
  ShowRed(field, InPlace(typed, field.box.Text()));
}

bool NumberFields::Reads(const std::string& text, Read read) {
  return lantos::IsNumeric(text) && (read == Read::Whole || Val(text) == ToNumber(text));
}

bool NumberFields::IsNumber(const ui::TextBox& box) const {
  const auto field = std::find_if(fields_.begin(), fields_.end(), [&](const Field& each) { return &each.box == &box; });
  return Reads(box.Text(), field == fields_.end() ? Read::ByItsBeginning : field->read);
}

NumberFields::Field& NumberFields::FieldOf(const ui::TextBox& box) {
  const auto field = std::find_if(fields_.begin(), fields_.end(), [&](const Field& each) { return &each.box == &box; });
  if (field == fields_.end()) throw std::logic_error(box.FullName() + " isn't among the numbers");
  return *field;
}

void NumberFields::Judge(Field& field) {
  field.taken.clear();
  const std::string& text = field.box.Text();
  if (TrimView(text).empty() || Reads(text, field.read)) return ShowPlain(field);
  ShowRed(field, "\"" + text + "\" is not a number.");
}

void NumberFields::ShowRed(Field& field, const std::string& why) {
  if (!field.red) field.toolTip = field.box.ToolTip();
  field.red = true;
  field.box.SetBackColor(kRed);
  field.box.SetToolTip(why);
}

void NumberFields::ShowPlain(Field& field) {
  if (!field.red) return;
  field.red = false;
  field.box.SetBackColor(std::nullopt);
  field.box.SetToolTip(field.toolTip);
}

bool NumberFields::AreNumbers() {
  const auto wrong = std::find_if(fields_.begin(), fields_.end(),
                                  [](const Field& field) { return field.red && field.box.IsUsable(); });
  if (wrong == fields_.end()) return true;
  if (wrong->isTaken && wrong->taken.empty()) Take(*wrong);
  const std::string text = wrong->taken.empty() ? "\"" + wrong->box.Text() + "\" is not a number."
                                                : InPlace(wrong->taken, wrong->box.Text());
  form_.GetDesktop().Tell(wrong->name + ": " + text, form_.Caption(), ui::Icon::Exclamation);
  EnterBoxAnew(form_, wrong->box);
  if (wrong->taken.empty()) return false;
  wrong->taken.clear();  // the person knows what stands there
  ShowPlain(*wrong);
  return false;
}

}  // namespace lantos
