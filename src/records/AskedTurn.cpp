#include "records/AskedTurn.h"

#include "records/GivenUp.h"

namespace lantos {

AskedTurn::AskedTurn(UpdateTurns& turns, ui::Desktop& desktop, std::string_view file, const WithoutTurn& without)
    : desktop_(desktop), file_(file), cancelling_(without.cancelling), turn_(turns) {
  if (!WaitForIt()) throw GivenUp("Another copy is changing " + file_ + ". " + std::string(without.outcome));
}

bool AskedTurn::TakeAgain() {
  ++retakes_;
  turn_.WaitAgain();
  return WaitForIt();
}

bool AskedTurn::WaitForIt() {
  while (!turn_.IsHad()) {
    const ui::Answer answer =
        desktop_.Ask("Another copy of the program is changing " + file_ +
                         " and doesn't come to its end.\rClick Retry to wait for it, or Cancel to " + cancelling_ + ".",
                     file_, ui::Buttons::RetryCancel, ui::Icon::Exclamation);
    if (answer == ui::Answer::Cancel) return false;
    turn_.WaitAgain();
  }
  return true;
}

}  // namespace lantos
