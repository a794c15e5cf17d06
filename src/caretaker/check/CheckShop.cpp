#include "caretaker/check/CheckShop.h"

#include <algorithm>

namespace lantos {

namespace {

// Longer than a copy takes from a tag to its master.
constexpr std::int64_t kMoment = 1500;  // milliseconds

}  // namespace

std::vector<Finding> LookOnce(ShopView& shop, std::span<const Kind> kinds, const TellKind& tellKind) {
  std::vector<Finding> findings;
  const Kind* asked = nullptr;
  const Tell take = [&](Finding finding) {
    finding.kind = asked->name;
    findings.push_back(std::move(finding));
  };
  const Kind& names = *KindNamed("names");
  asked = &names;
  names.find(shop, take);
  if (!findings.empty()) return findings;
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    if (kinds[i].find == names.find) continue;
    asked = &kinds[i];
    if (tellKind) tellKind(kinds[i], i, kinds.size());
    kinds[i].find(shop, take);
  }
  return findings;
}

std::vector<Finding> CheckShop(ShopView& shop, std::span<const Kind> kinds, const TellKind& tellKind) {
  const std::vector<Finding> first = LookOnce(shop, kinds, tellKind);
  if (first.empty()) return {};
  shop.files.GetClock().Wait(kMoment);
  shop.Forget();
  std::vector<Finding> again = LookOnce(shop, kinds, tellKind);
  std::erase_if(again, [&](const Finding& finding) {
    return std::none_of(first.begin(), first.end(), [&](const Finding& each) { return IsSame(each, finding); });
  });
  return again;
}

}  // namespace lantos
