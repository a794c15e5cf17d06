#pragma once

#include <cstdint>
#include <vector>

#include "frame/Environment.h"
#include "frame/SharedFile.h"
#include "ui/Desktop.h"

namespace lantos {

// Which numbers work orders have already: those of all tags in both files, of texts, and of conversions that took one
// and haven't come to their end. The files are read once, from one end to the other: a counter that came back from a
// backup lies anywhere among them.
class WorkorderNumbers {
 public:
  // Reads the tags. A file that is held or can't be read is asked about: any number may be in it. GivenUp when the
  // person doesn't wait. One that isn't there has no numbers. The archived tags, if they are held for two seconds, are
  // left for when they are needed: a work order's own tag asks about them later on.
  WorkorderNumbers(Environment& environment, ui::Desktop& desktop);

  // Without the archived tags none is free but behind all others.
  bool IsTaken(std::int32_t number) const;
  // Of those in tags and journals, as far as it can be one: a damaged tag may bear any. 0 when there is none. Asks and
  // throws as the constructor does about archived tags that are still held.
  std::int32_t Highest();

 private:
  template <class Tag>
  void AddAllOf(const SharedFile& tags);
  void AddArchived();
  void AddPending();
  void Add(std::int32_t number);

  Environment& environment_;
  ui::Desktop& desktop_;
  std::vector<std::int32_t> numbers_;
  std::int32_t highest_ = 0;
  bool lacksArchived_ = false;
};

}  // namespace lantos
