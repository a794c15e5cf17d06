#include "records/Customers.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "frame/Numbers.h"
#include "records/Contention.h"
#include "records/OpenedFile.h"
#include "records/WriteAhead.h"

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

bool IsAnothers(const CustomerRecord& master, const CustomerTag& tag) {
  const std::int32_t number = master.Get(customer::Number);
  return number != NumberOf(tag) && number != 0;
}

void TellOfAnothers(ui::Desktop& desktop, const CustomerTag& tag, const CustomerRecord& master) {
  desktop.Tell("Customer " + FormatZeros(NumberOf(tag), 6) + " can't be shown: the tag in " +
                   std::string(kCustomerTagFile) + " leads to the record of customer " +
                   FormatZeros(master.Get(customer::Number), 6) + " in " + std::string(kCustomerFile) +
                   ".\rRun KRVLCLEN to repair the files.",
               "ReadCustomer()", ui::Icon::Exclamation);
}

// How often a chain that others lengthen meanwhile is followed.
constexpr int kTries = 100;

// The chain doesn't begin where the new vehicle goes on.
struct ChainHasMoved {
  FileLink first = kNoLink;
};

// Another copy may have put its own vehicle there since the customer was read.
void PutAtHead(CustomerRecord& owner, FileLink offset, const VehicleRecord& record) {
  const FileLink first = owner.Get(customer::VLink);
  if (first == offset) return;  // an earlier try came as far
  if (first != record.Get(vehicle::VLink)) throw ChainHasMoved{first};
  owner.Put(customer::VLink, offset);
}

[[noreturn]] void ThrowOfChain() {
  throw std::runtime_error("The vehicle could not be put before the customer's other vehicles in " +
                           std::string(kVehicleFile) + ". Add it again.");
}

// The vehicle, and the link of its owner that will lead to it; before is what lies at the vehicle's place.
void NoteAhead(WriteAhead& ahead, Customers& customers, FileLink offset, const std::string& before,
               const VehicleRecord& record) {
  const std::int32_t owner = customers.CurrentCustomer.Get(customer::Number);
  const std::size_t index = customers.IndexOf(owner);
  if (index == customers.Count()) return;
  const FileLink master = customers.Tag(index).Get(customertag::Offset);
  if (master < 0) return;
  const auto bytesOf = [](FileLink link) {
    VehicleRecord linked;
    linked.Put(vehicle::VLink, link);
    return TextOf(linked).substr(vehicle::VLink.offset);
  };
  ahead.Note("A vehicle of customer " + FormatZeros(owner, 6),
             {{std::string(kVehicleFile), static_cast<std::uint64_t>(offset), before, TextOf(record)},
              {std::string(kCustomerFile), static_cast<std::uint64_t>(master) + customer::VLink.offset,
               bytesOf(record.Get(vehicle::VLink)), bytesOf(offset)}});
}

// The vehicle's own link is written while the customers aren't in anybody's turn: its file may have to be asked about.
bool Chain(Customers& customers, Vehicles& vehicles, WriteAhead& ahead, FileLink place, VehicleRecord& record) {
  for (int tries = 0; tries < kTries; ++tries) {
    try {
      return customers.UpdateCustomer([&](CustomerRecord& owner) { PutAtHead(owner, place, record); });
    } catch (const ChainHasMoved& moved) {
      const std::string before = TextOf(record);
      record.Put(vehicle::VLink, moved.first);
      NoteAhead(ahead, customers, place, before, record);
      if (!vehicles.Write(place, record)) ThrowOfChain();
    }
  }
  ThrowOfChain();
}

bool WriteNewVehicle(Customers& customers, Vehicles& vehicles, WriteAhead& ahead, VehicleRecord& record,
                     FileLink& place) {
  record.Put(vehicle::VLink, customers.CurrentCustomer.Get(customer::VLink));
  if (place == kNoLink) {
    place = vehicles.Append(record, [&](FileLink offset) { NoteAhead(ahead, customers, offset, "", record); });
    return place != kNoLink;
  }
  const std::optional<VehicleRecord> earlier = vehicles.Read(place);
  if (!earlier) return false;
  // The chain may lead there already.
  record.Put(vehicle::VLink, earlier->Get(vehicle::VLink));
  NoteAhead(ahead, customers, place, TextOf(*earlier), record);
  return vehicles.Write(place, record);
}

}  // namespace

Customers::Customers(Environment& environment, ui::Desktop& desktop, modSystem& system, Vehicles& vehicles)
    : environment_(environment), desktop_(desktop), system_(system), vehicles_(vehicles) {
  // The same vehicle tried again, after its owner couldn't be written, goes to the place that it has already.
  vehicles_.appendInstead = [this, unchained = VehicleRecord(), place = kNoLink](VehicleRecord& record) mutable {
    VehicleRecord wanted = record;
    wanted.Put(vehicle::VLink, kNoLink);
    if (!std::ranges::equal(wanted.Bytes(), unchained.Bytes())) place = kNoLink;
    unchained = wanted;
    const FileLink chained = AppendVehicle(record, &place);
    if (chained != kNoLink) place = kNoLink;
    return chained;
  };
}

bool Customers::LoadCustomerTags(From lookUps) {
  if (lookUps == From::File) {
    lookupCustomer_ = kNobody;
    lookedUp_.emplace();  // of nobody, so that the current one isn't taken for the one on file
  }
  OpenedFile file(environment_.openFiles);
  const auto open = [&] {
    if (!file.IsOpen()) file.Open(kCustomerTagFile, Access::Read, Deny::None);
  };
  if (isQuiet_) open();  // throws with the tags as they were
  tags_.clear();
  numbers_.Forget();
  Contention contention(isQuiet_ ? contention::kAskNobody : contention::kLoadCustomerTags, desktop_, environment_);
  try {
    const bool done = contention.Run(open) && contention.Run([&] { FillTags(*file); });
    if (!done) tags_.clear();
    return done;
  } catch (const FileError&) {
    tags_.clear();  // some of them would be taken for all
    throw;
  }
}

// Each block is read right behind the tags that are held, and empty slots are closed up there: no copy, and no tag is
// touched twice.
void Customers::FillTags(const SharedFile& file) {
  tags_.clear();
  numbers_.Forget();
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

bool Customers::LeadsNowhere(const CustomerTag& tag) {
  const FileLink offset = tag.Get(customertag::Offset);
  if (offset < 0) return true;
  if (reading_ == nullptr || !reading_->IsOpen())
    return static_cast<std::uint64_t>(offset) >= environment_.files.Length(kCustomerFile);
  // The file only grows: what lay in it before lies in it.
  if (static_cast<std::uint64_t>(offset) >= readLength_) readLength_ = (*reading_)->Length();
  return static_cast<std::uint64_t>(offset) >= readLength_;
}

std::optional<CustomerRecord> Customers::Master(const CustomerTag& tag, From from) {
  const FileLink offset = tag.Get(customertag::Offset);
  if (LeadsNowhere(tag)) {
    if (isQuiet_) return std::nullopt;
    const std::string number = std::to_string(std::max(offset, kNoLink));
    desktop_.Tell("Invalid file offset supplied to ReadCustomer = " + number, "ReadCustomer()");
    return std::nullopt;
  }
  if (from == From::Memory && InMemory().Get(customer::Number) == NumberOf(tag)) return InMemory();
  OpenedFile own(environment_.openFiles);
  OpenedFile& file = reading_ != nullptr ? *reading_ : own;
  Contention contention(isQuiet_ ? contention::kAskNobody : contention::kReadCustomer, desktop_, environment_);
  const auto open = [&] {
    if (!file.IsOpen()) file.Open(kCustomerFile, Access::Read, Deny::None);
  };
  CustomerRecord master;
  if (!contention.Run(open) || !contention.Run([&] { ReadRecord(*file, offset, master); })) return std::nullopt;
  if (IsAnothers(master, tag)) {
    if (isQuiet_) return std::nullopt;
    // The board looks the same customers up again and again.
    const bool isFirst = anothers_.insert(NumberOf(tag)).second;
    if (isFirst || from == From::File) TellOfAnothers(desktop_, tag, master);
    return std::nullopt;
  }
  lookedUp_ = master;
  return master;
}

bool Customers::ReadCustomer(From from) {
  const std::optional<CustomerRecord> master = Master(CurrentTag, from);
  if (!master) return false;
  BecomeCurrent(*master);
  return true;
}

void Customers::BecomeCurrent(const CustomerRecord& master) {
  newNumber_.reset();
  CurrentCustomer = master;
  lookedUp_.reset();
}

bool Customers::MakeCurrent(std::int32_t number, From from) {
  const std::size_t index = IndexAfterReload(number);
  if (index == Count()) return false;
  const std::optional<CustomerRecord> master = Master(tags_[index], from);
  if (!master) return false;
  CurrentTag = tags_[index];
  BecomeCurrent(*master);
  return true;
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

FileLink Customers::AppendVehicle(VehicleRecord& record, FileLink* earlier) {
  FileLink first = kNoLink;
  FileLink& place = earlier != nullptr ? *earlier : first;
  // Not chained when it isn't written: a chain that began at "none" would lose all vehicles of the customer.
  WriteAhead ahead(environment_);
  if (!WriteNewVehicle(*this, vehicles_, ahead, record, place)) return kNoLink;
  try {
    if (!vehicles_.Loaded()) vehicles_.LoadVehicles();
  } catch (const FileError& error) {
    // The array stays not loaded until the next search; the vehicle on file must get into its chain all the same.
    environment_.log.Write(std::string("AppendVehicle: ") + error.what());
  }
  return Chain(*this, vehicles_, ahead, place, record) ? place : kNoLink;
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
    if (IsAnothers(row.customer, tag)) {
      index_.pop_back();
      continue;
    }
    // Without the vehicle file (the person gave up) nobody has a vehicle date.
    if (vehicleFile.IsOpen()) row.VehicleDate = LatestVehicleDate(row.customer, vehicleFile.Handle());
  }
}

}  // namespace lantos
