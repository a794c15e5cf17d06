#include "records/AskedTurn.h"

#include <string>

#include "records/GivenUp.h"

namespace lantos {

AskedTurn::AskedTurn(UpdateTurns& turns, ui::Desktop& desktop, std::string_view file, const WithoutTurn& without)
    : turn_(turns) {
  const std::string name(file);
  while (!turn_.IsHad()) {
    const ui::Answer answer =
        desktop.Ask("Another copy of the program is changing " + name +
                        " and doesn't come to its end.\rClick Retry to wait for it, or Cancel to " +
                        std::string(without.cancelling) + ".",
                    name, ui::Buttons::RetryCancel, ui::Icon::Exclamation);
    if (answer == ui::Answer::Cancel) {
      throw GivenUp("Another copy is changing " + name + ". " + std::string(without.outcome));
    }
    turn_.WaitAgain();
  }
}

}  // namespace lantos
