#include "records/Followups.h"

#include <cmath>

namespace lantos {

namespace {

// By VIN, or by license where the vehicle has no VIN.
bool IsOf(const FollowupRecord& record, std::string_view vin, std::string_view license) {
  if (!vin.empty()) return record.View(followup::VIN) == vin;
  return !license.empty() && record.View(followup::LicenseNumber) == license;
}

template <class Use>
void ForEachRecord(Environment& environment, Use use) {
  OpenedFile file(environment.openFiles, kFollowupFile, Access::Read, Deny::None);
  const auto count = static_cast<std::size_t>(
      std::nearbyint(static_cast<double>(file->Length()) / static_cast<double>(FollowupRecord::kLength)));
  for (std::size_t i = 0; i < count; ++i) {
    Followup followup{i, {}};
    file->ReadAt(i * FollowupRecord::kLength, followup.record.Bytes());
    use(std::move(followup));
  }
}

}  // namespace

std::vector<Followup> Followups::OpenFollowups(std::int32_t customer, std::string_view vin, std::string_view license) {
  std::vector<Followup> open;
  ForEachRecord(environment_, [&](Followup followup) {
    const FollowupRecord& record = followup.record;
    if (record.Get(followup::Active) == 0 || record.Get(followup::CustomerNumber) != customer) return;
    if (IsOf(record, TrimView(vin), TrimView(license))) open.push_back(std::move(followup));
  });
  return open;
}

bool Followups::Exists(std::int32_t customer, std::string_view vin, std::string_view license, std::int32_t workorder,
                       FileDate date, std::int32_t miles) {
  bool exists = false;
  ForEachRecord(environment_, [&](const Followup& followup) {
    const FollowupRecord& record = followup.record;
    exists = exists || (record.Get(followup::Active) != 0 && record.Get(followup::CustomerNumber) == customer &&
                        record.View(followup::VIN) == TrimView(vin) &&
                        record.View(followup::LicenseNumber) == TrimView(license) &&
                        record.Get(followup::WorkorderNumber) == workorder &&
                        record.Get(followup::FollowupDate) == date && record.Get(followup::Miles) == miles);
  });
  return exists;
}

Followups::Using::Using(Environment& environment)
    : file_(environment.openFiles, kFollowupFile, Access::Write, Deny::None) {}

void Followups::Using::UseUp(Followup& followup) {
  followup.record.Put(followup::Active, 0);
  file_->WriteAt(followup.recordNumber * FollowupRecord::kLength, followup.record.Bytes());
}

}  // namespace lantos
