#pragma once

#include <string>
#include <string_view>

#include "frame/UpdateTurns.h"
#include "ui/Desktop.h"

namespace lantos {

// What Cancel leaves where a turn doesn't come: behind "Cancel to", and a sentence.
struct WithoutTurn {
  std::string_view cancelling = "change nothing";
  std::string_view outcome = "Nothing was changed.";
};

// A turn that the person is asked about when it doesn't come within five seconds. Cancel throws GivenUp, with nothing
// done: without the turn another copy's change of the same record could be lost. While the person is asked about
// something else it is let go, so that no other copy waits for them.
class AskedTurn {
 public:
  AskedTurn(UpdateTurns& turns, ui::Desktop& desktop, std::string_view file, const WithoutTurn& without = {});
  AskedTurn(const AskedTurn&) = delete;

  bool IsHad() const { return turn_.IsHad(); }
  void LetGo() { turn_.LetGo(); }
  // Asks in the same way. False when the person waits no longer; the turn isn't had then.
  [[nodiscard]] bool TakeAgain();
  // How often it has been taken again: what was read in an earlier one may be changed by now.
  int Retakes() const { return retakes_; }

 private:
  bool WaitForIt();  // false when the person waits no longer

  ui::Desktop& desktop_;
  const std::string file_, cancelling_;
  int retakes_ = 0;
  UpdateTurns::Turn turn_;
};

}  // namespace lantos
