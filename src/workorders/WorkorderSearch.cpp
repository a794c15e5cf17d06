#include "workorders/WorkorderSearch.h"

#include <algorithm>

namespace lantos {

namespace {

constexpr const char* kArchiveLabel = "frmWOHist.SearchArchive";
constexpr unsigned char kYes = 1, kNo = 0;

constexpr TextField FieldOf(SearchCriterion::Kind kind) {
  switch (kind) {
    case SearchCriterion::Kind::Vin:
      return wotag::VIN;
    case SearchCriterion::Kind::License:
      return wotag::LicenseNumber;
    default:
      return wotag::CustomerName;
  }
}

struct Name {
  std::string_view last;
  std::string_view first;
};

Name SplitName(std::string_view text) {
  const std::size_t comma = text.find(',');
  if (comma == std::string_view::npos) return {TrimView(text), {}};
  return {TrimView(text.substr(0, comma)), TrimView(text.substr(comma + 1))};
}

// What tells one work order from another, whichever of the two files its tag stands in.
bool IsSameWorkorder(const ActiveWoTag& active, const ArchivedWoTag& archived) {
  return std::equal(active.Bytes().begin(), active.Bytes().begin() + wotag::Status.offset, archived.Bytes().begin());
}

}  // namespace

TagTest::TagTest(const SearchCriterion& criterion) : kind_(criterion.kind), needle_(criterion.text) {
  if (kind_ == SearchCriterion::Kind::Name) {
    const Name name = SplitName(criterion.text);
    needle_ = CaselessNeedle(name.last);
    firstName_ = CaselessNeedle(name.first);
  }
  const std::string& folded = needle_.Folded();
  if (folded.empty()) return;
  reach_ = folded.size() > 1 ? 1 : 0;
  Ending ending{};
  for (std::size_t i = 0; i < 2; ++i) {
    const char letter = folded[folded.size() - 1 - (1 - i) * reach_];
    ending.upper[i] = static_cast<unsigned char>(letter);
    ending.lower[i] = static_cast<unsigned char>(ToLower(letter));
  }
  ending_ = ending;
}

template <std::size_t Length>
bool TagTest::Passes(const Record<Length>& tag) const {
  const TextField field = FieldOf(kind_);
  if (ending_) {
    const auto* text = reinterpret_cast<const unsigned char*>(tag.Bytes().data()) + field.offset;
    const Ending ending = *ending_;
    const auto is = [&](unsigned char letter, std::size_t which) {
      return letter == ending.upper[which] || letter == ending.lower[which] ? kYes : kNo;
    };
    // Without a way out of the loop, and in bytes alone, so that many places are looked at in one step.
    unsigned char isThere = kNo;
    const std::size_t places = field.width - reach_;
    for (std::size_t i = 0; i < places; ++i) {
      isThere = static_cast<unsigned char>(isThere | (is(text[i], 0) & is(text[i + reach_], 1)));
    }
    if (isThere == kNo) return false;
  }
  const std::string_view text = tag.View(field);
  return kind_ == SearchCriterion::Kind::Name ? IsName(text) : needle_.OccursIn(text);
}

bool TagTest::IsName(std::string_view name) const {
  const Name split = SplitName(name);
  return needle_.OccursIn(split.last) && firstName_.OccursIn(split.first);
}

template bool TagTest::Passes(const ActiveWoTag& tag) const;
template bool TagTest::Passes(const ArchivedWoTag& tag) const;

void WorkorderSearch::Begin(const SearchCriterion& criterion) {
  End();
  test_ = TagTest(criterion);
  active_.atEnd = archived_.atEnd = false;
  activeHits_.clear();
  archivedHits_.clear();
  hits_.clear();
}

void WorkorderSearch::End() {
  Close(active_);
  Close(archived_);
}

template <std::size_t Length>
void WorkorderSearch::Close(FileWalk<Length>& walk) {
  walk.block = {};
  walk.left = 0;
  walk.walk.reset();
  walk.file.Close();
  walk.atEnd = true;
}

WorkorderSearch::Outcome WorkorderSearch::SearchOn(const std::function<bool()>& goOn) {
  const Outcome outcome = SearchOn(active_, goOn);
  return outcome == Outcome::NothingMore ? SearchOn(archived_, goOn) : outcome;
}

template <std::size_t Length>
WorkorderSearch::Outcome WorkorderSearch::SearchOn(FileWalk<Length>& walk, const std::function<bool()>& goOn) {
  if (walk.atEnd) return Outcome::NothingMore;
  if (!walk.walk && !Open(walk)) return Outcome::Stopped;
  for (;;) {
    while (walk.left > 0) {
      if (walk.left == 1) TellOddPlace(walk);
      if (Take(walk.block[--walk.left])) return Outcome::Found;
    }
    if (!walk.block.empty() && walk.walk->HasMore() && !goOn()) return Outcome::Stopped;
    walk.block = walk.walk->NextBlock();
    walk.left = walk.block.size();
    walk.atEnd = walk.block.empty();
    if (walk.atEnd) return Outcome::NothingMore;
  }
}

template <std::size_t Length>
bool WorkorderSearch::Open(FileWalk<Length>& walk) {
  if constexpr (Length == ActiveWoTag::kLength) {
    walk.file.TakeOver(workorders_.OpenActiveWOForReading());
  } else {
    walk.file.TakeOver(workorders_.OpenArchWOForReading(kArchiveLabel));
  }
  if (!walk.file.IsOpen()) return false;
  walk.walk.emplace(*walk.file, SettledLength(*walk.file, Length, environment_.clock));
  return true;
}

// The first tag of a file that isn't whole tags begins inside another's place: reading it there tells so.
void WorkorderSearch::TellOddPlace(FileWalk<ActiveWoTag::kLength>& walk) {
  ActiveWoTag tag;
  if (walk.walk->Ahead() > 0 && !walk.walk->HasMore()) {
    workorders_.ReadActiveWO(walk.file.Handle(), static_cast<std::int64_t>(walk.walk->Ahead()), tag);
  }
}

void WorkorderSearch::TellOddPlace(FileWalk<ArchivedWoTag::kLength>& walk) {
  ArchivedWoTag tag;
  if (walk.walk->Ahead() > 0 && !walk.walk->HasMore()) {
    workorders_.ReadArchWO(walk.file.Handle(), static_cast<std::int64_t>(walk.walk->Ahead()), tag);
  }
}

bool WorkorderSearch::Take(const ActiveWoTag& tag) {
  if (!test_.Passes(tag) || tag.Get(wotag::WorkorderNumber) == 0) return false;
  hits_.push_back({kActive, activeHits_.size()});
  activeHits_.push_back(tag);
  return true;
}

// A work order that was found active, and archived since, isn't found again.
bool WorkorderSearch::Take(const ArchivedWoTag& tag) {
  if (!test_.Passes(tag) || tag.Get(wotag::WorkorderNumber) == 0 || tag.Get(wotag::MasterOffset) == kNoLink) {
    return false;
  }
  const bool isKnown = std::any_of(activeHits_.begin(), activeHits_.end(),
                                   [&](const ActiveWoTag& active) { return IsSameWorkorder(active, tag); });
  if (isKnown) return false;
  hits_.push_back({kArchived, archivedHits_.size()});
  archivedHits_.push_back(tag);
  return true;
}

}  // namespace lantos
