#pragma once

#include <functional>
#include <stdexcept>
#include <string>

#include "support/StandInDesktop.h"

namespace lantos::bench {

// A person who isn't there. A message box or a modal window in a benchmark is an error, unless it is foreseen.
class QuietDesktop : public test::StandInDesktop {
 public:
  QuietDesktop() : StandInDesktop(Memory::Forgets) {}

  // What the person does at a box or in a modal window.
  std::function<ui::Answer(const ui::Box&)> atBox;
  std::function<void(ui::Form&)> atForm;

  [[noreturn]] void EndProcess(int) override { throw std::runtime_error("the program has ended itself"); }

 protected:
  ui::Answer AnswerTo(const ui::Box& box) override {
    if (!atBox) throw std::runtime_error("a box: " + box.text);
    return atBox(box);
  }
  void Use(ui::Form& form) override {
    if (!atForm) throw std::runtime_error("a modal window: " + form.Name());
    atForm(form);
  }
  void ChooseFrom(ui::MenuItem&) override {}
  void Failed(const std::string& text) override { throw std::runtime_error(text); }
};

}  // namespace lantos::bench
