#pragma once

#include <string_view>

#include "frame/UpdateTurns.h"
#include "ui/Desktop.h"

namespace lantos {

// A turn that the person is asked about when it doesn't come within five seconds. Cancel throws GivenUp, with nothing
// done: without the turn another copy's change of the same record could be lost.
class AskedTurn {
 public:
  AskedTurn(UpdateTurns& turns, ui::Desktop& desktop, std::string_view file);
  AskedTurn(const AskedTurn&) = delete;

 private:
  UpdateTurns::Turn turn_;
};

}  // namespace lantos
