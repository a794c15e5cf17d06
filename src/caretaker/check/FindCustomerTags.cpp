#include <unordered_map>

#include "caretaker/check/Kinds.h"
#include "caretaker/check/Words.h"
#include "records/Customers.h"

namespace lantos {

namespace {

std::string KeyOf(std::string_view last, std::string_view first) {
  return Trim(Left(fmt::format("{},{}", last, first), customertag::NameKey.width));
}

CustomerTag TagOf(const CustomerRecord& master, FileLink place) {
  CustomerTag tag;
  tag.Put(customertag::Number, master.Get(customer::Number));
  tag.Put(customertag::NameKey, KeyOf(master.View(customer::Lastname), master.View(customer::Firstname)));
  tag.Put(customertag::SpouseKey, KeyOf(master.View(customer::SpouseLast), master.View(customer::Spouse)));
  tag.Put(customertag::Offset, place);
  tag.Put(customertag::Phone, master.View(customer::HomePhone));
  return tag;
}

std::string BytesOf(const CustomerTag& tag) {
  return {reinterpret_cast<const char*>(tag.Bytes().data()), CustomerTag::kLength};
}

class CustomerTags {
 public:
  CustomerTags(ShopView& shop, const Tell& tell)
      : tags_(shop.flat.Records<CustomerTag>(kCustomerTagFile)),
        masters_(shop.flat.Records<CustomerRecord>(kCustomerFile)),
        end_(shop.flat.Read(kCustomerTagFile).size() / CustomerTag::kLength * CustomerTag::kLength),
        hasTag_(masters_.size()),
        tell_(tell) {
    byNumber_.reserve(masters_.size());
    for (std::size_t i = 0; i < masters_.size(); ++i) {
      const std::int32_t number = masters_[i].Get(customer::Number);
      if (number > 0) byNumber_[number].push_back(i);
    }
  }

  void Look() {
    for (std::size_t i = 0; i < tags_.size(); ++i) {
      if (tags_[i].Get(customertag::Number) != 0) LookAtTag(i);
    }
    for (std::size_t i = 0; i < masters_.size(); ++i) {
      if (masters_[i].Get(customer::Number) > 0 && !hasTag_[i]) LookAtLone(i);
    }
  }

 private:
  struct Few {  // more than two of one number are no better
    std::size_t first = 0;
    std::size_t count = 0;
    void push_back(std::size_t index) {
      if (count++ == 0) first = index;
    }
  };

  void LookAtTag(std::size_t i) {
    const CustomerTag& tag = tags_[i];
    const std::int32_t number = tag.Get(customertag::Number);
    if (!tagged_.emplace(number, i).second) {
      return Complain(i, "Number", fmt::format("another tag, {}, has the number too", RecordWords(tagged_[number])),
                      {});
    }
    std::size_t master = 0;
    const bool leads = LeadsTo<CustomerRecord>(tag.Get(customertag::Offset), masters_, master);
    if (leads && masters_[master].Get(customer::Number) == number) {
      hasTag_[master] = true;
      return Compare(i, masters_[master]);
    }
    const auto own = byNumber_.find(number);
    Mending mending;
    if (own != byNumber_.end()) {
      hasTag_[own->second.first] = true;
      const auto place = PlaceOf<CustomerRecord>(own->second.first);
      if (own->second.count == 1) {
        mending = {fmt::format("it leads to the customer's, {}, from here on", RecordWords(own->second.first)),
                   {{std::string(kCustomerTagFile), PlaceOf<CustomerTag>(i) + customertag::Offset.offset,
                     LongBytes(static_cast<std::int32_t>(place))}}};
      }
    }
    Complain(
        i, "Offset",
        leads ? fmt::format("it leads to the record of another customer, {:06}", masters_[master].Get(customer::Number))
              : fmt::format("no record of {} begins where it leads", kCustomerFile),
        std::move(mending));
  }

  void Compare(std::size_t i, const CustomerRecord& master) {
    struct Field {
      std::string_view name;
      TextField field;
    };
    static constexpr Field kFields[] = {
        {"NameKey", customertag::NameKey}, {"SpouseKey", customertag::SpouseKey}, {"Phone", customertag::Phone}};
    const CustomerTag should = TagOf(master, 0);
    for (const auto& [name, field] : kFields) {
      const std::string_view is = tags_[i].View(field), wanted = should.View(field);
      if (is == wanted) continue;
      // A customer without a spouse has the comma alone, or nothing.
      if (name == "SpouseKey" && wanted == "," && is.empty()) continue;
      Complain(i, name, fmt::format("it says \"{}\", and {} says \"{}\"", is, kCustomerFile, wanted),
               {fmt::format("it is \"{}\" from here on", wanted),
                {{std::string(kCustomerTagFile), PlaceOf<CustomerTag>(i) + field.offset,
                  BytesOf(should).substr(field.offset, field.width)}}});
    }
  }

  void LookAtLone(std::size_t i) {
    const std::int32_t number = masters_[i].Get(customer::Number);
    Finding finding{std::string(kCustomerFile), CustomerWords(i, number), {}, "no tag leads to it"};
    if (byNumber_[number].count == 1 && !tagged_.contains(number)) {
      const auto place = static_cast<FileLink>(PlaceOf<CustomerRecord>(i));
      finding.mending = {"it has a tag from here on",
                         {{std::string(kCustomerTagFile), end_, BytesOf(TagOf(masters_[i], place))}}};
      end_ += CustomerTag::kLength;
    }
    tell_(std::move(finding));
  }

  void Complain(std::size_t i, std::string_view field, std::string words, Mending mending) {
    tell_({std::string(kCustomerTagFile), CustomerWords(i, tags_[i].Get(customertag::Number)), std::string(field),
           std::move(words), std::move(mending)});
  }

  std::span<const CustomerTag> tags_;
  std::span<const CustomerRecord> masters_;
  std::uint64_t end_;  // of the tags, with those that are to come
  std::vector<bool> hasTag_;
  std::unordered_map<std::int32_t, Few> byNumber_;
  std::unordered_map<std::int32_t, std::size_t> tagged_;
  const Tell& tell_;
};

}  // namespace

void FindCustomerTags(ShopView& shop, const Tell& tell) { CustomerTags(shop, tell).Look(); }

void FindTags(ShopView& shop, const Tell& tell) {
  FindCustomerTags(shop, tell);
  FindPartTags(shop, tell);
}

}  // namespace lantos
