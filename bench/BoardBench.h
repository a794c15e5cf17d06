#pragma once

#include <memory>

#include "bench/BenchShop.h"
#include "board/frmMain.h"
#include "records/modSystem.h"

namespace lantos::bench {

// Whether each change goes on the trail of who changed what.
enum class Trailing { On, Off };

// The main window, loaded, on a shop.
struct Board {
  explicit Board(const std::filesystem::path& shopDirectory, Trailing trailing = Trailing::Off)
      : world(shopDirectory),
        database(world.environment, world.records),
        masters(world.shop),
        inventoryList(world.shop),
        workorders(world.environment, world.desktop, world.records) {
    Connect(database, world.environment);
    if (trailing == Trailing::On) database.lantosData.KeepTrail(world.clock, {"FRONTDESK", "beth"});
    StartAndStop steps;
    steps.processCommandLine = [] {};
    steps.initGlobals = [this] {
      world.records.system.ReadSystem();
      return world.environment.log.Open();
    };
    steps.sendWaitingChanges = [] {};
    steps.deleteUpdateFileAndCloseLog = [] {};
    window = std::make_unique<frmMain>(world.shop, database, masters, inventoryList, workorders, std::move(steps));
    window->LoadForm();
  }

  World world;
  EstimateDatabase database;
  MasterScreens masters;
  frmInvList inventoryList;
  Workorders workorders;
  std::unique_ptr<frmMain> window;
};

}  // namespace lantos::bench
