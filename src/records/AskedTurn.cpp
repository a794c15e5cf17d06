#include "records/AskedTurn.h"

#include "frame/UnfitFile.h"
#include "records/GivenUp.h"

namespace lantos {

AskedTurn::AskedTurn(UpdateTurns& turns, ui::Desktop& desktop, std::string_view file, const WithoutTurn& without)
    : desktop_(desktop), file_(file), without_(without), turn_(turns) {
  if (!WaitForIt()) {
    const std::string cause =
        turn_.LacksLocks() ? file_ + " can not be locked. " : "Another copy is changing " + file_ + ". ";
    throw GivenUp(cause + std::string(without_.outcome));
  }
}

bool AskedTurn::TakeAgain() {
  ++retakes_;
  turn_.WaitAgain();
  return WaitForIt();
}

bool AskedTurn::WaitForIt() {
  while (!turn_.IsHad()) {
    const std::string question =
        turn_.LacksLocks()
            ? UnfitFile(file_, UnfitFile::Why::NoLocks).Words() + "\rClick Retry to try again, or Cancel to "
            : "Another copy of the program is changing " + file_ +
                  " and doesn't come to its end.\rClick Retry to wait for it, or Cancel to ";
    const ui::Answer answer = desktop_.Ask(question + std::string(without_.cancelling) + ".", file_,
                                           ui::Buttons::RetryCancel, ui::Icon::Exclamation);
    if (answer == ui::Answer::Cancel) return false;
    turn_.WaitAgain();
  }
  return true;
}

}  // namespace lantos
