#pragma once

#include <filesystem>

#include "frame/Clock.h"

namespace lantos {

// Turns at changing a shared file: what is read, changed and written back within one isn't overtaken by another copy of
// this program that does the same. They claim nothing that an open of the file looks at, so that the routines inside
// open the file as they always do, and other programs see none of it. A turn that doesn't come within five seconds,
// because the copy that has it waits for its person, isn't had: AskedTurn asks then, as it does where the file system
// grants no locks, which is no wait. Without the file, and where it is read-only, there are no turns to wait for.
class UpdateTurns {
 public:
  UpdateTurns(const std::filesystem::path& path, Clock& clock);
  ~UpdateTurns();
  UpdateTurns(const UpdateTurns&) = delete;

  class Turn {
   public:
    explicit Turn(UpdateTurns& turns) : turns_(turns), isHad_(turns.Begin()) {}
    ~Turn() {
      if (isHad_) turns_.End();
    }
    Turn(const Turn&) = delete;

    bool IsHad() const { return isHad_; }
    // Why it isn't had: by no other copy.
    bool LacksLocks() const { return turns_.lacksLocks_; }
    void WaitAgain() { isHad_ = turns_.Begin(); }
    void LetGo() {
      if (isHad_) turns_.End();
      isHad_ = false;
    }

   private:
    UpdateTurns& turns_;
    bool isHad_;
  };

 private:
  bool Begin();  // false when it didn't come
  void End();
  bool Lock(short type);

  Clock& clock_;
  int descriptor_ = -1;
  bool lacksLocks_ = false;  // by the last try
};

// One turn and no more, for as long as this stands.
struct LoneTurn {
  LoneTurn(const std::filesystem::path& path, Clock& clock) : turns(path, clock) {}

  UpdateTurns turns;
  UpdateTurns::Turn turn{turns};
};

}  // namespace lantos
