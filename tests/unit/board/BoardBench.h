#pragma once

#include <fmt/core.h>

#include <string>
#include <vector>

#include "board/DayCapacityDatabase.h"
#include "board/frmMain.h"
#include "records/Fixture.h"
#include "records/modSystem.h"

namespace lantos::test {

using Texts = std::vector<std::string>;

inline Texts TextsOf(const ui::ListBox& list) {
  Texts texts;
  for (const ui::ListRow& row : list.Rows()) texts.push_back(row.text);
  return texts;
}
inline std::vector<std::int32_t> DataOf(const ui::ListBox& list) {
  std::vector<std::int32_t> data;
  for (const ui::ListRow& row : list.Rows()) data.push_back(row.data);
  return data;
}

// The main window on a shop with two customers, Beth Adams (7) and the tax-exempt City School (8), and 40 hours from
// Monday to Friday. Today is Tuesday, 30 September 2003, the third panel of its week.
struct BoardBench : BoardShop {
  static constexpr std::size_t kTuesday = 2;
  static constexpr std::int32_t kNextEstimate = 1001;

  BoardBench() {
    // Parts 8.25 %, labor 6 %, sublets 5 %, waste 4 %.
    directory.Put("TQSYSTEM.DAT", Image(1038)
                                      .Long(4, kNextEstimate)
                                      .Long(24, 82500)
                                      .Long(28, 60000)
                                      .Long(32, 50000)
                                      .Long(36, 40000)
                                      .Text(44, "Miller's Garage"));
    directory.Put("TQCSTTAG.DAT",
                  Image().Append(CustomerTagImage(7, "Adams,Beth", 0)).Append(CustomerTagImage(8, "School,City", 317)));
    directory.Put("TQCSTDAT.DAT", Image()
                                      .Append(CustomerImage(7, "Adams").Text(25, "Beth").Text(156, "555-0142"))
                                      .Append(CustomerImage(8, "School").Text(25, "City").Text(213, "31-12")));
    directory.Put("TQVEHICL.DAT", "");
  }

  void AddEstimate(std::int32_t number, DaySerial date, std::int16_t status, std::int32_t customer = 7) {
    Do(
        fmt::format("insert into Estimates (EstimateNumber, SchedDate, Status, CustomerNumber, CreateDate) "
                    "values ({}, '{}', {}, {}, '2003-09-22')",
                    number, FormatIsoDate(date), status, customer));
  }
  void AddLabor(std::int32_t number, std::int32_t line, Hundredths hours, Cents total, std::string_view text = "WORK") {
    database.lantosData.AddLabor(number, line, text, hours, 6500, total, 12);
  }
  std::string Stored(std::string_view column, std::int32_t number) {
    return Ask(fmt::format("select {} from Estimates where EstimateNumber = {}", column, number));
  }

  // Starts the program's window on what was put in before.
  frmMain& Start() {
    board.LoadForm();
    board.Show();
    return board;
  }
  Estimate& Current() { return database.estimates.CurrentEstimate; }
  // The summary panel.
  Texts Hours() const {
    return {board.hours.lblDate.Caption(), board.hours.lblAvail.Caption(), board.hours.lblSched.Caption(),
            board.hours.lblDiff.Caption(), board.hours.lblStatus.Caption()};
  }
  Texts Totals() const {
    return {board.detail.txtTotalHours.Text(),  board.detail.txtTotalLabor.Text(), board.detail.txtTotalParts.Text(),
            board.detail.txtTotalSublet.Text(), board.detail.txtTotalWaste.Text(), board.detail.txtTotalTax.Text(),
            board.detail.txtTotalCost.Text()};
  }
  // The person's hand on a row: the right button selects it first.
  void Choose(ui::ListBox& list, int row) { list.DoSelect(row); }
  void RightClick(ui::ListBox& list, int row) {
    list.DoSelect(row);
    list.DoMouseUp(ui::MouseButton::Right);
  }
  // The database refuses everything about a table until it has its name back.
  void Hide(std::string_view table) { Do(fmt::format("alter table {0} rename to {0}Hidden", table)); }
  void Reveal(std::string_view table) { Do(fmt::format("alter table {0}Hidden rename to {0}", table)); }

  StartAndStop Steps() {
    StartAndStop steps;
    steps.processCommandLine = [] {};
    steps.initGlobals = [this] {
      records.system.ReadSystem();
      return true;
    };
    steps.sendWaitingChanges = [] {};
    steps.deleteUpdateFileAndCloseLog = [] {};
    return steps;
  }

  MasterScreens masters{shop};
  frmInvList inventoryList{shop};
  Workorders workorders{environment, desktop, records};
  frmMain board{shop, database, masters, inventoryList, workorders, Steps()};
};

}  // namespace lantos::test
