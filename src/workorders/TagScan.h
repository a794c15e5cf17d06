#pragma once

#include <algorithm>
#include <span>
#include <string_view>
#include <vector>

#include "frame/Dates.h"
#include "frame/SharedFile.h"
#include "workorders/Workorders.h"

namespace lantos {

// Whether a walk over tags goes on behind the one that was just seen.
enum class TagWalk { GoOn, Stop };

// The one walk over tags of work orders: every whole tag of an open file, from the last to the first, a block a read.
// What lies ahead of the first whole one, in a file that isn't a row of tags, is left out. Throws FileError. Returns
// how many bytes those are.
template <std::size_t Length, class Visit>
std::uint64_t WalkTagsBackwards(const SharedFile& file, Visit visit) {
  constexpr std::size_t kBlock = 256;  // tags
  std::vector<Record<Length>> block(kBlock);
  std::uint64_t end = file.Length();
  while (end >= Length) {
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(end / Length, kBlock));
    end -= count * Length;
    file.ReadAt(end, std::as_writable_bytes(std::span(block).first(count)));
    for (std::size_t i = count; i-- > 0;) {
      if (visit(block[i]) == TagWalk::Stop) return 0;
    }
  }
  return end;
}

// The day that counts for a work order (see DateOf); an old tag has the bare serial. 0 for a tag without its day.
template <std::size_t Length>
FileDate DayOf(const Record<Length>& tag) {
  const FileDate date = DateOf(tag);
  return date == 0 ? 0 : ToFileDate(FromFileDate(date));
}

// The work orders of one vehicle, by its exact VIN, from one day to another, both included. The newest come first; of
// one day the higher number. Each scan opens its file for its own time only; a damaged file has been told of.
class TagScan {
 public:
  struct Wanted {
    std::string_view vin;  // trimmed, not empty
    FileDate from = 0;
    FileDate to = 0;
  };
  TagScan(Environment& environment, Workorders& workorders) : environment_(environment), workorders_(workorders) {}

  std::vector<ActiveWoTag> Active(const Wanted& wanted) const;
  // The title is that of the box about a held file.
  std::vector<ArchivedWoTag> Archived(const Wanted& wanted, const char* title) const;

 private:
  Environment& environment_;
  Workorders& workorders_;
};

}  // namespace lantos
