#include "workorders/WorkorderSearch.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

namespace lantos {

namespace {

constexpr const char* kArchiveLabel = "frmWOHist.SearchArchive";
// Places of a field that are looked at in one step: as many as common processors compare at once.
constexpr std::size_t kStep = 16;

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
    const auto upper = static_cast<unsigned char>(letter), lower = static_cast<unsigned char>(ToLower(letter));
    ending.either[i] = static_cast<unsigned char>(upper ^ lower);
    ending.letter[i] = static_cast<unsigned char>(upper | lower);
  }
  ending_ = ending;
}

// Whether the needle's end may stand in a field. It is also seen where it stands behind the field's end, up to a step
// on: looking twice at a few tags costs less than a last step of another width at all of them.
template <TextField field, std::size_t Length>
bool TagTest::MayPass(const Record<Length>& tag) const {
  static_assert(field.width <= 2 * kStep && field.offset + std::max(field.width, kStep) < Length);
  const auto* text = reinterpret_cast<const unsigned char*>(tag.Bytes().data()) + field.offset;
  const Ending ending = *ending_;
  const auto is = [&](unsigned char letter, std::size_t which) {
    return (letter | ending.either[which]) == ending.letter[which] ? 1 : 0;
  };
  // Without a way out of the loops, and in bytes alone, so that the compiler makes a single comparison of each.
  std::array<unsigned char, kStep> isThere{};
  const auto look = [&](const unsigned char* from) {
    for (std::size_t i = 0; i < kStep; ++i) {
      isThere[i] = static_cast<unsigned char>(isThere[i] | (is(from[i], 0) & is(from[i + reach_], 1)));
    }
  };
  look(text);
  if constexpr (field.width > kStep) look(text + field.width - kStep);
  return std::bit_cast<std::array<std::uint64_t, 2>>(isThere) != std::array<std::uint64_t, 2>{};
}

template <TextField field, std::size_t Length>
bool TagTest::PassesBy(const Record<Length>& tag) const {
  if (ending_ && !MayPass<field>(tag)) return false;
  const std::string_view text = tag.View(field);
  return kind_ == SearchCriterion::Kind::Name ? IsName(text) : needle_.OccursIn(text);
}

template <std::size_t Length>
bool TagTest::Passes(const Record<Length>& tag) const {
  switch (kind_) {
    case SearchCriterion::Kind::Vin:
      return PassesBy<wotag::VIN>(tag);
    case SearchCriterion::Kind::License:
      return PassesBy<wotag::LicenseNumber>(tag);
    default:
      return PassesBy<wotag::CustomerName>(tag);
  }
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

int WorkorderSearch::PercentDone() const {
  if (!archived_.walk || archived_.length == 0) return 0;
  return static_cast<int>((archived_.length - archived_.walk->Ahead()) * 100 / archived_.length);
}

template <std::size_t Length>
bool WorkorderSearch::Open(FileWalk<Length>& walk) {
  if constexpr (Length == ActiveWoTag::kLength) {
    walk.file.TakeOver(workorders_.OpenActiveWOForReading());
  } else {
    walk.file.TakeOver(workorders_.OpenArchWOForReading(kArchiveLabel));
  }
  if (!walk.file.IsOpen()) return false;
  walk.length = SettledLength(*walk.file, Length, environment_.clock);
  walk.walk.emplace(*walk.file, walk.length);
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
