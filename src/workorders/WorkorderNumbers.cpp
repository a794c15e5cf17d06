#include "workorders/WorkorderNumbers.h"

#include <algorithm>

#include "records/Contention.h"
#include "records/modSystem.h"
#include "workorders/JournalsOnDisk.h"
#include "workorders/TagScan.h"
#include "workorders/WorkorderTags.h"
#include "workorders/Workorders.h"

namespace lantos {

WorkorderNumbers::WorkorderNumbers(Environment& environment, ui::Desktop& desktop)
    : environment_(environment), desktop_(desktop) {
  LookAtNeededTags(environment, desktop, kActiveTagFile,
                   [this](const SharedFile& tags) { AddAllOf<ActiveWoTag>(tags); });
  AddPending();
  AddArchived();
}

bool WorkorderNumbers::IsTaken(std::int32_t number) const {
  if (lacksArchived_ && number <= highest_) return true;
  return std::find(numbers_.begin(), numbers_.end(), number) != numbers_.end() ||
         environment_.files.IsThere(Workorders::FileNameOf(number));
}

std::int32_t WorkorderNumbers::Highest() {
  if (lacksArchived_) {
    LookAtNeededTags(environment_, desktop_, kArchivedTagFile,
                     [this](const SharedFile& tags) { AddAllOf<ArchivedWoTag>(tags); });
  }
  lacksArchived_ = false;
  return highest_;
}

void WorkorderNumbers::AddArchived() {
  Contention moment(contention::kMomentsPatience, environment_);
  try {
    moment.Run([&] {
      AddAllOf<ArchivedWoTag>(
          SharedFile(environment_.files.PathOf(kArchivedTagFile), Access::Read, Deny::None, Absent::Fail));
    });
  } catch (const FileError& error) {
    if (error.Number() == FileErrorNumber::FileNotFound) return;
    lacksArchived_ = true;
    environment_.log.Write(error.what());
    if (error.Number() != FileErrorNumber::PermissionDenied) Highest();
  }
}

// Any number may be a tag's; the highest one, which the counter goes on from, is of what looks like a tag.
template <class Tag>
void WorkorderNumbers::AddAllOf(const SharedFile& tags) {
  LookAtTagsBothWays<Tag>(tags, [this](const Tag& tag, TagRow row) {
    const std::int32_t number = tag.Get(wotag::WorkorderNumber);
    row == TagRow::Straight || LooksLikeATag(tag) ? Add(number) : numbers_.push_back(number);
  });
}

// Whose counter may have come back from a backup since.
void WorkorderNumbers::AddPending() {
  for (const JournalOnDisk& journal : LookAtJournals(environment_)) {
    if (journal.begun && journal.begun->hasNumber && !journal.begun->isUndone) Add(journal.begun->workorder);
  }
}

void WorkorderNumbers::Add(std::int32_t number) {
  numbers_.push_back(number);
  if (number <= kHighestNumber) highest_ = std::max(highest_, number);
}

}  // namespace lantos
