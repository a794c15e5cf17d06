#pragma once

#include <map>
#include <string>

#include "shop/Shop.h"
#include "ui/Controls.h"

namespace lantos {

// Files whose system told at their close alone that what was written may be lost. By then the routine is done and has
// nothing to try again; so the person is told between two of their actions, a box a file.
class DoubtfulFiles {
 public:
  DoubtfulFiles(Shop& shop, ui::Timer& timer);
  ~DoubtfulFiles();
  DoubtfulFiles(const DoubtfulFiles&) = delete;

  // What hasn't been told yet.
  void Tell();

 private:
  Shop& shop_;
  ui::Timer& timer_;
  std::map<std::string, FileFailure> untold_;  // by name
};

}  // namespace lantos
