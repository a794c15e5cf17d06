#include "workorders/TagOfWorkorder.h"

#include <algorithm>

#include "workorders/Workorders.h"

namespace lantos {

namespace {

void PutText(ActiveWoTag& tag, TextField field, std::string_view text) {
  tag.Put(field, text.substr(0, std::min<std::size_t>(text.find('\0'), field.width - 1)));
}

}  // namespace

void PutIntoTag(const Workorder& workorder, ActiveWoTag& tag) {
  const CustomerRecord& owner = workorder.Customer;
  tag.Put(wotag::WorkorderNumber, workorder.WorkorderNumber);
  PutText(tag, wotag::CustomerName, owner.Get(customer::Lastname) + "," + owner.Get(customer::Firstname));
  tag.Put(wotag::CustomerNumber, owner.Get(customer::Number));
  PutText(tag, wotag::VIN, workorder.Vehicle.View(vehicle::VIN));
  PutText(tag, wotag::LicenseNumber, workorder.Vehicle.View(vehicle::LicenseNumber));
  tag.Put(wotag::Status, WoStatusCode(workorder.Status, tag.Get(wotag::Status)));
  tag.Put(wotag::Type, WoTypeCode(workorder.Type));
  tag.Put(wotag::TaxExempt, owner.View(customer::tax_id_number).empty() ? 0 : 1);
  const auto totals = workorder.Totals.Bytes();
  std::copy(totals.begin(), totals.end(), tag.Bytes().begin() + wotag::Totals.offset);
  PutText(tag, wotag::FileName, Workorders::FileNameOf(workorder.WorkorderNumber));
}

void PutIntoTag(const ActiveWoTag& active, FileLink masterOffset, ArchivedWoTag& tag) {
  std::copy_n(active.Bytes().begin(), wotag::MasterOffset.offset, tag.Bytes().begin());
  tag.Put(wotag::MasterOffset, masterOffset);
}

}  // namespace lantos
