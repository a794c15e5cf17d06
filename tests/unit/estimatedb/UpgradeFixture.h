#pragma once

#include <string>
#include <vector>

#include "DatabaseFixture.h"
#include "WatchedEngine.h"
#include "estimatedb/EngineChoice.h"

namespace lantos::test {

// A vehicle record with all that a snapshot takes.
inline Image Vehicle(std::int32_t customer, std::string_view year, std::string_view make, std::string_view model,
                     std::string_view vin, std::string_view licence, std::string_view engine, std::int32_t next = -1) {
  return Image(VehicleImage(customer, make, next))
      .Text(29, model)
      .Text(50, year)
      .Text(56, engine)
      .Text(69, "Auto")
      .Text(82, vin)
      .Text(103, licence);
}

inline constexpr std::string_view kOldLines =
    "CREATE TABLE Labors (EstimateNumber INTEGER, LaborNumber INTEGER, Description LongText, LaborHours INTEGER,"
    " LaborRate INTEGER, LaborTotal INTEGER, Mechanic INTEGER, PRIMARY KEY (EstimateNumber, LaborNumber));"
    "CREATE TABLE Parts (EstimateNumber INTEGER, PartNumber Text(20), PartDesc Text(38), Quantity INTEGER,"
    " PartPrice INTEGER, PartTotal INTEGER);";

// Databases of earlier levels, made with plain SQLite.
class Upgrades : public DatabaseTest {
 protected:
  Upgrades() { std::filesystem::remove(Path()); }

  void PutEstimates(const std::string& snapshotColumns) {
    Plain(
        "CREATE TABLE Estimates (EstimateNumber INTEGER PRIMARY KEY, CustomerNumber INTEGER DEFAULT 0, VehicleLink "
        "INTEGER DEFAULT 0, SchedDate DATE, Comments Text(255)" +
        snapshotColumns + ");" + std::string(kOldLines));
  }
  void PutOldest() { PutEstimates(""); }
  void PutWithoutEngines() {
    PutEstimates(
        ", VehYear Text(5), VehMake Text(20), VehModel Text(20), VehVIN Text(20), VehLic Text(10), "
        "VehDate Text(10), VehMileage Text(7)");
  }
  void Run() { UpgradeDatabase(database, environment, records); }
  std::vector<std::string> Snapshots() const {
    return PlainRows(
        "select VehYear, VehMake, VehModel, VehVIN, VehLic, VehDate, VehMileage, VehEng, VehTrans "
        "from Estimates order by EstimateNumber");
  }
  void StatementsOf(de& connection, WatchedEngine::Tells watch) {
    connection.SetOpener([this, watch] { return std::make_unique<WatchedEngine>(OpenDatabase(Path(), clock), watch); });
  }
  std::vector<std::string> Columns(const std::string& table) const {
    return PlainRows("select name || ' ' || type from pragma_table_info('" + table + "')");
  }
};

}  // namespace lantos::test
