#include "records/Customers.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "records/Contention.h"
#include "records/OpenedFile.h"
#include "records/PriceLevels.h"

namespace lantos {

namespace {

constexpr std::size_t kTagsABlock = 176;
// Later dates of vehicles are garbage.
constexpr FileDate kGarbageDate = 1000000;

std::int32_t NumberOf(const CustomerTag& tag) { return tag.Get(customertag::Number); }

// Trims a text field in its record, and tells the text.
template <class RecordType>
std::string TrimInPlace(RecordType& record, TextField field) {
  std::string text = record.Get(field);
  record.Put(field, text);
  return text;
}

// The text up to its first NUL, the blanks around it included.
template <std::size_t Length>
std::string_view Untrimmed(const Record<Length>& record, TextField field) {
  const std::string_view all(reinterpret_cast<const char*>(record.Bytes().data()) + field.offset, field.width);
  return all.substr(0, all.find('\0'));
}

}  // namespace

bool Customers::LoadCustomerTags() {
  tags_.clear();
  numbers_.Forget();
  OpenedFile file(environment_.openFiles);
  Contention contention(contention::kLoadCustomerTags, desktop_, environment_);
  const bool done = contention.Run([&] { file.Open(kCustomerTagFile, Access::Read, Deny::None); }) &&
                    contention.Run([&] { FillTags(*file); });
  if (!done) tags_.clear();
  return done;
}

// Each block is read right behind the tags that are held, and empty slots are closed up there: no copy, and no tag is
// touched twice.
void Customers::FillTags(const SharedFile& file) {
  tags_.clear();
  const std::size_t expected = static_cast<std::size_t>(file.Length() / CustomerTag::kLength);
  tags_.reserve(std::min(expected, kCustomerLimit) + kTagsABlock);
  constexpr std::uint64_t kBlockBytes = kTagsABlock * CustomerTag::kLength;
  for (std::uint64_t offset = 0; tags_.size() < kCustomerLimit; offset += kBlockBytes) {
    const std::size_t held = tags_.size();
    tags_.resize(held + kTagsABlock);
    const std::size_t bytes = ReadRecords(file, offset, std::span(tags_).subspan(held));
    const auto first = tags_.begin() + static_cast<std::ptrdiff_t>(held);
    tags_.erase(std::remove_if(first, tags_.end(), [](const CustomerTag& tag) { return NumberOf(tag) == 0; }),
                tags_.end());
    if (bytes < kBlockBytes) break;
  }
  if (tags_.size() > kCustomerLimit) tags_.resize(kCustomerLimit);
}

std::size_t Customers::FindCustomerTag(const CustomerRecord& record) {
  return FindCustomerTag(record.Get(customer::Number));
}

std::size_t Customers::FindCustomerTag(std::int32_t number) {
  const std::size_t index = IndexOf(number);
  if (index < tags_.size()) CurrentTag = tags_[index];
  return index;
}

bool Customers::LeadsNowhere(const CustomerTag& tag) const {
  const FileLink offset = tag.Get(customertag::Offset);
  const bool isOpen = reading_ != nullptr && reading_->IsOpen();
  const std::uint64_t length = isOpen ? (*reading_)->Length() : environment_.files.Length(kCustomerFile);
  return offset < 0 || static_cast<std::uint64_t>(offset) >= length;
}

std::optional<CustomerRecord> Customers::Master(const CustomerTag& tag) {
  const FileLink offset = tag.Get(customertag::Offset);
  if (LeadsNowhere(tag)) {
    const std::string number = std::to_string(std::max(offset, kNoLink));
    desktop_.Tell("Invalid file offset supplied to ReadCustomer = " + number, "ReadCustomer()");
    return std::nullopt;
  }
  if (InMemory().Get(customer::Number) == NumberOf(tag)) return InMemory();
  OpenedFile own(environment_.openFiles);
  OpenedFile& file = reading_ != nullptr ? *reading_ : own;
  Contention contention(contention::kReadCustomer, desktop_, environment_);
  const auto open = [&] {
    if (!file.IsOpen()) file.Open(kCustomerFile, Access::Read, Deny::None);
  };
  CustomerRecord master;
  if (!contention.Run(open) || !contention.Run([&] { ReadRecord(*file, offset, master); })) return std::nullopt;
  lookedUp_ = master;
  return master;
}

bool Customers::ReadCustomer() {
  const std::optional<CustomerRecord> master = Master(CurrentTag);
  if (!master) return false;
  BecomeCurrent(*master);
  return true;
}

void Customers::BecomeCurrent(const CustomerRecord& master) {
  CurrentCustomer = master;
  lookedUp_.reset();
}

bool Customers::MakeCurrent(std::int32_t number) {
  const std::size_t index = IndexAfterReload(number);
  if (index == Count()) return false;
  const std::optional<CustomerRecord> master = Master(tags_[index]);
  if (!master) return false;
  CurrentTag = tags_[index];
  BecomeCurrent(*master);
  return true;
}

bool Customers::WriteCustomer() {
  lookupCustomer_ = kNobody;
  lookedUp_.reset();
  const CustomerTag currentBefore = CurrentTag;
  std::size_t index = FindCustomerTag(CurrentCustomer);
  if (index == Count()) {
    // Without the tags the customer would pass for the first of all, and take the place of another one's tag.
    if (!LoadCustomerTags()) return false;
    index = FindCustomerTag(CurrentCustomer);
  }
  const bool isNew = index == Count();
  if (isNew) {
    if (index >= kCustomerLimit) throw std::length_error("No more than 32767 customers can be held.");
    CurrentTag = {};
    CurrentTag.Put(customertag::Offset, kNoLink);
  }
  const CustomerTag before = isNew ? currentBefore : CurrentTag;
  MakeTagFollowCustomer();
  if (isNew) {
    tags_.push_back(CurrentTag);
    numbers_.Appended(tags_);
  } else {
    tags_[index] = CurrentTag;
  }
  Written written = Written::Nothing;
  try {
    WriteTagAndMaster(index, written);
  } catch (...) {
    if (written == Written::Nothing) TakeBack(index, isNew ? TagIs::New : TagIs::Known, before);
    throw;
  }
  if (written == Written::Nothing) TakeBack(index, isNew ? TagIs::New : TagIs::Known, before);
  return written == Written::Both;
}

// What isn't in the tag file isn't found by a search either.
void Customers::TakeBack(std::size_t index, TagIs tag, const CustomerTag& before) {
  CurrentTag = before;
  if (tag == TagIs::Known) {
    tags_[index] = before;
  } else {
    tags_.pop_back();
    numbers_.Forget();
  }
}

void Customers::MakeTagFollowCustomer() {
  const std::string lastname = TrimInPlace(CurrentCustomer, customer::Lastname);
  const std::string firstname = TrimInPlace(CurrentCustomer, customer::Firstname);
  const std::string spouseLast = TrimInPlace(CurrentCustomer, customer::SpouseLast);
  const std::string spouse = TrimInPlace(CurrentCustomer, customer::Spouse);
  CurrentTag.Put(customertag::Number, CurrentCustomer.Get(customer::Number));
  CurrentTag.Put(customertag::NameKey, lastname + "," + firstname);
  CurrentTag.Put(customertag::SpouseKey, spouseLast + "," + spouse);
  // A copy, so a phone that the main application keeps behind a blank stays equal in both files.
  CurrentTag.Put(customertag::Phone, Untrimmed(CurrentCustomer, customer::HomePhone));
  CurrentTag.Put(customertag::reserved, "");
}

// The place in the array serves as the place in the file. It is, as long as no empty slot lies ahead of it in the
// file; this program never makes one, and one made by another program shifts the tags behind it.
void Customers::WriteTagAndMaster(std::size_t index, Written& written) {
  OpenedFile tagFile(environment_.openFiles);
  OpenedFile masterFile(environment_.openFiles);
  Contention tagContention(contention::kWriteCustomerTag, desktop_, environment_);
  Contention masterContention(contention::kWriteCustomer, desktop_, environment_);
  if (!tagContention.Run([&] { tagFile.Open(kCustomerTagFile, Access::Write, Deny::None); })) return;
  if (!masterContention.Run([&] { masterFile.Open(kCustomerFile, Access::Write, Deny::None); })) return;
  // A new one, or one whose tag leads nowhere.
  if (CurrentTag.Get(customertag::Offset) < 0) {
    CurrentTag.Put(customertag::Offset, LinkAtEnd(masterFile->Length(), kCustomerFile));
    tags_[index] = CurrentTag;
  }
  const FileLink offset = CurrentTag.Get(customertag::Offset);
  const std::uint64_t tagOffset = index * CustomerTag::kLength;
  if (!tagContention.Run([&] { tagFile->WriteAt(tagOffset, CurrentTag.Bytes()); })) return;
  written = Written::Tag;
  if (!masterContention.Run([&] { WriteRecord(*masterFile, offset, CurrentCustomer); })) return;
  written = Written::Both;
  ++writings_;
  tagFile.Close();
  environment_.files.FlushFile(kCustomerTagFile);
  masterFile.Close();
  environment_.files.FlushFile(kCustomerFile);
}

void Customers::NewCustomer() {
  const std::int32_t number = system_.TakeNumber(sysrec::last_customer_number);
  CurrentCustomer = {};
  CurrentCustomer.Put(customer::Number, number);
  CurrentCustomer.Put(customer::City, system_.SysRec.View(sysrec::company_city));
  CurrentCustomer.Put(customer::State, system_.SysRec.View(sysrec::company_state));
  CurrentCustomer.Put(customer::pricing_level, kRetail);
  CurrentCustomer.Put(customer::Date, ToFileDate(environment_.Today()));
  CurrentCustomer.Put(customer::VLink, kNoLink);
}

FileDate Customers::LatestVehicleDate(const CustomerRecord& owner, FileHandle handle) {
  FileDate latest = -1;
  const auto keepGreatest = [&](const VehicleRecord& record, FileLink) {
    const FileDate date = record.Get(vehicle::Date);
    if (date < kGarbageDate) latest = std::max(latest, date);
    return true;
  };
  vehicles_.Walk(owner.Get(customer::VLink), keepGreatest, handle);
  return latest;
}

std::string Customers::SpouseName(std::size_t index) {
  CustomerTag& tag = tags_.at(index);
  const std::string nameKey = TrimInPlace(tag, customertag::NameKey);
  const std::string spouseKey = TrimInPlace(tag, customertag::SpouseKey);
  const std::size_t comma = nameKey.find(',');
  if (comma == std::string::npos || comma == 0) return {};
  return nameKey.substr(0, comma) + spouseKey;
}

FileLink Customers::AppendVehicle(VehicleRecord& record) {
  const FileLink offset = LinkAtEnd(vehicles_.FileLength(), kVehicleFile);
  record.Put(vehicle::VLink, CurrentCustomer.Get(customer::VLink));
  // Not written: a chain that began at "none" would lose all vehicles of the customer.
  if (!vehicles_.Write(offset, record)) return kNoLink;
  try {
    if (!vehicles_.Loaded()) vehicles_.LoadVehicles();
  } catch (const FileError& error) {
    // The array stays not loaded until the next search; the vehicle on file must get into its chain all the same.
    environment_.log.Write(std::string("AppendVehicle: ") + error.what());
  }
  CurrentCustomer.Put(customer::VLink, offset);
  WriteCustomer();
  return offset;
}

const CustomerRecord* Customers::LookupCustomer(std::int32_t customerNumber) {
  if (lookupCustomer_ == customerNumber && InMemory().Get(customer::Number) == customerNumber) return &InMemory();
  lookupCustomer_ = kNobody;
  const std::size_t index = IndexAfterReload(customerNumber);
  if (index == Count() || !Master(tags_[index])) return nullptr;
  lookupCustomer_ = customerNumber;
  return &InMemory();
}

// Tags that were loaded for this very search aren't loaded twice.
std::size_t Customers::IndexAfterReload(std::int32_t number) {
  const bool wasEmpty = tags_.empty();
  if (wasEmpty) LoadTagsForLookup();
  const std::size_t index = IndexOf(number);
  if (index != Count() || wasEmpty) return index;
  LoadTagsForLookup();
  return IndexOf(number);
}

void Customers::LoadTagsForLookup() {
  if (reading_ != nullptr && tagsGivenUp_) return;
  tagsGivenUp_ = !LoadCustomerTags();
}

bool Customers::RefreshCustomers() {
  index_.clear();
  lookupCustomer_ = kNobody;
  lookedUp_.reset();
  if (!LoadCustomerTags()) return false;
  OpenedFile masters(environment_.openFiles);
  Contention contention(contention::kReadCustomer, desktop_, environment_);
  if (!contention.Run([&] { masters.Open(kCustomerFile, Access::Read, Deny::None); })) return false;
  LoadIndex(*masters);
  // What is in memory of a customer must be as fresh as the rest, since it isn't read again.
  const std::int32_t current = CurrentCustomer.Get(customer::Number);
  for (const CustomerIndexRow& row : index_) {
    if (row.customer.Get(customer::Number) == current) CurrentCustomer = row.customer;
  }
  return true;
}

void Customers::LoadIndex(const SharedFile& masters) {
  const std::uint64_t length = masters.Length();
  OpenedFile vehicleFile(environment_.openFiles);
  vehicleFile.TakeOver(vehicles_.OpenVehicleForRead());
  index_.reserve(tags_.size());
  for (const CustomerTag& tag : tags_) {
    const FileLink offset = tag.Get(customertag::Offset);
    if (offset < 0 || static_cast<std::uint64_t>(offset) >= length) continue;
    CustomerIndexRow& row = index_.emplace_back();
    ReadRecord(masters, offset, row.customer);
    // Without the vehicle file (the person gave up) nobody has a vehicle date.
    if (vehicleFile.IsOpen()) row.VehicleDate = LatestVehicleDate(row.customer, vehicleFile.Handle());
  }
}

}  // namespace lantos
