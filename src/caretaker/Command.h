#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <stdexcept>
#include <string>

namespace lantos {

// With what lantos-shop ends, whichever command it ran: scripts go by these numbers (docs/caretaker.md).
enum class Outcome : int {
  Sound = 0,      // done, or nothing was found
  Repaired = 1,   // something was found, and is mended
  Left = 4,       // something was found, and is still there
  NotRun = 8,     // could not run; what is there stays as it was
  WrongUse = 16,  // of the command line
};

// What the command line asked for; empty where no command was named.
struct Asked {
  std::function<Outcome()> run;
};

// The command line is understood, and yet no such thing can be asked for; what() says why, in UTF-8.
class WrongUse : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Each adds its command to the command line. When it is the one that was asked for, parsing leaves in asked what is to
// be run. A failure is thrown from there: WrongUse, WordedError, or any other exception for the person at the command
// line. asked outlives the parsing.
void AddNew(CLI::App& app, Asked& asked);
void AddSample(CLI::App& app, Asked& asked);
void AddMove(CLI::App& app, Asked& asked);
void AddPruneTrail(CLI::App& app, Asked& asked);

}  // namespace lantos
