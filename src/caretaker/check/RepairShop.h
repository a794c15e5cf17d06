#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "caretaker/check/CheckShop.h"
#include "caretaker/check/Kinds.h"
#include "frame/PlainWords.h"

namespace lantos {

enum class Deed { Mend, TellOnly };

struct Repaired {
  std::vector<Finding> mended;      // or what would be, in their order
  std::vector<Finding> left;        // without one right answer
  std::vector<std::string> copies;  // the names under which the files lie as they were
};

// The mending has ended in its middle. Its words have those of the failure, and the names of the copies.
class HalfRepaired : public WordedError {
 public:
  HalfRepaired(const std::exception& failure, const std::vector<std::string>& copies);
};

// Gives what these kinds find its one right answer. Nobody else may work in the directory: throws ShopError, nothing
// changed, where a copy runs, a file is open, or a journal tells of work that ended in the middle. Ahead of the first
// change of a file a copy of it stands beside it and is on the disk. FileError and DatabaseError: nothing was changed;
// HalfRepaired: what was changed until then stays, and the copies with it. beforeWriting is run between the copies and
// the first change that follows them, tellKind ahead of each kind of the first look: what it throws leaves all as it
// was.
Repaired RepairShop(ShopView& shop, std::span<const Kind> kinds, Deed deed,
                    const std::function<void()>& beforeWriting = {}, const TellKind& tellKind = {});

}  // namespace lantos
