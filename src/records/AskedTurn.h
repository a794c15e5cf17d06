#pragma once

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
// done: without the turn another copy's change of the same record could be lost.
class AskedTurn {
 public:
  AskedTurn(UpdateTurns& turns, ui::Desktop& desktop, std::string_view file, const WithoutTurn& without = {});
  AskedTurn(const AskedTurn&) = delete;

 private:
  UpdateTurns::Turn turn_;
};

}  // namespace lantos
