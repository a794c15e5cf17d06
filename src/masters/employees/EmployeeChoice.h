#pragma once

#include <cstdint>
#include <functional>

#include "records/modEmployees.h"
#include "shop/Shop.h"
#include "ui/Form.h"

namespace lantos {

// The employees by name on a screen about one of them, " None" first; those who have left the shop are left out where
// the box is ticked. Whoever is chosen is known by number: kNoEmployeeNumber is nobody.
class EmployeeChoice {
 public:
  struct Events {
    std::function<bool()> mayLeave;   // asked before the person's choice goes to another
    std::function<void()> wasChosen;  // the fields of whoever is chosen are wanted
  };
  EmployeeChoice(Shop& shop, ui::ComboBox& list, ui::CheckBox& activeOnly, Events events);
  EmployeeChoice(const EmployeeChoice&) = delete;

  // Lists the names of the table and chooses this employee, or nobody where the list hasn't got them.
  void List(std::int32_t chosen);
  // The same after reading the file. Throws FileError, and all is as before.
  void Read(std::int32_t chosen);
  std::int32_t Chosen() const { return chosen_; }
  // Whoever is chosen, as the file has them if it can be had at once, else as they were read last; good until the table
  // changes. Null for nobody, and for somebody who went since, which has been told: nobody is chosen then.
  const EmployeeRecord* Look();
  void TellThatGone();

 private:
  void Picked();
  void ActiveOnlyClicked();
  void Choose(std::int32_t number);
  void ShowNames();
  void ShowChosen();

  Shop& shop_;
  ui::ComboBox& list_;
  ui::CheckBox& activeOnly_;
  Events events_;
  std::int32_t chosen_ = kNoEmployeeNumber;
  bool listing_ = false;
};

}  // namespace lantos
