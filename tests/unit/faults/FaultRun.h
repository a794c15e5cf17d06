#pragma once

#include <optional>
#include <string>
#include <vector>

#include "faults/Deed.h"
#include "faults/ShopState.h"
#include "faults/TrailAgreement.h"
#include "support/FaultyCalls.h"

namespace lantos::test {

// What goes wrong in one run of a command.
struct Trouble {
  enum class Place { FileCall, Statement };
  // What the person says to the box: all is well by then.
  enum class Person { Retries, GivesUp };

  Place place = Place::FileCall;
  std::size_t index = 0;
  Fault fault = Fault::DiskFull;
  Person person = Person::Retries;
  std::string what;  // the call, in words
};

// How it ended.
struct Ending {
  enum class Kind { Stored, AsBefore, Gap, InTurn, Apart };

  Kind kind = Kind::Stored;
  bool told = false;  // by a box, or an error on the screen
  bool hung = false;  // it tried without end, and without a word
  bool again = true;  // where nothing was stored: the next try did
  std::vector<std::string> apart;
  std::string said;

  // What was typed is neither stored nor said to be not stored, or files don't belong together.
  bool IsLost() const { return kind == Kind::Apart || hung || (kind != Kind::Stored && !told) || !again; }
};

// One command under every trouble that it can meet.
class FaultRun {
 public:
  explicit FaultRun(const NamedDeed& deed);

  const std::string& Name() const { return deed_.name; }
  std::size_t FileCalls() const { return calls_.size(); }
  std::size_t Statements() const { return statements_.size(); }
  const std::vector<FileCall>& Calls() const { return calls_; }
  // All of them, or so many that lie evenly among them.
  std::vector<Trouble> Troubles(std::optional<std::size_t> atMost) const;
  Ending Meet(const Trouble& trouble) const;
  // The calls that leave something other on the disk: all, or so many that each file is met, and of each those that lie
  // evenly among its own.
  std::vector<std::size_t> Kills(std::optional<std::size_t> atMost) const;
  // The process ends in front of the call.
  Ending Kill(std::size_t call) const;

 private:
  // On a shop of its own, whose changes are on the trail.
  std::unique_ptr<Deed> Make() const;
  // Rows and trail belong together, whatever became of the command.
  void CompareTrail(Deed& run, Ending& ending) const;
  Ending Judge(const ShopState& state, Deed& deed) const;
  bool IsStored(const ShopState& state, const Deed& deed) const;
  // Where a journal was left, both ways from there, each on a copy of the run's directory. In turn it is only if both
  // end whole or as before.
  void TrySettling(Deed& run, Ending& ending) const;

  NamedDeed deed_;
  std::vector<FileCall> calls_;
  std::vector<std::string> statements_;
  ShopState before_;
  ShopState after_;
  TrailedTables rowsBefore_;
};

}  // namespace lantos::test
