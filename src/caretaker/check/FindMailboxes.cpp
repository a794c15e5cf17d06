#include <sys/stat.h>

#include <ctime>

#include "caretaker/check/Kinds.h"
#include "caretaker/check/Words.h"
#include "frame/Dates.h"
#include "frame/RunLog.h"
#include "frame/WorkingCopies.h"
#include "records/inventory/InventoryLayout.h"

namespace lantos {

namespace {

// A copy that runs takes its mail in every few seconds.
constexpr std::int64_t kPatience = 10 * 60 * 1000;

// A copy has its log to itself for as long as it runs, past midnight too.
bool RunsSince(const FileIO& files, std::string_view dayMark) {
  for (const std::string& log : files.List(fmt::format("LN{}*.LOG", dayMark))) {
    if (IsLogInUse(files, log)) return true;
  }
  return false;
}

LocalTime TimeOf(const timespec& time) {
  std::tm local = {};
  ::localtime_r(&time.tv_sec, &local);
  const std::int64_t seconds = (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec;
  return {ToSerial({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday}), seconds * 1000};
}

}  // namespace

// The main application has mailboxes too and no such log, so one of today is dead only where mail lies that nobody has
// taken in.
void FindMailboxes(ShopView& shop, const Tell& tell) {
  const std::string today = UpdateFilePrefix(shop.files.GetClock().Today());
  for (const std::string& name : shop.files.List("AU*.$$$")) {
    if (name.size() < today.size() || RunsSince(shop.files, std::string_view(name).substr(2, today.size() - 2)))
      continue;
    struct stat status = {};
    if (::stat(shop.files.PathOf(name).c_str(), &status) != 0) continue;
    const bool isOfToday = EqualsIgnoringCase(std::string_view(name).substr(0, today.size()), today);
    const std::int64_t waits = shop.files.GetClock().Now().MillisecondsSince(TimeOf(status.st_mtim));
    if (isOfToday && (status.st_size < static_cast<off_t>(InventoryTag::kLength) || waits < kPatience)) continue;
    tell({name,
          "",
          "",
          isOfToday ? "it is the mailbox of a copy that takes nothing in any more"
                    : "it is the mailbox of a copy of another day",
          {"it is gone", {}, name}});
  }
}

}  // namespace lantos
