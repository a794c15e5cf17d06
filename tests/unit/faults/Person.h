#pragma once

#include <functional>
#include <string>

#include "faults/Deed.h"
#include "faults/FaultRun.h"

namespace lantos::test {

// It goes on and on, and nobody is asked.
struct Hung {};

// Who does a deed, and meets its trouble: answers the boxes that belong to the deed as ever, and all others as the
// trouble has it. What goes wrong is over as soon as it has been told.
class Person {
 public:
  Person(Deed& deed, Trouble::Person manner, std::function<void()> mend);
  ~Person();
  Person(const Person&) = delete;

  void Do();
  bool WasTold() const { return told_; }
  const std::string& Heard() const { return heard_; }

 private:
  ui::Answer Answer(const ui::Box& box);
  void ArmForms();
  void Use(ui::Form& form);
  void Leave(ui::Form& form);
  void Hear(const std::string& text);
  void HearFailures();

  Deed& deed_;
  TestDesktop& desktop_;
  Trouble::Person manner_;
  std::function<void()> mend_;
  std::size_t failuresHeard_ = 0;
  int boxes_ = 0;
  bool told_ = false;
  bool leaving_ = false;
  bool over_ = false;
  std::string heard_;
};

}  // namespace lantos::test
