#pragma once

#include <cstddef>
#include <string>

namespace lantos {

// By which name a server keeps what this copy of the program has changed, for whoever follows to leave out.
class OwnChanges {
 public:
  OwnChanges();

  const std::string& Name() const { return name_; }
  // The connection went with a change on its way, and whether that is stored isn't known: what is kept by the name that
  // stood until now is anybody's.
  void Doubt();
  std::size_t Doubts() const { return doubts_; }

 private:
  std::string name_;
  std::size_t doubts_ = 0;
};

}  // namespace lantos
