#include <algorithm>
#include <unordered_map>

#include "caretaker/check/Kinds.h"
#include "caretaker/check/Words.h"
#include "records/FileNumber.h"
#include "workorders/WorkorderTags.h"
#include "workorders/WorkorderText.h"

namespace lantos {

namespace {

// Of a text, as much as its heading and first key take.
constexpr std::size_t kHead = 64;

// What stands behind a key in a text; empty where it doesn't have it.
std::string_view ValueOf(std::string_view text, std::string_view key) {
  const std::size_t at = text.find(key);
  if (at == std::string_view::npos) return {};
  const std::string_view rest = text.substr(at + key.size());
  return rest.substr(0, rest.find_first_of("\r\n"));
}

// Why the text isn't the one of this work order; empty when it is.
std::string WhyAnother(std::string_view text, std::int32_t number) {
  if (!text.starts_with(kWorkorderHeading)) return "no work order begins there";
  const std::int32_t found = NumberInFile(ValueOf(text.substr(0, kHead), kNumberKey));
  return found == number ? "" : fmt::format("the text there is that of work order {:06}", found);
}

class WorkorderFiles {
 public:
  WorkorderFiles(ShopView& shop, const Tell& tell)
      : shop_(shop),
        active_(shop.flat.Records<ActiveWoTag>(kActiveTagFile)),
        archived_(shop.flat.Records<ArchivedWoTag>(kArchivedTagFile)),
        tell_(tell) {}

  void Look() {
    for (std::size_t i = 0; i < active_.size(); ++i) LookAtActive(i);
    for (std::size_t i = 0; i < archived_.size(); ++i) LookAtArchived(i);
    for (const auto& [number, i] : byNumber_) {
      if (!paired_.contains(number))
        ComplainActive(i, "WorkorderNumber", fmt::format("{} has no tag of it", kArchivedTagFile));
    }
    for (const std::string& name : shop_.files.List("W*.tqa")) {
      if (!texts_.contains(ToUpper(name))) tell_({name, "", "", "no tag leads to it"});
    }
    LookThroughArchive();
  }

 private:
  void LookAtActive(std::size_t i) {
    const ActiveWoTag& tag = active_[i];
    const std::int32_t number = tag.Get(wotag::WorkorderNumber);
    if (!byNumber_.emplace(number, i).second) {
      return ComplainActive(i, "WorkorderNumber",
                            fmt::format("another tag, {}, has the number too", RecordWords(byNumber_[number])));
    }
    const std::string name = tag.Get(wotag::FileName);
    texts_.emplace(ToUpper(name), i);
    if (!IsPlainName(name) || !shop_.files.IsThere(name)) {
      return ComplainActive(i, "FileName", fmt::format("its text, {}, isn't there", name));
    }
    const FlatFiles::Bytes bytes = shop_.flat.Read(name);
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    if (const std::string why = WhyAnother(text, number); !why.empty()) {
      return ComplainActive(i, "FileName", fmt::format("{}: {}", name, why));
    }
    const std::int32_t customer = NumberInFile(ValueOf(text, "CustomerNumber="));
    if (customer == tag.Get(wotag::CustomerNumber)) return;
    ComplainActive(i, "CustomerNumber",
                   fmt::format("it is that of customer {:06}, and the text that of customer {:06}",
                               tag.Get(wotag::CustomerNumber), customer));
  }

  void LookAtArchived(std::size_t i) {
    const std::int32_t number = archived_[i].Get(wotag::WorkorderNumber);
    const FileLink place = archived_[i].Get(wotag::MasterOffset);
    paired_.emplace(number, i);
    if (place >= 0) return wanted_.push_back({static_cast<std::uint64_t>(place), i});
    if (place != kNoLink) {
      ComplainArchived(i, fmt::format("no text of {} begins where it leads", kArchiveFile));
    } else if (!byNumber_.contains(number)) {
      ComplainArchived(i, fmt::format("the work order isn't archived, and {} has no tag of it", kActiveTagFile));
    }
  }

  // In one go from the beginning to the end: the archive is the longest file of a shop.
  void LookThroughArchive() {
    std::sort(wanted_.begin(), wanted_.end());
    std::size_t next = 0;
    std::string tail;
    std::uint64_t end = 0;
    const auto lookAt = [&](std::string_view text) {
      const std::size_t i = wanted_[next++].second;
      const std::string why = WhyAnother(text, archived_[i].Get(wotag::WorkorderNumber));
      if (!why.empty()) ComplainArchived(i, why);
    };
    shop_.flat.ReadThrough(kArchiveFile, kHead, [&](std::uint64_t offset, std::string_view block) {
      end = offset + block.size();
      while (next < wanted_.size() && wanted_[next].first + kHead <= end) {
        lookAt(block.substr(wanted_[next].first - offset, kHead));
      }
      tail = block.substr(block.size() - std::min(block.size(), kHead));
    });
    while (next < wanted_.size() && wanted_[next].first < end) {
      lookAt(std::string_view(tail).substr(wanted_[next].first - (end - tail.size())));
    }
    while (next < wanted_.size()) {
      ComplainArchived(wanted_[next++].second, fmt::format("it leads behind the end of {}", kArchiveFile));
    }
  }

  void ComplainActive(std::size_t i, std::string_view field, std::string words) {
    tell_({std::string(kActiveTagFile), WorkorderWords(i, active_[i].Get(wotag::WorkorderNumber)), std::string(field),
           std::move(words)});
  }
  void ComplainArchived(std::size_t i, std::string words) {
    tell_({std::string(kArchivedTagFile), WorkorderWords(i, archived_[i].Get(wotag::WorkorderNumber)), "MasterOffset",
           std::move(words)});
  }
  static std::string WorkorderWords(std::size_t index, std::int32_t number) {
    return fmt::format("{} (work order {:06})", RecordWords(index), number);
  }

  ShopView& shop_;
  std::span<const ActiveWoTag> active_;
  std::span<const ArchivedWoTag> archived_;
  std::unordered_map<std::int32_t, std::size_t> byNumber_, paired_;  // active tags; archived ones
  std::unordered_map<std::string, std::size_t> texts_;
  std::vector<std::pair<std::uint64_t, std::size_t>> wanted_;  // places of texts, and whose
  const Tell& tell_;
};

}  // namespace

void FindWorkorders(ShopView& shop, const Tell& tell) { WorkorderFiles(shop, tell).Look(); }

}  // namespace lantos
