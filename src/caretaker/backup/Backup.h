#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "caretaker/backup/Manifest.h"
#include "frame/Clock.h"

namespace lantos {

// How far a backup, or the way back, is; of is 0 where it isn't known ahead.
struct BackupProgress {
  std::string_view step;
  std::uint64_t done = 0;
  std::uint64_t of = 0;
};
using TellBackup = std::function<void(const BackupProgress&)>;

struct BackupDone {
  std::filesystem::path archive;
  Manifest manifest;
  std::vector<std::string> leftOut;            // what lies in the directory and is no file of a shop
  std::vector<std::filesystem::path> deleted;  // older ones
  std::vector<std::filesystem::path> cleared;  // what a run that was killed had left beside it
  int rounds = 0;
};

// Takes a backup of the shop in a directory while others work in it. The archive is made under another name, forced to
// the disk, and put in its place in one step. Room for the shop's files is wanted beside it meanwhile. Throws
// BackupError, FileError, DatabaseError; no archive is made then.
BackupDone MakeBackup(const std::filesystem::path& directory, const std::filesystem::path& archive, Clock& clock,
                      const TellBackup& tell);

// The same for a job of every night: the time goes into the name ("shop-20030930-081500.tar.zst"), and when the new one
// is whole, it and the newest of the others stay; the other ones of these names are deleted.
BackupDone MakeNightlyBackup(const std::filesystem::path& directory, const std::filesystem::path& archive, int keep,
                             Clock& clock, const TellBackup& tell);

}  // namespace lantos
