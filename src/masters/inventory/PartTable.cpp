#include "masters/inventory/PartTable.h"

#include <algorithm>
#include <cstring>

#include "frame/Text.h"
#include "masters/inventory/PartOrder.h"

namespace lantos {

namespace {

constexpr std::size_t kFew = 8;  // rows in order for each that isn't

struct Keyed {
  std::array<unsigned char, 39> key;
  Inventory::PartIndex part;
  bool operator<(const Keyed& other) const {
    const int order = std::memcmp(key.data(), other.key.data(), key.size());
    return order != 0 ? order < 0 : part < other.part;
  }
};

}  // namespace

void PartTable::Clear() {
  rows_.clear();
  matches_.clear();
  ordered_ = 0;
  filtered_ = true;
}

void PartTable::Add(Inventory::PartIndex part) {
  rows_.push_back(part);
  filtered_ = false;
}

void PartTable::Insert(Inventory::PartIndex part) {
  if (!IsInOrder()) return Add(part);
  PutInPlace(rows_, part);
  ++ordered_;
  if (filtered_ && !filter_.IsEmpty() && Matches(part)) PutInPlace(matches_, part);
}

void PartTable::Refresh(Inventory::PartIndex part) {
  const bool wasInOrder = IsInOrder();
  if (!TakeOutOfRows(part)) return;
  if (!wasInOrder) return Add(part);
  PutInPlace(rows_, part);
  ++ordered_;
  if (!filtered_ || filter_.IsEmpty()) return;
  TakeOut(matches_, part);
  if (Matches(part)) PutInPlace(matches_, part);
}

void PartTable::Remove(Inventory::PartIndex part) {
  if (TakeOutOfRows(part) && filtered_) TakeOut(matches_, part);
}

bool PartTable::TakeOutOfRows(Inventory::PartIndex part) {
  const std::size_t place = IsInOrder()
                                ? FindIn(rows_, part)
                                : static_cast<std::size_t>(std::find(rows_.begin(), rows_.end(), part) - rows_.begin());
  if (place == rows_.size()) return false;
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(place));
  if (place < ordered_) --ordered_;
  return true;
}

bool PartTable::Replace(Inventory::PartIndex part, const InventoryTag& before) {
  const InventoryTag& tag = inventory_.Tag(part);
  const bool staysInPlace = tag.View(inventorytag::StockNumber) == before.View(inventorytag::StockNumber) &&
                            tag.View(inventorytag::Description) == before.View(inventorytag::Description);
  if (staysInPlace && tag.Get(inventorytag::IsStocked) == before.Get(inventorytag::IsStocked)) return false;
  filtered_ = false;
  if (!staysInPlace && TakeOutOfRows(part)) rows_.push_back(part);
  return true;
}

bool PartTable::ComesBefore(Inventory::PartIndex part, const Key& key, Inventory::PartIndex other) const {
  const Key keyOfPart = KeyOf(part);
  const int order = std::memcmp(keyOfPart.data(), key.data(), key.size());
  return order != 0 ? order < 0 : part < other;
}

std::size_t PartTable::PlaceIn(const Parts& parts, Inventory::PartIndex part) const {
  const Key key = KeyOf(part);
  const auto place = std::partition_point(parts.begin(), parts.end(),
                                          [&](Inventory::PartIndex each) { return ComesBefore(each, key, part); });
  return static_cast<std::size_t>(place - parts.begin());
}

// Where its key says, or anywhere when the key has changed since it was put there.
std::size_t PartTable::FindIn(const Parts& parts, Inventory::PartIndex part) const {
  const std::size_t place = PlaceIn(parts, part);
  if (place < parts.size() && parts[place] == part) return place;
  return static_cast<std::size_t>(std::find(parts.begin(), parts.end(), part) - parts.begin());
}

void PartTable::PutInPlace(Parts& parts, Inventory::PartIndex part) const {
  parts.insert(parts.begin() + static_cast<std::ptrdiff_t>(PlaceIn(parts, part)), part);
}

void PartTable::TakeOut(Parts& parts, Inventory::PartIndex part) const {
  const std::size_t place = FindIn(parts, part);
  if (place < parts.size()) parts.erase(parts.begin() + static_cast<std::ptrdiff_t>(place));
}

void PartTable::SetFilter(const PartFilter& filter) {
  filter_ = filter;
  partNeedle_ = CaselessNeedle(filter.part);
  descriptionNeedle_ = CaselessNeedle(filter.description);
  filtered_ = false;
}

void PartTable::SetSort(PartSort sort) {
  sort_ = sort;
  ordered_ = 0;
  filtered_ = false;
}

PartTable::Key PartTable::KeyOf(Inventory::PartIndex part) const {
  const InventoryTag& tag = inventory_.Tag(part);
  const bool byDescription = sort_ == PartSort::ByDescription || sort_ == PartSort::ByDescriptionDown;
  const bool down = sort_ == PartSort::ByPartDown || sort_ == PartSort::ByDescriptionDown;
  const std::string text = byDescription              ? tag.Get(inventorytag::Description)
                           : sort_ == PartSort::ByKey ? ComputeSortKey(tag.View(inventorytag::StockNumber))
                                                      : tag.Get(inventorytag::StockNumber);
  Key key{};
  // Parts without a number don't head the list.
  if (!byDescription && text.empty() && !down) key.fill(0xFF);
  for (std::size_t i = 0; i < std::min(text.size(), key.size()); ++i) {
    key[i] = static_cast<unsigned char>(ToUpper(text[i]));
  }
  if (down) {
    for (unsigned char& c : key) c = static_cast<unsigned char>(~c);
  }
  return key;
}

void PartTable::PutInOrder() const {
  if (ordered_ == rows_.size()) return;
  if (rows_.size() - ordered_ <= ordered_ / kFew) {
    MergeFew();
  } else {
    SortAll();
  }
  ordered_ = rows_.size();
}

// Rows that came since are put in order by themselves and merged.
void PartTable::SortAll() const {
  std::vector<Keyed> keyed;
  keyed.reserve(rows_.size());
  for (const Inventory::PartIndex part : rows_) keyed.push_back({KeyOf(part), part});
  const auto middle = keyed.begin() + static_cast<std::ptrdiff_t>(ordered_);
  std::sort(middle, keyed.end());
  std::inplace_merge(keyed.begin(), middle, keyed.end());
  for (std::size_t i = 0; i < rows_.size(); ++i) rows_[i] = keyed[i].part;
}

// Each of the few finds its place by halving, from the last: for most of the others no key is made.
void PartTable::MergeFew() const {
  auto end = rows_.begin() + static_cast<std::ptrdiff_t>(ordered_);  // of those that aren't merged yet
  std::vector<Keyed> few;
  for (auto row = end; row != rows_.end(); ++row) few.push_back({KeyOf(*row), *row});
  std::sort(few.begin(), few.end());
  auto to = rows_.end();
  for (std::size_t i = few.size(); i-- > 0;) {
    const auto place =
        std::upper_bound(rows_.begin(), end, few[i], [this](const Keyed& keyed, Inventory::PartIndex row) {
          return keyed < Keyed{KeyOf(row), row};
        });
    to = std::move_backward(place, end, to);
    end = place;
    *--to = few[i].part;
  }
}

bool PartTable::Matches(Inventory::PartIndex part) const {
  const InventoryTag& tag = inventory_.Tag(part);
  if (filter_.stocked && *filter_.stocked != (tag.Get(inventorytag::IsStocked) == 1)) return false;
  if (!partNeedle_.IsEmpty() && !partNeedle_.OccursIn(tag.View(inventorytag::StockNumber))) return false;
  return descriptionNeedle_.IsEmpty() || descriptionNeedle_.OccursIn(tag.View(inventorytag::Description));
}

void PartTable::FilterRows() const {
  PutInOrder();
  if (filtered_) return;
  matches_.clear();
  if (!filter_.IsEmpty()) {
    // The tags are looked at as they lie in memory, the rows are then taken in their order.
    std::vector<char> matching(static_cast<std::size_t>(inventory_.Count()));
    for (Inventory::PartIndex part = 0; part < inventory_.Count(); ++part) {
      matching[static_cast<std::size_t>(part)] = Matches(part) ? 1 : 0;
    }
    std::copy_if(rows_.begin(), rows_.end(), std::back_inserter(matches_),
                 [&](Inventory::PartIndex part) { return matching[static_cast<std::size_t>(part)] != 0; });
  }
  filtered_ = true;
}

std::size_t PartTable::MatchCount() const {
  if (filter_.IsEmpty()) return rows_.size();
  FilterRows();
  return matches_.size();
}

Inventory::PartIndex PartTable::At(std::size_t row) const {
  FilterRows();
  return filter_.IsEmpty() ? rows_.at(row) : matches_.at(row);
}

int PartTable::RowOf(Inventory::PartIndex part) const {
  FilterRows();
  const Parts& shown = filter_.IsEmpty() ? rows_ : matches_;
  const std::size_t place = FindIn(shown, part);
  return place == shown.size() ? -1 : static_cast<int>(place);
}

}  // namespace lantos
