#include <unordered_map>

#include "caretaker/check/Kinds.h"
#include "caretaker/check/Words.h"
#include "records/inventory/InventoryLayout.h"

namespace lantos {

namespace {

InventoryTag TagOf(const InventoryRecord& master, FileLink place) {
  InventoryTag tag;
  tag.Put(inventorytag::StockNumber, master.View(inventory::StockNumber));
  tag.Put(inventorytag::Description, master.View(inventory::Description));
  for (std::size_t i = 0; i < std::size(inventorytag::Pricing); ++i) {
    tag.Put(inventorytag::Pricing[i], master.Get(inventory::Pricing[i]));
  }
  tag.Put(inventorytag::InStock, master.Get(inventory::QtyInStock));
  tag.Put(inventorytag::Tag, place);
  tag.Put(inventorytag::IsStocked, master.Get(inventory::IsStocked));
  return tag;
}

std::string BytesOf(const InventoryTag& tag) {
  return {reinterpret_cast<const char*>(tag.Bytes().data()), InventoryTag::kLength};
}

class PartTags {
 public:
  PartTags(ShopView& shop, const Tell& tell)
      : tags_(shop.flat.Records<InventoryTag>(kInventoryTagFile)),
        masters_(shop.flat.Records<InventoryRecord>(kInventoryFile)),
        end_(PlaceOf<InventoryTag>(tags_.size())),
        hasTag_(masters_.size()),
        tell_(tell) {
    tagged_.reserve(tags_.size());
  }

  void Look() {
    for (std::size_t i = 0; i < tags_.size(); ++i) LookAtTag(i);
    // Few as a rule, and none in a sound shop.
    for (std::size_t i = 0; i < masters_.size(); ++i) {
      const bool isLive = masters_[i].Get(inventory::Deleted) != 1 && !masters_[i].View(inventory::StockNumber).empty();
      if (isLive && !hasTag_[i]) LookAtLone(i);
    }
  }

 private:
  void LookAtTag(std::size_t i) {
    const InventoryTag& tag = tags_[i];
    const std::string_view number = tag.View(inventorytag::StockNumber);
    std::size_t master = 0;
    const bool leads = LeadsTo<InventoryRecord>(tag.Get(inventorytag::Tag), masters_, master);
    if (number.empty()) {
      if (leads) hasTag_[master] = true;
      return;
    }
    if (const auto [other, isNew] = tagged_.emplace(number, i); !isNew) {
      return Complain(i, "StockNumber", fmt::format("another tag, {}, has the number too", RecordWords(other->second)),
                      {});
    }
    if (leads && masters_[master].View(inventory::StockNumber) == number) {
      hasTag_[master] = true;
      return Compare(i, masters_[master]);
    }
    const std::string words =
        leads ? fmt::format("it leads to the record of another part, {}", masters_[master].View(inventory::StockNumber))
              : fmt::format("no record of {} begins where it leads", kInventoryFile);
    Complain(i, "Tag", words, WayHome(i, number));
  }

  // To the one record of the number, where there is one.
  Mending WayHome(std::size_t i, std::string_view number) {
    std::size_t found = 0, count = 0;
    for (std::size_t each = 0; each < masters_.size(); ++each) {
      if (masters_[each].Get(inventory::Deleted) == 1 || masters_[each].View(inventory::StockNumber) != number)
        continue;
      found = each;
      ++count;
    }
    if (count > 0) hasTag_[found] = true;
    if (count != 1) return {};
    return {fmt::format("it leads to the part's, {}, from here on", RecordWords(found)),
            {{std::string(kInventoryTagFile), PlaceOf<InventoryTag>(i) + inventorytag::Tag.offset,
              LongBytes(static_cast<std::int32_t>(PlaceOf<InventoryRecord>(found)))}}};
  }

  void Compare(std::size_t i, const InventoryRecord& master) {
    const InventoryTag& tag = tags_[i];
    if (master.Get(inventory::Deleted) == 1) {
      return Complain(i, "StockNumber", "the part is deleted, and its tag isn't",
                      {"the tag is deleted too from here on",
                       {{std::string(kInventoryTagFile), PlaceOf<InventoryTag>(i),
                         std::string(inventorytag::StockNumber.width, '\0')}}});
    }
    for (std::size_t level = 0; level < std::size(inventorytag::Pricing); ++level) {
      CompareNumber(i, "Pricing", inventorytag::Pricing[level], tag.Get(inventorytag::Pricing[level]),
                    master.Get(inventory::Pricing[level]), 4);
    }
    CompareNumber(i, "InStock", inventorytag::InStock, tag.Get(inventorytag::InStock),
                  master.Get(inventory::QtyInStock), 2);
    CompareNumber(i, "IsStocked", inventorytag::IsStocked, tag.Get(inventorytag::IsStocked),
                  master.Get(inventory::IsStocked), 1);
    const std::string_view is = tag.View(inventorytag::Description), wanted = master.View(inventory::Description);
    if (is == wanted || wanted.empty()) return;
    Complain(i, "Description", fmt::format("it says \"{}\", and {} says \"{}\"", is, kInventoryFile, wanted),
             Put(i, inventorytag::Description.offset, inventorytag::Description.width, wanted));
  }

  template <class Field>
  void CompareNumber(std::size_t i, std::string_view name, Field field, std::int32_t is, std::int32_t wanted,
                     std::size_t width) {
    if (is == wanted) return;
    Mending mending = Put(i, field.offset, width, std::to_string(wanted));
    mending.edits.front().bytes = LongBytes(wanted).substr(0, width);
    Complain(i, name, fmt::format("it says {}, and {} says {}", is, kInventoryFile, wanted), std::move(mending));
  }

  static Mending Put(std::size_t i, std::size_t offset, std::size_t width, std::string_view text) {
    std::string bytes(text);
    bytes.resize(width, '\0');
    return {fmt::format("it is \"{}\" from here on", text),
            {{std::string(kInventoryTagFile), PlaceOf<InventoryTag>(i) + offset, std::move(bytes)}}};
  }

  void LookAtLone(std::size_t i) {
    const std::string_view number = masters_[i].View(inventory::StockNumber);
    Finding finding{std::string(kInventoryFile), PartWords(i, number), {}, "no tag leads to it"};
    // Of two that bear one number nobody can tell which is the part.
    if (tagged_.emplace(number, tags_.size()).second) {
      const auto place = static_cast<FileLink>(PlaceOf<InventoryRecord>(i));
      finding.mending = {"it has a tag from here on",
                         {{std::string(kInventoryTagFile), end_, BytesOf(TagOf(masters_[i], place))}}};
      end_ += InventoryTag::kLength;
    }
    tell_(std::move(finding));
  }

  void Complain(std::size_t i, std::string_view field, std::string words, Mending mending) {
    tell_({std::string(kInventoryTagFile), PartWords(i, tags_[i].View(inventorytag::StockNumber)), std::string(field),
           std::move(words), std::move(mending)});
  }

  std::span<const InventoryTag> tags_;
  std::span<const InventoryRecord> masters_;
  std::uint64_t end_;  // of the tags, with those that are to come
  std::vector<bool> hasTag_;
  std::unordered_map<std::string_view, std::size_t> tagged_;
  const Tell& tell_;
};

}  // namespace

void FindPartTags(ShopView& shop, const Tell& tell) { PartTags(shop, tell).Look(); }

}  // namespace lantos
