#pragma once

#include "frame/Environment.h"
#include "shop/Records.h"
#include "spelling/Speller.h"
#include "ui/Desktop.h"
#include "ui/GlobalKeys.h"

namespace lantos {

// What every screen is handed: the window system, the run's world, the shared files, the keys all screens serve, and
// the dictionary of this workstation.
struct Shop {
  ui::Desktop& desktop;
  Environment& environment;
  Records& records;
  ui::GlobalKeys& keys;
  OpenSpeller openSpeller = nullptr;
};

}  // namespace lantos
