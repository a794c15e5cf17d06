#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "caretaker/backup/Manifest.h"
#include "caretaker/backup/ShopFiles.h"
#include "estimatedb/DatabaseCopy.h"
#include "frame/Clock.h"

namespace lantos {

// Copies the files of a shop that others work in to a folder, so that all of them are as they were at one moment: what
// was written to while others were copied is copied again, until one look at all of them finds nothing moved. No file
// is held for longer than the reading of a block.
class ShopTaking {
 public:
  // Hears how many bytes were copied so far, and nothing new while it waits for others.
  using Tell = std::function<void(std::uint64_t)>;

  ShopTaking(std::filesystem::path directory, std::filesystem::path into, Clock& clock, Tell tell);

  // Throws BackupError when the shop never stands still, or a file is held all the time; FileError, DatabaseError.
  void Take();

  const std::vector<BackedFile>& Files() const { return files_; }  // by name
  const std::vector<std::string>& LeftOut() const { return leftOut_; }
  int Rounds() const { return rounds_; }

 private:
  struct Taken {
    struct stat stamp = {};
    BackedFile file;
    bool isProven = false;  // the stamp would show a later change
    std::unique_ptr<DatabaseCopy> database;
  };

  bool Settle();
  bool LookAtAll();
  void CatchUp(const LocalTime& turn);  // which began then
  bool ForgetGone(const std::vector<std::string>& names);
  bool LookAt(const std::string& name);
  bool LookAtDatabase(const std::string& name, bool isStill);
  bool TakeFile(const std::string& name, Taken& taken, const struct stat& stamp);
  BackedFile CopyFile(const std::string& name, const std::string& to);
  void List();

  std::filesystem::path directory_;
  std::filesystem::path into_;
  Clock& clock_;
  Tell tell_;
  std::map<std::string, Taken> taken_;
  std::vector<BackedFile> files_;
  std::vector<std::string> leftOut_;
  std::vector<std::string> moved_;  // at the last look, without databases
  std::uint64_t bytes_ = 0;
  LocalTime start_;
  int rounds_ = 0;
  std::int64_t stampMargin_;  // nanoseconds that a stamp must be older than the reading
  bool isAnybodyAtWork_ = false;
  std::optional<LocalTime> seenAtWork_;  // since when, without a pause
};

}  // namespace lantos
