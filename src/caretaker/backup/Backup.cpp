#include "caretaker/backup/Backup.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <system_error>

#include "caretaker/backup/Archive.h"
#include "caretaker/backup/BackupError.h"
#include "caretaker/backup/LeftOvers.h"
#include "caretaker/backup/PlainFile.h"
#include "caretaker/backup/ShopFigures.h"
#include "caretaker/backup/ShopTaking.h"
#include "estimatedb/EstimateDatabase.h"
#include "frame/Dates.h"
#include "frame/FileError.h"
#include "frame/FileIO.h"
#include "frame/FlushDirectory.h"
#include "frame/PathText.h"
#include "frame/Version.h"
#include "records/modSystem.h"

namespace lantos {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kEnding = ".tar.zst";

void RefuseNoShop(const fs::path& directory, Clock& clock) {
  std::error_code error;
  if (!fs::is_directory(directory, error)) {
    throw BackupError(fmt::format("There is no directory \"{}\".", TextOfPath(directory)));
  }
  FileIO files(clock);
  files.SetDataDir(TextOfPath(directory / ""));
  if (files.IsThere(kLantosDatabase) || files.IsThere(kSystemFile)) return;
  throw BackupError(fmt::format("There is no shop in \"{}\": neither {} nor {} is there.", TextOfPath(directory),
                                kLantosDatabase, kSystemFile));
}

fs::path FolderOf(const fs::path& archive) { return fs::absolute(archive).parent_path(); }

// A disk that takes the shop with it would take the backup too; and the next backup would hold this one.
void RefuseInside(const fs::path& directory, const fs::path& archive) {
  std::error_code error;
  if (!fs::equivalent(directory, FolderOf(archive), error)) return;
  throw BackupError(
      fmt::format("\"{}\" would lie in the shop's own directory. Choose a place outside of it, on another disk.",
                  TextOfPath(archive)));
}

// Gone again unless it has got its name.
class Making {
 public:
  explicit Making(fs::path archive) : archive_(std::move(archive)), path_(archive_.string() + kBegunEnding) {}
  ~Making() {
    std::error_code ignored;
    if (!isPlaced_) fs::remove(path_, ignored);
  }
  Making(const Making&) = delete;

  const fs::path& Path() const { return path_; }
  void Place() {
    if (::rename(path_.c_str(), archive_.c_str()) != 0) {
      ThrowFileError(errno, fmt::format("putting \"{}\" in its place", TextOfPath(archive_)));
    }
    isPlaced_ = true;
    FlushDirectory(FolderOf(archive_));
  }

 private:
  fs::path archive_;
  fs::path path_;
  bool isPlaced_ = false;
};

std::string IsoTime(const LocalTime& now) { return FormatIsoDate(now.day) + "T" + FormatTime(now); }

// "20030930-081500".
std::string StampOf(const LocalTime& now) {
  const CivilDate date = FromSerial(now.day);
  const std::int64_t seconds = now.millisecondOfDay / 1000;
  return fmt::format("{:04}{:02}{:02}-{:02}{:02}{:02}", date.year, date.month, date.day, seconds / 3600,
                     seconds / 60 % 60, seconds % 60);
}

struct NameOfNights {
  std::string beginning;
  std::string ending;

  explicit NameOfNights(const fs::path& archive) : beginning(archive.filename().string()) {
    const bool isUsual = beginning.ends_with(kEnding);
    ending = isUsual ? std::string(kEnding) : archive.extension().string();
    beginning.resize(beginning.size() - ending.size());
    beginning += '-';
  }
  bool IsOne(const std::string& name) const {
    if (name.size() <= beginning.size() + ending.size() || !name.starts_with(beginning) || !name.ends_with(ending)) {
      return false;
    }
    const std::string stamp = name.substr(beginning.size(), name.size() - beginning.size() - ending.size());
    constexpr std::string_view kForm = "00000000-000000";
    return std::equal(stamp.begin(), stamp.end(), kForm.begin(), kForm.end(),
                      [](char c, char form) { return form == '-' ? c == '-' : c >= '0' && c <= '9'; });
  }
};

// By the time at which they were written, since a clock that was wrong is in the names. The new one isn't among them.
std::vector<fs::path> DeleteOlder(const NameOfNights& names, const fs::path& newest, int keep) {
  std::vector<std::pair<fs::file_time_type, fs::path>> nights;
  std::error_code ignored;
  for (const fs::directory_entry& entry : fs::directory_iterator(FolderOf(newest))) {
    const std::string name = entry.path().filename().string();
    if (names.IsOne(name) && name != newest.filename().string()) {
      nights.emplace_back(entry.last_write_time(ignored), entry.path());
    }
  }
  std::sort(nights.begin(), nights.end(), std::greater<>());
  std::vector<fs::path> deleted;
  for (std::size_t i = static_cast<std::size_t>(keep - 1); i < nights.size(); ++i) {
    if (fs::remove(nights[i].second, ignored)) deleted.push_back(nights[i].second);
  }
  return deleted;
}

}  // namespace

BackupDone MakeBackup(const fs::path& directory, const fs::path& archive, Clock& clock, const TellBackup& tell) {
  RefuseNoShop(directory, clock);
  RefuseInside(directory, archive);
  BackupDone done;
  const std::string name = archive.filename().string();
  done.cleared = ClearLeftOvers(FolderOf(archive), [&name](std::string_view each) { return each == name; });
  const ScratchFolder copies(archive.string() + std::string(kCopiesMark));
  done.archive = archive;
  done.manifest.madeAt = IsoTime(clock.Now());
  done.manifest.directory = fs::absolute(directory).lexically_normal().string();
  done.manifest.program = ProgramVersion();
  ShopTaking taking(directory, copies.Path(), clock, [&](std::uint64_t bytes) { tell({"copying", bytes, 0}); });
  taking.Take();
  done.manifest.files = taking.Files();
  done.leftOut = taking.LeftOut();
  done.rounds = taking.Rounds();
  done.manifest.figures = FiguresOf(copies.Path(), clock);
  Making making(archive);
  const std::uint64_t total = done.manifest.TotalLength();
  WriteArchive(making.Path(), done.manifest, copies.Path(), [&](std::uint64_t bytes) {
    tell({"compressing", bytes, total});
  });
  making.Place();
  return done;
}

BackupDone MakeNightlyBackup(const fs::path& directory, const fs::path& archive, int keep, Clock& clock,
                             const TellBackup& tell) {
  const NameOfNights names(archive);
  const fs::path folder = FolderOf(archive);
  RefuseNoShop(directory, clock);
  RefuseInside(directory, archive);
  const auto cleared =
      ClearLeftOvers(folder, [&names](std::string_view each) { return names.IsOne(std::string(each)); });
  BackupDone done =
      MakeBackup(directory, folder / (names.beginning + StampOf(clock.Now()) + names.ending), clock, tell);
  done.cleared.insert(done.cleared.end(), cleared.begin(), cleared.end());
  done.deleted = DeleteOlder(names, done.archive, std::max(keep, 1));
  return done;
}

}  // namespace lantos
