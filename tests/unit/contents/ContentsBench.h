#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "board/Contents.h"
#include "board/DayCapacityDatabase.h"
#include "estimatedb/EngineChoice.h"
#include "estimatedb/WatchedEngine.h"
#include "frame/Text.h"
#include "records/Customers.h"

namespace lantos::test {

// A board that shows one estimate: the two lists, and a record of what its editors asked for.
class PaperBoard : public ui::Form, public EstimateOnShow {
 public:
  explicit PaperBoard(ui::Desktop& desktop) : Form(desktop, "frmPaper", "Paper") { listParts.SetMultiSelect(true); }

  ui::ListBox listLabor{*this, "listLabor"};
  ui::ListBox listParts{*this, "listParts"};

  std::int32_t DisplayedEstimate() const override { return number; }
  const CustomerRecord& Customer() const override { return customer; }
  ui::ListBox& LaborList() override { return listLabor; }
  ui::ListBox& PartList() override { return listParts; }
  void AddScheduledHours(Hundredths hours) override { scheduledHours += hours; }
  void RefreshDay() override { ++dayRefreshes; }
  void RefreshTotals() override { ++totalRefreshes; }
  std::string CommentsOnShow() const override { return comments; }
  std::string CommentsAsStored() const override { return savedComments; }
  void ShowComments(const std::string& text) override {
    comments = text;
    savedComments = Trim(text);
  }
  void StoreComments(const std::string& text) override {
    if (store) store(text);
    ShowComments(text);
  }

  std::int32_t number = 1001;
  CustomerRecord customer;
  Hundredths scheduledHours = 0;
  int dayRefreshes = 0;
  int totalRefreshes = 0;
  std::string comments;
  std::string savedComments;
  std::function<void(const std::string& comments)> store;  // where the database is to have them as well
};

// The line editors on a shop with one estimate, 1001, of Tuesday, 30 September 2003.
struct ContentsBench : BoardShop {
  ContentsBench() {
    Do("insert into Estimates (EstimateNumber, SchedDate, Status, CustomerNumber, CreateDate) "
       "values (1001, '2003-09-30', 0, 7, '2003-09-22')");
    database.estimates.LoadEstimate(1001);
  }

  // From now on each statement and each edit of a recordset is told of before it is done; what the watch throws is its
  // failure.
  void Watch(WatchedEngine::Tells watch) {
    database.lantosData.Disconnect();
    database.lantosData.SetOpener([this, watch = std::move(watch)] {
      return std::make_unique<WatchedEngine>(
          OpenDatabase(directory / "Lantos.mdb", clock, database.busyTimeout), watch,
          [watch](std::string_view table, const std::vector<std::string>&) { watch(table); });
    });
  }
  // Another workstation has the database to itself; this one waits for a moment only.
  void Hold() {
    database.busyTimeout = std::chrono::milliseconds(1);
    database.lantosData.Disconnect();
    Connect(database, environment);
    holder = OpenDatabase(directory / "Lantos.mdb", clock);
    holder->Run("begin exclusive", {});
  }
  void LetGo() { holder.reset(); }
  std::unique_ptr<Engine> holder;

  frmInvList inventoryList{shop};
  Workorders workorders{environment, desktop, records};
  PaperBoard board{desktop};
  Contents contents{Workbench{shop, database, inventoryList, workorders.Current, board}, workorders};
  Workbench& bench = contents.bench;
  Workorder& workorder = workorders.Current;
};

}  // namespace lantos::test
