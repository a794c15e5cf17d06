#include "caretaker/backup/ShopFigures.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstring>
#include <unordered_set>

#include "estimatedb/EngineChoice.h"
#include "estimatedb/EstimateDatabase.h"
#include "frame/FileIO.h"
#include "frame/PathText.h"
#include "frame/SharedFile.h"
#include "frame/UnfitFile.h"
#include "records/Customers.h"
#include "records/Payroll.h"
#include "records/Vendors.h"
#include "records/inventory/InventoryLayout.h"
#include "records/inventory/UsageHistory.h"
#include "records/modEmployees.h"
#include "workorders/WorkorderTags.h"

namespace lantos {

namespace {

class Counting {
 public:
  Counting(const std::filesystem::path& directory, const Clock& clock) : clock_(clock), files_(ownClock_) {
    files_.SetDataDir(TextOfPath(directory / ""));
  }

  std::vector<ShopFigure> Count() {
    CountCustomers();
    CountInventory();
    CountWorkorders();
    Records<EmployeeRecord>(kEmployeeFile);
    Records<PayRecord>(kPayrollFile);
    Records<VendorRecord>(kVendorFile);
    Records<UsageRecord>(kUsageFile);
    CountDatabase(kLantosDatabase);
    CountDatabase(kKorvelDatabase);
    return std::move(figures_);
  }

 private:
  void Add(std::string name, std::int64_t value) { figures_.push_back({std::move(name), std::to_string(value)}); }

  // All whole records of a file, which are counted.
  template <class Kind>
  std::vector<Kind> Records(std::string_view name) {
    std::vector<Kind> records;
    if (!files_.IsThere(name)) return records;
    const std::filesystem::path path = files_.PathOf(name);
    const SharedFile file(path, Access::Read, Deny::None, Absent::Fail);
    RefuseTooLong(path, file.Length(), kLongestRecordFile);
    records.resize(static_cast<std::size_t>(file.Length() / Kind::kLength));
    if (!records.empty()) file.ReadAt(0, std::as_writable_bytes(std::span(records)));
    Add(fmt::format("records of {}", name), static_cast<std::int64_t>(records.size()));
    return records;
  }

  // The record that a link leads to, null where it leads to none.
  template <class Kind>
  static const Kind* At(const std::vector<Kind>& records, std::int32_t link) {
    if (link < 0 || link % static_cast<std::int32_t>(Kind::kLength) != 0) return nullptr;
    const std::size_t place = static_cast<std::size_t>(link) / Kind::kLength;
    return place < records.size() ? &records[place] : nullptr;
  }

  void CountCustomers() {
    const auto tags = Records<CustomerTag>(kCustomerTagFile);
    const auto masters = Records<CustomerRecord>(kCustomerFile);
    const auto vehicles = Records<VehicleRecord>(kVehicleFile);
    std::int64_t leading = 0;
    for (const CustomerTag& tag : tags) {
      const std::int32_t number = tag.Get(customertag::Number);
      const CustomerRecord* const master = At(masters, tag.Get(customertag::Offset));
      if (number == 0 || master == nullptr || master->Get(customer::Number) != number) continue;
      customers_.insert(number);
      ++leading;
    }
    Add("customer tags that lead to their customer", leading);
    Add("vehicles of known customers", std::count_if(vehicles.begin(), vehicles.end(), [&](const auto& each) {
          return customers_.contains(each.Get(vehicle::Number));
        }));
  }

  void CountInventory() {
    const auto tags = Records<InventoryTag>(kInventoryTagFile);
    const auto masters = Records<InventoryRecord>(kInventoryFile);
    std::int64_t leading = 0;
    std::int64_t stock = 0;
    for (const InventoryTag& tag : tags) {
      const InventoryRecord* const master = At(masters, tag.Get(inventorytag::Tag));
      if (master != nullptr && master->View(inventory::StockNumber) == tag.View(inventorytag::StockNumber)) ++leading;
    }
    for (const InventoryRecord& part : masters) stock += part.Get(inventory::QtyInStock);
    Add("part tags that lead to their part", leading);
    Add("parts in stock", stock);
  }

  void CountWorkorders() {
    const auto active = Records<ActiveWoTag>(kActiveTagFile);
    const auto archived = Records<ArchivedWoTag>(kArchivedTagFile);
    std::int64_t total = 0;
    std::int64_t withText = 0;
    for (const ActiveWoTag& tag : active) {
      const std::string name = tag.Get(wotag::FileName);
      if (IsPlainName(name) && files_.IsThere(name)) ++withText;
      total += TotalOf(tag);
    }
    for (const ArchivedWoTag& tag : archived) total += TotalOf(tag);
    Add("active work orders with their text", withText);
    Add("cents of all work orders", total);
  }

  template <class Tag>
  static std::int64_t TotalOf(const Tag& tag) {
    WoTotals totals;
    std::memcpy(totals.Bytes().data(), tag.Bytes().data() + wotag::Totals.offset, WoTotals::kLength);
    return totals.Get(wototals::WorkorderTotal);
  }

  void CountDatabase(std::string_view name) {
    // Of another program's database its bytes are compared, and nothing else is known.
    if (!files_.IsThere(name) || !IsDatabase(files_.PathOf(name))) return;
    OpenedTables opened = OpenTables(files_.PathOf(name), clock_);
    opened.engine->ReadTogether([&] {
      for (const std::string& table : opened.tables->Tables()) CountTable(*opened.tables, name, table);
    });
  }

  void CountTable(TableStore& tables, std::string_view database, const std::string& table) {
    std::vector<std::string> columns;
    std::vector<double> sums;
    std::vector<CellKind> kinds;
    for (const StoredColumn& column : tables.ColumnsOf(table)) {
      columns.push_back(column.name);
      kinds.push_back(column.kind);
    }
    sums.resize(columns.size());
    const std::unique_ptr<RowReader> rows = tables.Read(table, columns, tables.KeyOf(table));
    CellRow row;
    std::int64_t count = 0;
    std::int64_t ofKnown = 0;
    for (; rows->Next(row); ++count) {
      for (std::size_t i = 0; i < row.size(); ++i) {
        if (const auto* whole = std::get_if<std::int64_t>(&row[i])) sums[i] += static_cast<double>(*whole);
        if (const auto* number = std::get_if<double>(&row[i])) sums[i] += *number;
        if (columns[i] == "CustomerNumber" && IsKnown(row[i])) ++ofKnown;
      }
    }
    Add(fmt::format("rows of {} in {}", table, database), count);
    if (table == "Estimates") Add("estimates of known customers", ofKnown);
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (kinds[i] == CellKind::Text || kinds[i] == CellKind::Date) continue;
      figures_.push_back({fmt::format("sum of {}.{} in {}", table, columns[i], database), fmt::format("{}", sums[i])});
    }
  }

  bool IsKnown(const Cell& customerNumber) const {
    const auto* number = std::get_if<std::int64_t>(&customerNumber);
    return number != nullptr && customers_.contains(static_cast<std::int32_t>(*number));
  }

  const Clock& clock_;
  SystemClock ownClock_;
  FileIO files_;
  std::unordered_set<std::int32_t> customers_;
  std::vector<ShopFigure> figures_;
};

}  // namespace

std::vector<ShopFigure> FiguresOf(const std::filesystem::path& directory, const Clock& clock) {
  return Counting(directory, clock).Count();
}

}  // namespace lantos
