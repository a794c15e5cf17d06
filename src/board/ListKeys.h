#pragma once

#include "ui/Controls.h"

namespace lantos {

// Enter opens the selected estimate, as a double click does.
void OpenByEnter(ui::ListBox& list);

// The same, and Down and Up go from estimate to estimate: from any line of one to the first line of the next or the
// previous. PgDn and PgUp go by pages, and by an estimate where one is longer than a page. Only the first line of an
// estimate doesn't begin with a blank.
void WalkByEstimates(ui::ListBox& list);

// Insert adds a line, Enter and a double click change the selected one, Delete removes it, as the buttons do.
struct ListButtons {
  ui::Button& add;
  ui::Button& change;
  ui::Button& remove;
};
void ServeByKeys(ui::ListBox& list, const ListButtons& buttons);

}  // namespace lantos
