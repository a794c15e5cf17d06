#pragma once

#include <string>

#include "shop/Shop.h"

// What is said of a command line that isn't the one switch, "/D=" or "/d=" and a directory. The start goes on as
// without it.
namespace lantos {

// A box that names a directory without the switch, and whatever else isn't formed like a switch.
void TellWhatIsNotUnderstood(ui::Desktop& desktop, const std::string& commandLine);

// A switch of another letter is a matter of the status line and the log, which is open by then.
void NoteUnknownSwitch(Shop& shop, const std::string& commandLine);

}  // namespace lantos
