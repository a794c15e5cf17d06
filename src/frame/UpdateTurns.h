#pragma once

#include <filesystem>

#include "frame/Clock.h"

namespace lantos {

// Turns at changing a shared file: what is read, changed and written back within one isn't overtaken by another copy of
// this program that does the same. They claim nothing that an open of the file looks at, so that the routines inside
// open the file as they always do, and other programs see none of it. A turn that doesn't come within some seconds,
// because the copy that has it waits for its person, is no longer waited for. Without the file there are no turns.
class UpdateTurns {
 public:
  UpdateTurns(const std::filesystem::path& path, Clock& clock);
  ~UpdateTurns();
  UpdateTurns(const UpdateTurns&) = delete;

  class Turn {
   public:
    explicit Turn(UpdateTurns& turns) : turns_(turns) { turns_.Begin(); }
    ~Turn() { turns_.End(); }
    Turn(const Turn&) = delete;

   private:
    UpdateTurns& turns_;
  };

 private:
  void Begin();
  void End();
  bool Lock(short type);

  Clock& clock_;
  int descriptor_ = -1;
};

}  // namespace lantos
