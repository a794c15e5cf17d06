#pragma once

#include "frame/Environment.h"
#include "shop/Records.h"
#include "ui/Desktop.h"
#include "ui/GlobalKeys.h"

namespace lantos {

// What every screen is handed: the window system, the run's world, the shared files, the keys all screens serve.
struct Shop {
  ui::Desktop& desktop;
  Environment& environment;
  Records& records;
  ui::GlobalKeys& keys;
};

}  // namespace lantos
