#include "estimatedb/DatabasePlace.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstdio>
#include <span>
#include <system_error>

#include "estimatedb/EstimateDatabase.h"
#include "frame/Dates.h"
#include "frame/FlushDirectory.h"
#include "frame/PathText.h"
#include "frame/SharedFile.h"
#include "frame/WorkingCopies.h"

namespace lantos {

namespace fs = std::filesystem;

void RefuseWith(const std::string& words) { throw DatabaseError(words, DatabaseErrorKind::Refused, 0, words); }

void RefuseWhereSomebodyWorks(const FileIO& files) {
  const std::string log = LogInUse(files);
  if (log.empty()) return;
  RefuseWith(fmt::format(
      "Somebody works with Lantos in this directory: \"{}\" is in use. Nothing was changed.\n\nEnd it on every "
      "workstation first, since a copy that goes on would look at the old database.",
      log));
}

fs::path PlaceOfDatabase(const FileIO& files) {
  const fs::path place = files.PathOf(kLantosDatabase);
  if (!fs::exists(place)) RefuseWith(fmt::format("There is no \"{}\".", TextOfPath(place)));
  return place;
}

void InTheMaking::Write(const std::string& text) {
  SharedFile file(path_, Access::Write, Deny::All);
  file.WriteAt(0, std::as_bytes(std::span(text)));
  file.Flush();
  file.Close();
}

void InTheMaking::TakeThePlaceOf(const fs::path& place) {
  if (::rename(path_.c_str(), place.c_str()) != 0) {
    ThrowFileError(errno, fmt::format("putting \"{}\" in its place", TextOfPath(place)));
  }
  FlushDirectory(place.parent_path());
}

void InTheMaking::Remove() noexcept {
  std::error_code ignored;
  fs::remove(path_, ignored);
  fs::remove(path_.string() + "-journal", ignored);
}

void TakeAwaySecondNames(const FileIO& files, const fs::path& place) {
  for (const std::string& name : files.List("Lantos-until-*.mdb")) {
    std::error_code ignored;
    const fs::path path = files.PathOf(name);
    if (fs::equivalent(path, place, ignored)) fs::remove(path, ignored);
  }
}

fs::path NameForTheOld(const FileIO& files) {
  const std::string day = FormatIsoDate(files.GetClock().Today());
  std::string name = fmt::format("Lantos-until-{}.mdb", day);
  for (int number = 2; files.IsThere(name); ++number) name = fmt::format("Lantos-until-{}-{}.mdb", day, number);
  return files.PathOf(name);
}

void Replace(InTheMaking& made, const fs::path& place, const fs::path& kept, const std::function<void(int)>& tell) {
  tell(1);
  const bool hasTwoNames = ::link(place.c_str(), kept.c_str()) == 0;
  if (!hasTwoNames && ::rename(place.c_str(), kept.c_str()) != 0) {
    ThrowFileError(errno, fmt::format("giving \"{}\" another name", TextOfPath(place)));
  }
  tell(2);
  try {
    made.TakeThePlaceOf(place);
  } catch (...) {
    hasTwoNames ? ::unlink(kept.c_str()) : ::rename(kept.c_str(), place.c_str());
    throw;
  }
  tell(3);
}

}  // namespace lantos
