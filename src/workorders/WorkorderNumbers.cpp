#include "workorders/WorkorderNumbers.h"

#include <string>

#include "frame/SharedFile.h"
#include "records/Contention.h"
#include "workorders/TagScan.h"
#include "workorders/WorkorderTags.h"
#include "workorders/Workorders.h"

namespace lantos {

namespace {

SharedFile OpenTags(Environment& environment, std::string_view name) {
  SharedFile file;
  Contention contention(contention::kMomentsPatience, environment);
  contention.Run([&] { file = SharedFile(environment.files.PathOf(name), Access::Read, Deny::None, Absent::Fail); });
  return file;
}

}  // namespace

bool WorkorderNumbers::IsTaken(std::int32_t number) {
  if (environment_.files.IsThere(Workorders::FileNameOf(number))) return true;
  if (!all_ && MayBeInTags(number)) {
    all_.emplace();
    AddAllOf<ActiveWoTag>(kActiveTagFile);
    AddAllOf<ArchivedWoTag>(kArchivedTagFile);
  }
  return all_ && all_->contains(number);
}

bool WorkorderNumbers::MayBeInTags(std::int32_t number) {
  return LastIn<ActiveWoTag>(kActiveTagFile).value_or(number - 1) >= number ||
         LastIn<ArchivedWoTag>(kArchivedTagFile).value_or(number - 1) >= number;
}

template <class Tag>
std::optional<std::int32_t> WorkorderNumbers::LastIn(std::string_view file) {
  try {
    const SharedFile tags = OpenTags(environment_, file);
    const std::uint64_t count = tags.Length() / Tag::kLength;
    if (count == 0) return std::nullopt;
    Tag last;
    tags.ReadAt((count - 1) * Tag::kLength, last.Bytes());
    return last.Get(wotag::WorkorderNumber);
  } catch (const FileError& error) {
    environment_.log.Write(error.what());
    return std::nullopt;
  }
}

template <class Tag>
void WorkorderNumbers::AddAllOf(std::string_view file) {
  try {
    const SharedFile tags = OpenTags(environment_, file);
    TagsBackwards<Tag::kLength> walk(tags, tags.Length());
    while (walk.HasMore()) {
      for (const Tag& tag : walk.NextBlock()) all_->insert(tag.Get(wotag::WorkorderNumber));
    }
  } catch (const FileError& error) {
    environment_.log.Write(error.what());
  }
}

}  // namespace lantos
