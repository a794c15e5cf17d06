#pragma once

#include "board/DayCapacityDatabase.h"
#include "qt/EveryForm.h"
#include "qt/ScriptedPerson.h"
#include "ui/qt/QtDesktop.h"

namespace lantos::test {

// Every form with its real window, on a shop without estimates.
struct WindowShop : BoardShop {
  WindowShop() {
    person.boxesDontMatter = true;
    forms = MakeEveryForm({windowed, database, masters, inventoryList, workorders, contents});
  }

  ScriptedPerson person;
  ui::QtDesktop windows{&person};
  ui::GlobalKeys windowKeys{windows};
  Shop windowed{windows, environment, records, windowKeys};
  MasterScreens masters{windowed};
  frmInvList inventoryList{windowed};
  Workorders workorders{environment, windows, records};
  PaperBoard board{desktop};
  Contents contents{Workbench{windowed, database, inventoryList, workorders.Current, board}, workorders};
  std::vector<std::unique_ptr<ui::Form>> forms;
};

}  // namespace lantos::test
