#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <functional>
#include <initializer_list>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "ui/Desktop.h"
#include "ui/Form.h"
#include "ui/Menu.h"
#include "ui/Report.h"
#include "ui/WindowPlace.h"

namespace lantos::ui {
// For GoogleTest's messages.
inline void PrintTo(const Box& box, std::ostream* out) { *out << '"' << box.title << "\": " << box.text; }
}  // namespace lantos::ui

namespace lantos::test {

// The program ended its process. Not a std::exception, so that no event guard holds it.
struct ProcessEnded {
  int code;
};
// The program asked for something that the test's script doesn't foresee. Already recorded as a failure.
struct OffScript {
  std::string what;
};

// A desktop without a person: what would be shown is recorded, and answers come from a script that the test fills
// beforehand. A box, modal form or popup menu without an answer in the script fails the test at once; answers that
// nobody asked for fail it at the end.
class TestDesktop : public ui::Desktop {
 public:
  using BoxScript = std::function<ui::Answer(const ui::Box&)>;
  using FormScript = std::function<void(ui::Form&)>;

  ~TestDesktop() override {
    EXPECT_TRUE(boxScripts_.empty()) << boxScripts_.size() << " answers to boxes that never came";
    EXPECT_TRUE(formScripts_.empty()) << formScripts_.size() << " scripts for modal forms that never came";
    EXPECT_TRUE(menuChoices_.empty()) << menuChoices_.size() << " choices in popup menus that never came";
  }

  // The script.
  void WillAnswer(ui::Answer answer) {
    boxScripts_.push_back([answer](const ui::Box&) { return answer; });
  }
  void WillAnswer(std::initializer_list<ui::Answer> answers) {
    for (const ui::Answer answer : answers) WillAnswer(answer);
  }
  // Something happens while the box is up (another workstation lets go of a file, say).
  void WillAnswer(BoxScript script) { boxScripts_.push_back(std::move(script)); }
  // What the person does on the next modal form; the form must be hidden or unloaded at the end.
  void WillUse(FormScript script) { formScripts_.push_back(std::move(script)); }
  // An entry of the next popup menu by its full name; an empty one dismisses the menu.
  void WillChoose(std::string item) { menuChoices_.push_back(std::move(item)); }

  // Answers every box that the script doesn't foresee, while it is set.
  BoxScript otherwise;

  // What was shown, in order.
  std::vector<ui::Box> boxes;
  std::vector<std::string> forms;                              // modal ones, by name
  std::vector<std::string> statuses;                           // texts of the status line
  std::vector<std::string> failures;                           // errors that ended events
  std::vector<std::pair<std::string, std::string>> documents;  // path and arguments
  std::vector<std::string> activated;                          // captions brought up
  std::vector<std::string> screenPrints;
  std::vector<ui::Report> previews;  // reports shown; nobody prints from them
  std::vector<ui::Report> printed;   // reports printed, the dialog accepted
  int printerDialogs = 0;
  int beeps = 0;
  ui::Pointer pointer = ui::Pointer::Normal;

  // What the world is like.
  bool failuresExpected = false;
  int documentResult = 33;
  std::vector<std::string> windows;  // captions of other windows

  ui::Answer Show(const ui::Box& box) override {
    boxes.push_back(box);
    if (boxScripts_.empty() && otherwise) return otherwise(box);
    if (boxScripts_.empty()) Refuse("a box \"" + box.title + "\": " + box.text);
    const BoxScript script = std::move(boxScripts_.front());
    boxScripts_.pop_front();
    const ui::Answer answer = script(box);
    const std::vector<ui::Answer> buttons = ui::ButtonsOf(box);
    if (std::find(buttons.begin(), buttons.end(), answer) == buttons.end()) {
      Refuse("the button " + std::string(ui::NameOf(answer)) + " in the box \"" + box.title + "\"");
    }
    return answer;
  }

  void RunModal(ui::Form& form) override {
    forms.push_back(form.Name());
    if (formScripts_.empty()) Refuse("the modal form " + form.Name());
    const FormScript script = std::move(formScripts_.front());
    formScripts_.pop_front();
    script(form);
    if (form.IsLoaded() && form.Visible()) Refuse("that the form " + form.Name() + " stays");
  }
  void RunUntilUnloaded(ui::Form& form) override { RunModal(form); }

  void PopupMenu(ui::Form&, ui::MenuItem& menu) override {
    if (menuChoices_.empty()) Refuse("the popup menu " + menu.FullName());
    const std::string choice = std::move(menuChoices_.front());
    menuChoices_.pop_front();
    if (choice.empty()) return;
    ui::MenuItem* item = menu.Find(choice);
    if (item == nullptr) Refuse("the entry " + choice + " of the popup menu " + menu.FullName());
    item->DoClick();
  }

  void Beep() override { ++beeps; }
  void SetPointer(ui::Pointer value) override { pointer = value; }
  void ShowStatus(std::string_view text) override { statuses.emplace_back(text); }
  int OpenDocument(const std::string& path, const std::string& arguments) override {
    documents.emplace_back(path, arguments);
    return documentResult;
  }
  void PrintScreen(ui::Form& form) override { screenPrints.push_back(form.Name()); }
  void PreviewReport(const ui::Report& report, ui::ControlPlace& place) override {
    previews.push_back(report);
    if (movePreviewTo) place = *movePreviewTo;
  }
  void PrintReport(const ui::Report& report, bool askFirst) override {
    printerDialogs += askFirst ? 1 : 0;
    printed.push_back(report);
  }
  std::optional<ui::ControlPlace> movePreviewTo;  // where the person leaves the next previews
  bool FindWindowByTitle(std::string_view pattern, bool activate) override {
    if (pattern.empty()) return false;
    for (const std::string& caption : windows) {
      if (!ContainsIgnoringCase(caption, pattern)) continue;
      if (activate) activated.push_back(caption);
      return true;
    }
    return false;
  }
  int TextWidth(const ui::Control&, std::string_view text) override { return static_cast<int>(text.size()) * 8; }
  void ReportFailure(const std::string& text) override {
    failures.push_back(text);
    EXPECT_TRUE(failuresExpected) << "An event failed: " << text;
  }
  [[noreturn]] void EndProcess(int code) override { throw ProcessEnded{code}; }

 private:
  [[noreturn]] static void Refuse(const std::string& what) {
    ADD_FAILURE() << "The script doesn't foresee " << what;
    throw OffScript{what};
  }
  static bool ContainsIgnoringCase(std::string_view text, std::string_view part) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return std::search(text.begin(), text.end(), part.begin(), part.end(),
                       [&](char a, char b) { return lower(a) == lower(b); }) != text.end();
  }

  std::deque<BoxScript> boxScripts_;
  std::deque<FormScript> formScripts_;
  std::deque<std::string> menuChoices_;
};

}  // namespace lantos::test
