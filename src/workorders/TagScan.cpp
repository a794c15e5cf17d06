#include "workorders/TagScan.h"

#include "records/OpenedFile.h"

namespace lantos {

namespace {

bool ReadTag(Workorders& workorders, FileHandle file, std::int64_t position, ActiveWoTag& tag) {
  return workorders.ReadActiveWO(file, position, tag);
}
bool ReadTag(Workorders& workorders, FileHandle file, std::int64_t position, ArchivedWoTag& tag) {
  return workorders.ReadArchWO(file, position, tag);
}

template <std::size_t Length>
void Sort(std::vector<Record<Length>>& tags) {
  std::stable_sort(tags.begin(), tags.end(), [](const Record<Length>& a, const Record<Length>& b) {
    const FileDate dayA = DayOf(a), dayB = DayOf(b);
    return dayA != dayB ? dayA > dayB : a.Get(wotag::WorkorderNumber) > b.Get(wotag::WorkorderNumber);
  });
}

template <std::size_t Length>
std::vector<Record<Length>> Find(OpenedFile& file, Workorders& workorders, const TagScan::Wanted& wanted) {
  std::vector<Record<Length>> found;
  const std::uint64_t rest = WalkTagsBackwards<Length>(*file, [&](const Record<Length>& tag) {
    // Nearly all tags are told apart by the first byte; a blank may stand ahead of the text.
    const char first = static_cast<char>(tag.Bytes()[wotag::VIN.offset]);
    if ((first != wanted.vin.front() && first != ' ') || tag.View(wotag::VIN) != wanted.vin) return TagWalk::GoOn;
    const FileDate date = DayOf(tag);
    if (date != 0 && date >= wanted.from && date <= wanted.to) found.push_back(tag);
    return TagWalk::GoOn;
  });
  // In a file that isn't whole tags the first one begins inside another's place, which is told.
  if (rest > 0 && file->Length() >= Length) {
    Record<Length> first;
    ReadTag(workorders, file.Handle(), static_cast<std::int64_t>(rest), first);
  }
  Sort(found);
  return found;
}

}  // namespace

std::vector<ActiveWoTag> TagScan::Active(const Wanted& wanted) const {
  OpenedFile file(environment_.openFiles);
  file.TakeOver(workorders_.OpenActiveWOForReading());
  return Find<ActiveWoTag::kLength>(file, workorders_, wanted);
}

std::vector<ArchivedWoTag> TagScan::Archived(const Wanted& wanted, const char* title) const {
  OpenedFile file(environment_.openFiles);
  file.TakeOver(workorders_.OpenArchWOForReading(title));
  return Find<ArchivedWoTag::kLength>(file, workorders_, wanted);
}

}  // namespace lantos
