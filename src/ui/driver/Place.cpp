#include "ui/driver/Place.h"

#include <algorithm>

#include "frame/Text.h"
#include "ui/Menu.h"
#include "ui/Mnemonic.h"

namespace lantos::ui {

namespace {

bool IsSeparator(const MenuItem& item) { return item.Caption() == "-"; }

bool IsCalled(const MenuItem& item, const std::string& text) {
  return item.FullName() == text || item.Caption() == text || WithoutMnemonic(item.Caption()) == text;
}

}  // namespace

Json BoxPlace::Describe() const {
  const std::vector<Answer> answers = ButtonsOf(box_);
  Json buttons = Json::array();
  for (Answer answer : answers) buttons.push_back(std::string(NameOf(answer)));
  return {{"waiting", "box"},
          {"title", JsonText(box_.title)},
          {"text", JsonText(box_.text)},
          {"icon", std::string(NameOf(box_.icon))},
          {"buttons", std::move(buttons)},
          {"default", std::string(NameOf(answers.at(std::min(box_.defaultButton, answers.size() - 1))))}};
}

void BoxPlace::Perform(const Line& line) {
  if (line.Subject() != "answer") throw Refusal("a message box waits for an answer");
  const std::string button = line.Text("button");
  for (Answer answer : ButtonsOf(box_)) {
    if (NameOf(answer) == button) return press_(answer);
  }
  throw Refusal("the box has no button '" + button + "'");
}

Json PopupPlace::Describe() const {
  Json items = Json::array();
  for (const auto& item : menu_.Items()) {
    if (!item->Visible() || IsSeparator(*item)) continue;
    items.push_back({{"name", ToUtf8(item->FullName())},
                     {"caption", JsonText(item->Caption())},
                     {"checked", item->Checked()},
                     {"enabled", item->Enabled()}});
  }
  return {{"waiting", "popup"}, {"menu", ToUtf8(menu_.FullName())}, {"items", std::move(items)}};
}

void PopupPlace::Perform(const Line& line) {
  if (line.Subject() != "choose") throw Refusal("a popup menu waits for a choice");
  if (line.IsNull("item")) return choose_(nullptr);
  const std::string wanted = line.Text("item");
  for (const auto& item : menu_.Items()) {
    if (!item->Visible() || !IsCalled(*item, wanted)) continue;
    if (!item->Enabled()) throw Refusal("the entry '" + wanted + "' is disabled");
    return choose_(item.get());
  }
  throw Refusal("the menu has no entry '" + wanted + "'");
}

Json PreviewPlace::Describe() const {
  const std::size_t pages = LayOut(report_).pages.size();
  Json labels = Json::object();
  for (const ReportLabel& label : report_.design.labels) {
    if (!label.name.empty()) labels[ToUtf8(label.name)] = JsonText(label.text);
  }
  labels[std::string(kPageLabel)] = PageText(1, pages);
  Json columns = Json::array();
  for (const ReportColumn& column : report_.design.columns) columns.push_back(ToUtf8(column.name));
  Json lines = Json::array();
  for (const std::vector<std::string>& row : report_.lines) {
    Json& texts = lines.emplace_back(Json::array());
    for (const std::string& text : row) texts.push_back(JsonText(text));
  }
  return {{"waiting", "preview"},
          {"report", ToUtf8(report_.design.name)},
          {"title", JsonText(report_.title)},
          {"labels", std::move(labels)},
          {"columns", std::move(columns)},
          {"lines", std::move(lines)},
          {"pages", pages}};
}

void PreviewPlace::Perform(const Line& line) {
  if (line.Subject() == "print") return hands_.print();
  if (line.Subject() == "close") return hands_.close();
  throw Refusal("a preview can be printed and closed");
}

Json PrinterPlace::Describe() const { return {{"waiting", "printer"}, {"report", ToUtf8(report_.design.name)}}; }

void PrinterPlace::Perform(const Line& line) {
  if (line.Subject() == "print") return answer_(true);
  if (line.Subject() == "close") return answer_(false);
  throw Refusal("the printer dialog can be accepted with print and left with close");
}

}  // namespace lantos::ui
