#pragma once

#include <string>

#include "admin/TestShop.h"
#include "estimatedb/EstimateDatabase.h"

namespace lantos::test {

// A database without estimates: every day from Monday to Friday has 40 hours, the tolerance is 10 %. Made once and
// copied for each test, since the disk takes its time for a new one.
inline const std::filesystem::path& EmptyDatabase() {
  static const ScratchDirectory directory;
  static const std::filesystem::path path = [] {
    StandingClock clock{LocalTime{ToSerial(kToday), 0}};
    CreateLantosDatabase(directory / "Lantos.mdb", clock);
    TestShop maker;
    maker.environment.files.SetDataDir(directory.DataDir());
    EstimateDatabase database{maker.environment, maker.records};
    Connect(database, maker.environment);
    database.lantosData.UpdateStdHours({0, 40, 40, 40, 40, 40, 0}, 10);
    return directory / "Lantos.mdb";
  }();
  return path;
}

struct BoardShop : TestShop {
  BoardShop() {
    std::filesystem::copy_file(EmptyDatabase(), directory / "Lantos.mdb");
    Connect(database, environment);
  }

  // One row of a statement's first column, as text.
  std::string Ask(const std::string& statement) {
    const Recordset rows = database.lantosData.Connection().Run(statement, {});
    return rows.Eof() ? "" : rows.Text(rows.Columns().front());
  }
  void Do(const std::string& statement) { database.lantosData.Connection().Run(statement, {}); }

  // Adds an estimate and makes it the current one.
  void MakeCurrent(std::int32_t number, DaySerial date, std::int16_t status) {
    database.lantosData.AddEstimateRow(number, date, status);
    database.estimates.LoadEstimate(number);
  }
  std::string StoredStatus(std::int32_t number) {
    return Ask("select Status from Estimates where EstimateNumber = " + std::to_string(number));
  }

  EstimateDatabase database{environment, records};
};

}  // namespace lantos::test
