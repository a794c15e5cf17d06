#include "caretaker/backup/ShopFiles.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <system_error>

#include "caretaker/backup/BackupError.h"
#include "frame/FileIO.h"
#include "frame/GuardedOpen.h"
#include "frame/LastVerified.h"
#include "frame/PathText.h"
#include "frame/RunLog.h"
#include "frame/SharedFile.h"
#include "frame/Text.h"

namespace lantos {

namespace fs = std::filesystem;

namespace {

bool Fits(const std::string& name, std::string_view begin, std::string_view end) {
  return name.size() >= begin.size() + end.size() && name.starts_with(begin) && name.ends_with(end);
}

bool IsJournal(const std::string& capitals) {
  const bool isOurs = capitals.starts_with(kJournalPrefix) || capitals.starts_with(kRecordsJournalPrefix);
  return isOurs && capitals.size() > 4 && capitals.substr(capitals.size() - 4, 2) == ".J";
}

// One that was left behind can be opened for writing.
bool IsSomebodyAtIt(const fs::path& journal) {
  try {
    const SharedFile opened(journal, Access::Write, Deny::None, Absent::Fail);
    return false;
  } catch (const FileError& error) {
    return error.Number() == FileErrorNumber::PermissionDenied;
  }
}

bool IsFit(const fs::directory_entry& entry, const std::string& name) {
  std::error_code error;
  if (!IsPlainName(name)) return false;
  if (entry.is_symlink(error)) return !LeadsOut(entry.path()) && entry.is_regular_file(error);
  return entry.is_regular_file(error);
}

void TakeIn(ShopFiles& shop, const fs::directory_entry& entry) {
  const std::string name = entry.path().filename().string();
  if (IsOfTheMoment(name)) return;
  std::error_code error;
  if (!entry.is_symlink(error) && entry.is_directory(error)) return;
  if (!IsFit(entry, name)) {
    shop.leftOut.push_back(name);
    return;
  }
  shop.taken.push_back(name);
  if (IsJournal(ToUpper(name)) && IsSomebodyAtIt(entry.path())) shop.atWork.push_back(name);
}

}  // namespace

bool IsOfTheMoment(std::string_view name) {
  const std::string capitals = ToUpper(name);
  constexpr std::array<std::string_view, 3> kOfTheEngine = {".MDB-JOURNAL", ".MDB-WAL", ".MDB-SHM"};
  const bool isOfTheEngine = std::any_of(kOfTheEngine.begin(), kOfTheEngine.end(),
                                         [&](std::string_view end) { return capitals.ends_with(end); });
  return isOfTheEngine || Fits(capitals, "LN", ".LOG") || Fits(capitals, "AU", ".$$$") ||
         Fits(capitals, "LANTOS-", ".TMP") || capitals == ToUpper(kLastVerified);
}

ShopFiles LookAtShop(const fs::path& directory) {
  ShopFiles shop;
  try {
    for (const fs::directory_entry& entry : fs::directory_iterator(directory)) TakeIn(shop, entry);
  } catch (const fs::filesystem_error& error) {
    throw BackupError(
        fmt::format("The directory \"{}\" can't be read: {}.", TextOfPath(directory), error.code().message()));
  }
  std::sort(shop.taken.begin(), shop.taken.end());
  std::sort(shop.leftOut.begin(), shop.leftOut.end());
  return shop;
}

}  // namespace lantos
