#pragma once

#include <functional>
#include <utility>

namespace lantos {

// Hangs one more procedure on an event, ahead of the one that it has: several parties may listen to one control.
template <class... Arguments>
void AlsoRuns(std::function<void(Arguments...)>& event, std::function<void()> procedure) {
  event = [own = std::move(event), procedure = std::move(procedure)](Arguments... arguments) {
    procedure();
    if (own) own(arguments...);
  };
}

}  // namespace lantos
