#pragma once

#include <string>

#include "frame/FileStamp.h"
#include "shop/Shop.h"

namespace lantos {

// Whether the customers' names that the board shows are still those of the files: the time of change and the length of
// their tag file tell it.
class FollowedNames {
 public:
  explicit FollowedNames(Shop& shop) : shop_(shop) {}

  // The board reads the names from now on.
  void Begin();
  // Whatever the file says, they are to be read.
  void MakeStale() { isStale_ = true; }
  // By one look at the file from outside.
  bool AreStale() const;
  // The tags are read, and nobody is taken from memory. They are stale until the board shows them. No box: what is the
  // matter with the file is thrown.
  void ReadTags();
  void WereShown() { isStale_ = false; }

 private:
  void TakeStamp();

  Shop& shop_;
  std::string path_;
  FileStamp stamp_;         // as the names were read
  bool isReliedOn_ = true;  // a change since has left another stamp
  bool isStale_ = false;
};

}  // namespace lantos
