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

#include "support/StandInDesktop.h"
#include "ui/Menu.h"

namespace lantos::ui {
// For GoogleTest's messages.
inline void PrintTo(const Box& box, std::ostream* out) { *out << '"' << box.title << "\": " << box.text; }
}  // namespace lantos::ui

namespace lantos::test {

// The program asked for something that the test's script doesn't foresee. Already recorded as a failure.
struct OffScript {
  std::string what;
};

// A desktop whose person follows a script that the test fills beforehand. A box, modal form or popup menu without an
// answer in the script fails the test at once; answers that nobody asked for fail it at the end.
class TestDesktop : public StandInDesktop {
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
  bool failuresExpected = false;

 protected:
  ui::Answer AnswerTo(const ui::Box& box) override {
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

  void Use(ui::Form& form) override {
    if (formScripts_.empty()) Refuse("the modal form " + form.Name());
    const FormScript script = std::move(formScripts_.front());
    formScripts_.pop_front();
    script(form);
    if (form.IsLoaded() && form.Visible()) Refuse("that the form " + form.Name() + " stays");
  }

  void ChooseFrom(ui::MenuItem& menu) override {
    if (menuChoices_.empty()) Refuse("the popup menu " + menu.FullName());
    const std::string choice = std::move(menuChoices_.front());
    menuChoices_.pop_front();
    if (choice.empty()) return;
    ui::MenuItem* item = menu.Find(choice);
    if (item == nullptr) Refuse("the entry " + choice + " of the popup menu " + menu.FullName());
    item->DoClick();
  }

  void Failed(const std::string& text) override { EXPECT_TRUE(failuresExpected) << "An event failed: " << text; }

 private:
  [[noreturn]] static void Refuse(const std::string& what) {
    ADD_FAILURE() << "The script doesn't foresee " << what;
    throw OffScript{what};
  }

  std::deque<BoxScript> boxScripts_;
  std::deque<FormScript> formScripts_;
  std::deque<std::string> menuChoices_;
};

}  // namespace lantos::test
