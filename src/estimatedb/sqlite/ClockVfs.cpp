#include "estimatedb/sqlite/ClockVfs.h"

#include <sqlite3.h>

#include <atomic>
#include <ctime>

#include "estimatedb/engine/Engine.h"
#include "frame/Dates.h"

namespace lantos {

// The first member is what SQLite knows of it, so that a pointer to the one is a pointer to the other.
struct ClockVfs::Shim {
  sqlite3_vfs vfs;
  const Clock* clock;
};

namespace {

constexpr sqlite3_int64 kMillisecondsADay = 86'400'000;
constexpr sqlite3_int64 kJulianDayOf1970 = 210'866'760'000'000;  // in milliseconds

// The clock tells local time, SQLite wants universal time and turns it back by the same rules of the platform.
sqlite3_int64 JulianMilliseconds(const LocalTime& now) {
  const CivilDate date = FromSerial(now.day);
  std::tm local{};
  local.tm_year = date.year - 1900;
  local.tm_mon = date.month - 1;
  local.tm_mday = date.day;
  local.tm_hour = static_cast<int>(now.millisecondOfDay / 3'600'000);
  local.tm_min = static_cast<int>(now.millisecondOfDay / 60'000 % 60);
  local.tm_sec = static_cast<int>(now.millisecondOfDay / 1000 % 60);
  local.tm_isdst = -1;
  return kJulianDayOf1970 + static_cast<sqlite3_int64>(std::mktime(&local)) * 1000 + now.millisecondOfDay % 1000;
}

std::string NewName() {
  static std::atomic<unsigned> count = 0;
  return "lantos-clock-" + std::to_string(++count);
}

}  // namespace

ClockVfs::ClockVfs(const Clock& clock) : name_(NewName()), shim_(std::make_unique<Shim>()) {
  const sqlite3_vfs* platform = sqlite3_vfs_find(nullptr);
  if (platform == nullptr) throw DatabaseError("The database engine has no access to files on this platform.");
  shim_->vfs = *platform;
  shim_->clock = &clock;
  shim_->vfs.zName = name_.c_str();
  shim_->vfs.pNext = nullptr;
  shim_->vfs.xCurrentTimeInt64 = [](sqlite3_vfs* vfs, sqlite3_int64* result) {
    *result = JulianMilliseconds(reinterpret_cast<Shim*>(vfs)->clock->Now());
    return SQLITE_OK;
  };
  shim_->vfs.xCurrentTime = [](sqlite3_vfs* vfs, double* result) {
    const sqlite3_int64 milliseconds = JulianMilliseconds(reinterpret_cast<Shim*>(vfs)->clock->Now());
    *result = static_cast<double>(milliseconds) / static_cast<double>(kMillisecondsADay);
    return SQLITE_OK;
  };
  if (sqlite3_vfs_register(&shim_->vfs, 0) != SQLITE_OK) {
    throw DatabaseError("The database engine didn't take the program's clock.");
  }
}

ClockVfs::~ClockVfs() { sqlite3_vfs_unregister(&shim_->vfs); }

}  // namespace lantos
