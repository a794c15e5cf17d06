#include "workorders/TagScan.h"

#include "records/Contention.h"
#include "records/GivenUp.h"
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
std::vector<Record<Length>> Find(OpenedFile& file, Workorders& workorders, const TagScan::Wanted& wanted,
                                 Clock& clock) {
  std::vector<Record<Length>> found;
  if (!file.IsOpen()) return found;
  TagsBackwards<Length> walk(*file, SettledLength(*file, Length, clock));
  const bool hasWholeTag = walk.HasMore();
  for (auto block = walk.NextBlock(); !block.empty(); block = walk.NextBlock()) {
    for (std::size_t i = block.size(); i-- > 0;) {
      const Record<Length>& tag = block[i];
      // Nearly all tags are told apart by the first byte; a blank may stand ahead of the text.
      const char first = static_cast<char>(tag.Bytes()[wotag::VIN.offset]);
      if ((first != wanted.vin.front() && first != ' ') || tag.View(wotag::VIN) != wanted.vin) continue;
      const FileDate date = DayOf(tag);
      if (date != 0 && date >= wanted.from && date <= wanted.to) found.push_back(tag);
    }
  }
  // In a file that isn't whole tags the first one begins inside another's place, which is told.
  if (walk.Ahead() > 0 && hasWholeTag) {
    Record<Length> first;
    ReadTag(workorders, file.Handle(), static_cast<std::int64_t>(walk.Ahead()), first);
  }
  Sort(found);
  return found;
}

}  // namespace

void LookAtNeededTags(Environment& environment, ui::Desktop& desktop, std::string_view name,
                      const std::function<void(const SharedFile& tags)>& look) {
  Contention contention(contention::kConversionFile, desktop, environment, name);
  const bool isDone = contention.Run([&] {
    try {
      look(SharedFile(environment.files.PathOf(name), Access::Read, Deny::None, Absent::Fail));
    } catch (const FileError& error) {
      if (error.Number() != FileErrorNumber::FileNotFound) throw;
    }
  });
  if (!isDone) throw GivenUp("The work orders in " + std::string(name) + " could not be looked at.");
}

std::uint64_t SettledLength(const SharedFile& file, std::size_t unit, Clock& clock) {
  constexpr int kLooks = 3;
  constexpr std::int64_t kPause = 10;  // milliseconds; an append takes far less
  std::uint64_t length = file.Length();
  for (int look = 0; length % unit != 0 && look < kLooks; ++look) {
    clock.Wait(kPause);
    length = file.Length();
  }
  return length;
}

std::vector<ActiveWoTag> TagScan::Active(const Wanted& wanted) const {
  OpenedFile file(environment_.openFiles);
  file.TakeOver(workorders_.OpenActiveWOForReading());
  return Find<ActiveWoTag::kLength>(file, workorders_, wanted, environment_.clock);
}

std::vector<ArchivedWoTag> TagScan::Archived(const Wanted& wanted, const char* title) const {
  OpenedFile file(environment_.openFiles);
  file.TakeOver(workorders_.OpenArchWOForReading(title));
  return Find<ArchivedWoTag::kLength>(file, workorders_, wanted, environment_.clock);
}

}  // namespace lantos
