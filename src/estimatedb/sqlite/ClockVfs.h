#pragma once

#include <memory>
#include <string>

#include "frame/Clock.h"

namespace lantos {

// SQLite's own access to files, with the program's clock in place of the machine's: date('now','localtime') is the
// clock's day. It lives from the constructor to the destructor under a name of its own.
class ClockVfs {
 public:
  explicit ClockVfs(const Clock& clock);
  ~ClockVfs();
  ClockVfs(const ClockVfs&) = delete;
  ClockVfs& operator=(const ClockVfs&) = delete;

  const std::string& Name() const { return name_; }

 private:
  struct Shim;
  std::string name_;
  std::unique_ptr<Shim> shim_;
};

}  // namespace lantos
