#pragma once

#include "records/AskedTurn.h"
#include "records/Contention.h"
#include "records/WriteAhead.h"

namespace lantos {

// The turn of the change of a part that is under way, if one is. While the person is asked it is let go, and behind the
// box taken again: what was read before that is to be read anew.
class UpdateUnderWay {
 public:
  void Begin(AskedTurn& turn, WriteAhead& ahead) {
    turn_ = &turn;
    ahead_ = &ahead;
    readIn_ = 0;
  }
  void End() {
    turn_ = nullptr;
    ahead_ = nullptr;
  }

  // Null where no change is under way: a conversion's parts stand in its own journal.
  WriteAhead* Ahead() const { return ahead_; }

  // Ahead of a box that only tells; whoever reads the next part takes it again.
  void LetGo() {
    if (turn_ != nullptr) turn_->LetGo();
  }
  void LetGoWhileAsked(Contention& contention) const {
    if (turn_ != nullptr) contention.LetGoWhileAsked(*turn_);
  }
  // False when it was let go and the person waits no longer.
  bool Have() { return turn_ == nullptr || turn_->IsHad() || turn_->TakeAgain(); }

  void NoteReading() { readIn_ = Retakes(); }
  bool IsOvertaken() const { return Retakes() != readIn_; }

 private:
  int Retakes() const { return turn_ == nullptr ? 0 : turn_->Retakes(); }

  AskedTurn* turn_ = nullptr;
  WriteAhead* ahead_ = nullptr;
  int readIn_ = 0;  // the retakes when a part was read last
};

// Thrown where a part that was read in an earlier turn is to be written. Nothing of it is written then.
struct Overtaken {};

// Runs what reads a part and writes it, again for as long as it is overtaken.
template <class Update>
auto UntilNotOvertaken(const Update& update) {
  for (;;) {
    try {
      return update();
    } catch (const Overtaken&) {
      continue;
    }
  }
}

}  // namespace lantos
