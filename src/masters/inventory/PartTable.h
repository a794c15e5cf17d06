#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "frame/CaselessNeedle.h"
#include "records/inventory/Inventory.h"

namespace lantos {

// What is looked for in the list of parts. All that is set must hold.
struct PartFilter {
  std::string part;         // occurs in the stock number, in either case
  std::string description;  // occurs in the description
  std::optional<bool> stocked;

  bool IsEmpty() const { return part.empty() && description.empty() && !stocked; }
};

enum class PartSort { ByKey, ByPart, ByPartDown, ByDescription, ByDescriptionDown };

// The rows of the inventory list: which parts are listed, in which order, and which of them match. It holds places in
// the list of tags, never their texts. The order is made when somebody looks at it, so that rows are added cheaply.
class PartTable {
 public:
  explicit PartTable(const Inventory& inventory) : inventory_(inventory) {}

  void Clear();
  void Add(Inventory::PartIndex part);
  // One more where its key puts it, at once. Many are cheaper by Add.
  void Insert(Inventory::PartIndex part);
  // A part's tag has changed: its row goes where its key puts it, and is there while the filter holds for it.
  void Refresh(Inventory::PartIndex part);
  void Remove(Inventory::PartIndex part);
  // Like Refresh for a part whose tag was another one before, of many that change together: their places are sought
  // when somebody looks. True when the rows may be others, or stand in another order.
  bool Replace(Inventory::PartIndex part, const InventoryTag& before);
  void SetFilter(const PartFilter& filter);
  const PartFilter& Filter() const { return filter_; }
  void SetSort(PartSort sort);
  PartSort Sort() const { return sort_; }

  std::size_t TotalCount() const { return rows_.size(); }
  std::size_t MatchCount() const;
  // Of the parts that match, in order.
  Inventory::PartIndex At(std::size_t row) const;
  // The row of a part, found in few steps; -1 when it isn't among those that match.
  int RowOf(Inventory::PartIndex part) const;

 private:
  using Key = std::array<unsigned char, 39>;
  using Parts = std::vector<Inventory::PartIndex>;
  Key KeyOf(Inventory::PartIndex part) const;
  bool ComesBefore(Inventory::PartIndex part, const Key& key, Inventory::PartIndex other) const;
  bool IsInOrder() const { return ordered_ == rows_.size(); }
  // Where its key puts the part among parts that are in order. It may itself stand elsewhere among them, since its key
  // has changed.
  std::size_t PlaceIn(const Parts& parts, Inventory::PartIndex part) const;
  // Where the part stands; parts.size() when it isn't there.
  std::size_t FindIn(const Parts& parts, Inventory::PartIndex part) const;
  void PutInPlace(Parts& parts, Inventory::PartIndex part) const;
  void TakeOut(Parts& parts, Inventory::PartIndex part) const;
  bool TakeOutOfRows(Inventory::PartIndex part);  // false when it isn't there
  bool Matches(Inventory::PartIndex part) const;
  void PutInOrder() const;
  void SortAll() const;
  void MergeFew() const;
  void FilterRows() const;

  const Inventory& inventory_;
  PartSort sort_ = PartSort::ByKey;
  PartFilter filter_;
  CaselessNeedle partNeedle_;
  CaselessNeedle descriptionNeedle_;
  mutable Parts rows_;
  mutable std::size_t ordered_ = 0;  // leading rows that are in order
  mutable Parts matches_;            // with a filter only
  mutable bool filtered_ = true;     // matches_ holds for the rows as they are
};

}  // namespace lantos
