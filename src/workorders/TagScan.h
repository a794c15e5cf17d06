#pragma once

#include <algorithm>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "frame/Clock.h"
#include "frame/Dates.h"
#include "frame/SharedFile.h"
#include "workorders/Workorders.h"

namespace lantos {

// How long a file of such records is once nobody is in the middle of appending one: a length that isn't whole is looked
// at again for a moment. A damaged file keeps its own.
std::uint64_t SettledLength(const SharedFile& file, std::size_t unit, Clock& clock);

// A tag file for whoever can't do without it, open for reading while look is run: held for two seconds, or failing in
// the open or within look, it is asked about, and look is run anew. GivenUp when the person doesn't wait. No such file:
// look isn't run.
void LookAtNeededTags(Environment& environment, ui::Desktop& desktop, std::string_view name,
                      const std::function<void(const SharedFile& tags)>& look);

// The one walk over tags of work orders: every whole tag of an open file, from the last to the first, a block a read.
// What lies ahead of the first whole one, in a file that isn't a row of tags, is left out; what is appended behind the
// length that it begins with isn't met. The file stays open for as long as the walk goes on.
template <std::size_t Length>
class TagsBackwards {
 public:
  static constexpr std::size_t kBlock = 256;  // tags

  TagsBackwards(const SharedFile& file, std::uint64_t length) : file_(&file), ahead_(length), block_(kBlock) {}

  // The tags ahead of those read last, in the order of the file: the walk goes from the last of them. None at the
  // beginning of the file. Throws FileError.
  std::span<const Record<Length>> NextBlock() {
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(ahead_ / Length, kBlock));
    const std::span<Record<Length>> tags = std::span(block_).first(count);
    if (tags.empty()) return tags;
    const std::uint64_t start = ahead_ - count * Length;
    file_->ReadAt(start, std::as_writable_bytes(tags));
    ahead_ = start;
    return tags;
  }
  // Bytes that lie ahead of what was read.
  std::uint64_t Ahead() const { return ahead_; }
  bool HasMore() const { return ahead_ >= Length; }

 private:
  const SharedFile* file_;
  std::uint64_t ahead_;
  std::vector<Record<Length>> block_;
};

// What half of one and half of another hardly does.
template <std::size_t Length>
bool LooksLikeATag(const Record<Length>& tag) {
  const std::string_view name = tag.View(wotag::CustomerName);
  return name.find(',') != std::string_view::npos && tag.Get(wotag::Status) < kWoStatusTexts.size() &&
         tag.Get(wotag::Type) < kWoTypeTexts.size() && tag.Get(wotag::TaxExempt) <= 1;
}

// Each tag of a file that may have half a tag somewhere: whoever appends by whole tags goes on from the beginning,
// whoever appends at the true end counts from there, so it is read both ways then. What was found as tags may be none.
enum class TagRow { Straight, Askew };
template <class Tag, class Look>
void LookAtTagsBothWays(const SharedFile& file, Look look) {
  const std::uint64_t length = file.Length();
  const std::uint64_t whole = length - length % Tag::kLength;
  const TagRow row = whole == length ? TagRow::Straight : TagRow::Askew;
  const auto walkFrom = [&](std::uint64_t end) {
    TagsBackwards<Tag::kLength> walk(file, end);
    for (auto tags = walk.NextBlock(); !tags.empty(); tags = walk.NextBlock()) {
      for (const Tag& tag : tags) look(tag, row);
    }
  };
  walkFrom(whole);
  if (row == TagRow::Askew) walkFrom(length);
}

// The day that counts for a work order (see DateOf); an old tag has the bare serial. 0 for a tag without its day.
template <std::size_t Length>
FileDate DayOf(const Record<Length>& tag) {
  const FileDate date = DateOf(tag);
  return date == 0 ? 0 : ToFileDate(FromFileDate(date));
}

// The work orders of one vehicle, by its exact VIN, from one day to another, both included. The newest come first; of
// one day the higher number. Each scan opens its file for its own time only; a damaged file has been told of. None are
// found in a file that another copy holds, when the person gives it up.
class TagScan {
 public:
  struct Wanted {
    std::string_view vin;  // trimmed, not empty
    FileDate from = 0;
    FileDate to = 0;
  };
  TagScan(Environment& environment, Workorders& workorders) : environment_(environment), workorders_(workorders) {}

  std::vector<ActiveWoTag> Active(const Wanted& wanted) const;
  // The title is that under which the run log has the open.
  std::vector<ArchivedWoTag> Archived(const Wanted& wanted, const char* title) const;

 private:
  Environment& environment_;
  Workorders& workorders_;
};

}  // namespace lantos
