#include "caretaker/backup/Restore.h"

#include <fmt/format.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <optional>
#include <system_error>

#include "caretaker/backup/Archive.h"
#include "caretaker/backup/BackupError.h"
#include "caretaker/backup/PlainFile.h"
#include "caretaker/backup/ShopFiles.h"
#include "estimatedb/EngineChoice.h"
#include "estimatedb/EstimateDatabase.h"
#include "frame/Dates.h"
#include "frame/FileIO.h"
#include "frame/FlushDirectory.h"
#include "frame/PathText.h"
#include "frame/SharedFile.h"
#include "frame/Text.h"
#include "frame/WorkingCopies.h"

namespace lantos {

namespace fs = std::filesystem;

namespace {

constexpr std::chrono::milliseconds kShortWait{200};

std::string Shown(const fs::path& path) { return TextOfPath(path); }

[[noreturn]] void RefuseInUse(const std::string& name) {
  throw BackupError(
      fmt::format("Somebody works in this directory: \"{}\" is in use. Nothing was changed.\n\nEnd Lantos and the main "
                  "application on every workstation first: what is put in the place of an open file is written over "
                  "without a word.",
                  name));
}

bool IsDatabasesName(const std::string& name) {
  return EqualsIgnoringCase(name, kLantosDatabase) || EqualsIgnoringCase(name, kKorvelDatabase);
}

// Of the shop, or of an engine that works on one of its files.
std::vector<std::string> NamesIn(const fs::path& directory) {
  std::vector<std::string> names = LookAtShop(directory).taken;
  for (const fs::directory_entry& entry : fs::directory_iterator(directory)) {
    const std::string name = entry.path().filename().string();
    const std::string capitals = ToUpper(name);
    if (IsOfTheMoment(name) && capitals.find(".MDB-") != std::string::npos) names.push_back(name);
  }
  return names;
}

void RefuseLockedDatabase(const fs::path& path, const Clock& clock) {
  try {
    OpenDatabase(path, clock, kShortWait)->Together([] {});
  } catch (const DatabaseError& error) {
    if (error.Kind() == DatabaseErrorKind::Locked) RefuseInUse(path.filename().string());
  }  // what is damaged is about to be replaced
}

void RefuseWhatIsInUse(const fs::path& directory, const std::vector<std::string>& names, Clock& clock) {
  FileIO files(clock);
  files.SetDataDir(TextOfPath(directory / ""));
  if (const std::string log = LogInUse(files); !log.empty()) RefuseInUse(log);
  for (const std::string& name : names) {
    const fs::path path = directory / name;
    // Another program's database is a file like any other.
    if (IsDatabasesName(name) && IsDatabase(path) && !NamesServer(path)) {
      RefuseLockedDatabase(path, clock);
      continue;
    }
    try {
      SharedFile(path, Access::ReadWrite, Deny::All, Absent::Fail);
    } catch (const FileError& error) {
      if (error.Number() == FileErrorNumber::PermissionDenied) RefuseInUse(name);
      // A journal is gone when the engine has looked at its database.
      if (error.Number() != FileErrorNumber::FileNotFound) throw;
    }
  }
}

void RefuseWithoutRoom(const fs::path& directory, std::uint64_t length) {
  struct statvfs disk = {};
  if (::statvfs(directory.c_str(), &disk) != 0) return;
  if (disk.f_bavail > length / std::max<std::uint64_t>(disk.f_frsize, 1)) return;
  throw BackupError(
      fmt::format("There isn't room enough for the {} bytes of the backup in \"{}\". Nothing was changed.", length,
                  Shown(directory)));
}

// Of a shop on a server a backup has the rows themselves, and none has what is of the moment. A server that somebody
// has written there would be asked for its tables.
void RefuseForeign(const fs::path& unpacked, const Manifest& manifest) {
  for (const BackedFile& file : manifest.files) {
    if (!IsOfTheMoment(file.name) && (!IsDatabasesName(file.name) || !NamesServer(unpacked / file.name))) continue;
    throw BackupError(fmt::format("\"{}\" in the backup is nothing that Lantos puts into one. Nothing was changed.",
                                  FromUtf8(file.name)));
  }
}

// A file that goes from one name to another, and back when something fails behind it.
class Moves {
 public:
  ~Moves() {
    if (isKept_) return;
    for (auto each = done_.rbegin(); each != done_.rend(); ++each) ::rename(each->to.c_str(), each->from.c_str());
  }
  void Move(const fs::path& from, const fs::path& to) {
    if (::rename(from.c_str(), to.c_str()) != 0) {
      ThrowFileError(errno, fmt::format("giving \"{}\" another name", Shown(from)));
    }
    done_.push_back({from, to});
  }
  void Keep() { isKept_ = true; }

 private:
  struct Step {
    fs::path from;
    fs::path to;
  };
  std::vector<Step> done_;
  bool isKept_ = false;
};

fs::path FreeFolder(const fs::path& directory, DaySerial day) {
  const std::string name = fmt::format("replaced-{}", FormatIsoDate(day));
  fs::path folder = directory / name;
  for (int number = 2; fs::exists(folder); ++number) folder = directory / fmt::format("{}-{}", name, number);
  return folder;
}

// A folder like the shop's own: what is made in it has the modes and the group that the shop's files have.
class FolderLikeShops {
 public:
  FolderLikeShops(const fs::path& path, const fs::path& directory) : path_(path) {
    fs::create_directory(path_, directory);
    struct stat shop = {};
    if (::stat(directory.c_str(), &shop) == 0) ::chmod(path_.c_str(), shop.st_mode & 07777);
  }
  ~FolderLikeShops() {
    std::error_code ignored;
    if (!isKept_) fs::remove(path_, ignored);
  }
  FolderLikeShops(const FolderLikeShops&) = delete;

  const fs::path& Path() const { return path_; }
  void Keep() { isKept_ = true; }

 private:
  fs::path path_;
  bool isKept_ = false;
};

class Restoring {
 public:
  Restoring(const fs::path& archive, fs::path directory, const std::vector<std::string>& only, Clock& clock)
      : reader_(archive), directory_(std::move(directory)), only_(only), clock_(clock) {
    for (const std::string& name : only_) {
      if (reader_.What().Find(name) != nullptr) continue;
      throw BackupError(fmt::format("There is no \"{}\" in the backup. Nothing was changed.", FromUtf8(name)));
    }
  }

  RestoreDone Restore(const TellBackup& tell) {
    std::error_code error;
    const bool isNew = !fs::exists(directory_, error);
    if (isNew && !fs::create_directory(directory_, error)) {
      throw BackupError(fmt::format("The directory \"{}\" can't be made: {}.", Shown(directory_), error.message()));
    }
    try {
      return Replace(tell);
    } catch (...) {
      if (isNew) fs::remove(directory_, error);
      throw;
    }
  }

 private:
  bool IsWanted(const std::string& name) const {
    return only_.empty() ||
           std::any_of(only_.begin(), only_.end(), [&](const auto& each) { return EqualsIgnoringCase(each, name); });
  }

  // Of the shop as it is: all of it, or the named ones, with what an engine has left beside a database.
  std::vector<std::string> Leaving() const {
    std::vector<std::string> names = NamesIn(directory_);
    std::erase_if(
        names, [&](const std::string& name) { return !IsWanted(name) && !IsWanted(name.substr(0, name.rfind('-'))); });
    return names;
  }

  RestoreDone Replace(const TellBackup& tell) {
    const std::vector<std::string> leaving = Leaving();
    RefuseWhatIsInUse(directory_, leaving, clock_);
    RefuseWithoutRoom(directory_, reader_.What().TotalLength());
    const fs::path unpacked = directory_ / "Lantos-restore.tmp";
    std::error_code ignored;
    fs::remove_all(unpacked, ignored);
    FolderLikeShops coming(unpacked, directory_);
    RestoreDone done;
    try {
      const std::uint64_t total = reader_.What().TotalLength();
      reader_.Unpack(
          coming.Path(), [&](const BackedFile& file) { return IsWanted(file.name); },
          [&](std::uint64_t bytes) {
            tell({"reading", bytes, total});
          });
      done.manifest = reader_.What();
      RefuseForeign(coming.Path(), done.manifest);
      Swap(Leaving(), coming.Path(), done);
    } catch (...) {
      fs::remove_all(unpacked, ignored);
      throw;
    }
    return done;
  }

  void Swap(const std::vector<std::string>& leaving, const fs::path& coming, RestoreDone& done) {
    RefuseWhatIsInUse(directory_, leaving, clock_);
    std::optional<FolderLikeShops> kept;
    Moves moves;
    const auto keep = [&](const std::string& name) {
      if (!kept) kept.emplace(FreeFolder(directory_, clock_.Today()), directory_);
      moves.Move(directory_ / name, kept->Path() / name);
    };
    for (const std::string& name : leaving) keep(name);
    for (const BackedFile& file : done.manifest.files) {
      if (!IsWanted(file.name)) continue;
      // What no backup takes may bear the name: a link that leads out of the directory, say.
      const fs::file_status there = fs::symlink_status(directory_ / file.name);
      if (fs::exists(there) && !fs::is_directory(there)) keep(file.name);
      moves.Move(coming / file.name, directory_ / file.name);
      done.restored.push_back(file.name);
    }
    moves.Keep();
    FlushDirectory(directory_);
    if (!kept) return;
    kept->Keep();
    FlushDirectory(kept->Path());
    done.kept = kept->Path();
  }

  ArchiveReader reader_;
  fs::path directory_;
  const std::vector<std::string>& only_;
  Clock& clock_;
};

}  // namespace

RestoreDone Restore(const fs::path& archive, const fs::path& directory, const std::vector<std::string>& only,
                    Clock& clock, const TellBackup& tell) {
  return Restoring(archive, fs::absolute(directory).lexically_normal(), only, clock).Restore(tell);
}

}  // namespace lantos
