#include "records/AskedTurn.h"

#include <string>

#include "records/GivenUp.h"

namespace lantos {

AskedTurn::AskedTurn(UpdateTurns& turns, ui::Desktop& desktop, std::string_view file) : turn_(turns) {
  const std::string name(file);
  while (!turn_.IsHad()) {
    const ui::Answer answer =
        desktop.Ask("Another copy of the program is changing " + name +
                        " and doesn't come to its end.\rClick Retry to wait for it, or Cancel to change nothing.",
                    name, ui::Buttons::RetryCancel, ui::Icon::Exclamation);
    if (answer == ui::Answer::Cancel) throw GivenUp("Another copy is changing " + name + ". Nothing was changed.");
    turn_.WaitAgain();
  }
}

}  // namespace lantos
