#pragma once

#include <memory>
#include <optional>
#include <string>

#include "frame/ExitCodes.h"
#include "frame/FileIO.h"
#include "frame/OpenFiles.h"
#include "frame/Options.h"
#include "frame/RunLog.h"
#include "frame/UserSettings.h"

namespace lantos {

// What a run has of the world: time, files, settings, log. Built once by the start-up code and handed down.
struct Environment {
  Environment(Clock& theClock, UserSettings& theSettings) : clock(theClock), settings(theSettings) {
    files.logFailure = settings.logFailure = [this](const std::string& text) { log.Write(text); };
  }
  ~Environment() { settings.logFailure = nullptr; }
  Environment(const Environment&) = delete;

  Clock& clock;
  UserSettings& settings;
  FileIO files{clock};
  RunLog log{files};
  OpenFiles openFiles{files, log};

  std::string computerName;    // as the platform gives it; may be empty
  std::string userName;        // at the operating system; may be empty
  std::string profileSection;  // its first 20 characters, or "Lantos Defaults"
  int fontFactor = 1;
  StatusOptions statusOptions;
  PrintOptions printOptions;
  ShopOptions shopOptions;
  bool fleetVersion = false;
  bool hasKorvelDatabase = false;
  std::string updateFileName;  // of this run; empty before it is made
  // What the process ends with when the person gives up at a question that ends it; another one during the start.
  int exitCodeOfGivingUp = kEndedInOrder;

  // Lantos.ini in DataDir. Of an entry that can't be written the log hears too.
  ProfileFile Profile() const { return ProfileFile(files.PathOf("Lantos.ini"), files.logFailure); }
  DaySerial Today() const { return clock.Today(); }
};

}  // namespace lantos
