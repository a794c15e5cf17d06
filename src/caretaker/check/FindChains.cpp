#include <functional>
#include <vector>

#include "caretaker/check/Kinds.h"
#include "caretaker/check/Words.h"
#include "records/Customers.h"
#include "records/Payroll.h"
#include "records/inventory/UsageHistory.h"

namespace lantos {

namespace {

// Where a link stands.
struct LinkPlace {
  std::string_view file;
  std::string_view field;
  std::uint64_t record = 0;  // its index
  std::uint64_t offset = 0;  // of its bytes, in the file
};

// The chains of one file.
template <class RecordType>
class Chains {
 public:
  enum class Is { Ours, Anothers, TheEnd };
  using Owner = std::function<Is(const RecordType& record)>;

  Chains(std::string_view file, std::string_view field, LongField next, std::span<const RecordType> rows,
         const Tell& tell)
      : file_(file), field_(field), next_(next), rows_(rows), chainOf_(rows.size()), tell_(tell) {}

  // From a head on, under the name of whose it is: "customer 000007".
  void Walk(LinkPlace place, FileLink link, const std::function<std::string()>& whose, const Owner& owner) {
    ++chain_;
    // A head that was never set, in a shop whose file of the chains is empty.
    if (link == 0 && rows_.empty()) return;
    while (link != kNoLink) {
      std::size_t index = 0;
      if (!LeadsTo<RecordType>(link, rows_, index)) {
        return Cut(place, whose(), fmt::format("no record of {} begins where it leads", file_));
      }
      const Is is = owner(rows_[index]);
      if (is == Is::TheEnd) return;
      if (is == Is::Anothers)
        return Cut(place, whose(), fmt::format("it leads to {}, which is another's", RecordWords(index)));
      if (chainOf_[index] == chain_) {
        return Cut(place, whose(), fmt::format("it leads back to {}, and the chain goes round", RecordWords(index)));
      }
      if (chainOf_[index] != 0) {
        return Complain(place, whose(),
                        fmt::format("it leads to {}, where another chain has come by", RecordWords(index)), {});
      }
      chainOf_[index] = chain_;
      place = {file_, field_, index, PlaceOf<RecordType>(index) + next_.offset};
      link = rows_[index].Get(next_);
    }
  }

 private:
  void Cut(const LinkPlace& place, const std::string& whose, const std::string& words) {
    Complain(place, whose, words,
             {"it leads nowhere from here on", {{std::string(place.file), place.offset, LongBytes(kNoLink)}}});
  }
  void Complain(const LinkPlace& place, const std::string& whose, const std::string& words, Mending mending) {
    tell_({std::string(place.file), fmt::format("{} ({})", RecordWords(place.record), whose), std::string(place.field),
           words, std::move(mending)});
  }

  std::string_view file_, field_;
  LongField next_;
  std::span<const RecordType> rows_;
  std::vector<std::uint32_t> chainOf_;
  std::uint32_t chain_ = 0;
  const Tell& tell_;
};

void FindVehicleChains(ShopView& shop, const Tell& tell) {
  using VehicleChains = Chains<VehicleRecord>;
  VehicleChains chains(kVehicleFile, "VLink", vehicle::VLink, shop.flat.Records<VehicleRecord>(kVehicleFile), tell);
  const auto customers = shop.flat.Records<CustomerRecord>(kCustomerFile);
  for (std::size_t i = 0; i < customers.size(); ++i) {
    const std::int32_t number = customers[i].Get(customer::Number);
    if (number <= 0) continue;
    chains.Walk(
        {kCustomerFile, "VLink", i, PlaceOf<CustomerRecord>(i) + customer::VLink.offset},
        customers[i].Get(customer::VLink), [&] { return fmt::format("customer {:06}", number); },
        [&](const VehicleRecord& record) {
          return record.Get(vehicle::Number) == number ? VehicleChains::Is::Ours : VehicleChains::Is::Anothers;
        });
  }
}

// A part that has got another number leaves its usage behind under the old one, so whose a record is isn't asked.
void FindUsageChains(ShopView& shop, const Tell& tell) {
  using UsageChains = Chains<UsageRecord>;
  UsageChains chains(kUsageFile, "PrevLink", usage::PrevLink, shop.flat.Records<UsageRecord>(kUsageFile), tell);
  const auto parts = shop.flat.Records<InventoryRecord>(kInventoryFile);
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const std::string_view number = parts[i].View(inventory::StockNumber);
    if (number.empty()) continue;
    chains.Walk(
        {kInventoryFile, "UsageLink", i, PlaceOf<InventoryRecord>(i) + inventory::UsageLink.offset},
        parts[i].Get(inventory::UsageLink), [&] { return fmt::format("part {}", number); },
        [](const UsageRecord&) { return UsageChains::Is::Ours; });
  }
}

void FindPayChains(ShopView& shop, const Tell& tell) {
  using PayChains = Chains<PayRecord>;
  PayChains chains(kPayrollFile, "NextRecord", payrecord::NextRecord, shop.flat.Records<PayRecord>(kPayrollFile), tell);
  const auto employees = shop.flat.Records<EmployeeRecord>(kEmployeeFile);
  for (std::size_t i = 0; i < employees.size(); ++i) {
    const std::int32_t number = employees[i].Get(employee::EmpNumber);
    if (number <= 0) continue;
    chains.Walk(
        {kEmployeeFile, "PayrollHead", i, PlaceOf<EmployeeRecord>(i) + employee::PayrollHead.offset},
        employees[i].Get(employee::PayrollHead), [&] { return fmt::format("employee {:06}", number); },
        [&](const PayRecord& record) {
          const std::int32_t whose = record.Get(payrecord::EmployeeNumber);
          if (whose == kDeletedPay) return PayChains::Is::TheEnd;
          return whose == number ? PayChains::Is::Ours : PayChains::Is::Anothers;
        });
  }
}

}  // namespace

void FindChains(ShopView& shop, const Tell& tell) {
  FindVehicleChains(shop, tell);
  FindUsageChains(shop, tell);
  FindPayChains(shop, tell);
}

}  // namespace lantos
