#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "estimatedb/engine/Engine.h"
#include "frame/Clock.h"
#include "frame/UserSettings.h"
#include "spelling/Speller.h"
#include "ui/Desktop.h"

namespace lantos {

// What the process was started with.
struct Invocation {
  std::string commandLine;   // all arguments, joined by blanks, in the form of TextOfPath
  std::string computerName;  // empty when it has none
  // How long a lock that another copy holds on the database is waited for.
  std::chrono::milliseconds busyTimeout = kBusyTimeout;
  std::string userName = {};  // at the operating system, for the trail; empty when there is none
  // Whether the board shows by itself what others change: as the person has set it, or not before it is asked to.
  enum class Follow { WhenAsked, AsSet };
  Follow follow = Follow::WhenAsked;
  OpenSpeller openSpeller = {};  // of this workstation
};

// One running copy: builds the modules, brings the main window up, serves the person, and goes down in order. Two can
// live in one process, each with its own state.
class Program {
 public:
  Program(ui::Desktop& desktop, Clock& clock, UserSettings& settings, Invocation invocation);
  ~Program();

  // From the first line of the main window's load event to the end. The result is an ExitCode. A start that the person
  // gives up ends the process from within, by Desktop::EndProcess. Errors of the start are shown in a box and not
  // thrown.
  int Run();
  // The page of all keys of all forms (UTF-8). No file is read for it, and no window made.
  std::string Keys();
  // Of this run's log file, in the program's page; empty before it is open.
  std::string LogPath() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

// The computer's name from the platform; empty when it has none.
std::string PlatformComputerName();
// The name under which this process runs; empty when the user has none.
std::string PlatformUserName();

}  // namespace lantos
