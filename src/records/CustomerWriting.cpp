#include <algorithm>
#include <stdexcept>

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "records/CustomerFiles.h"
#include "records/Customers.h"
#include "records/PriceLevels.h"

// Customers, new and changed, into their two files.
namespace lantos {

namespace {

// How often a customer that others have written meanwhile is looked for among the tags.
constexpr int kTries = 5;

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

// The tag's key fields, from names that are trimmed in the record too.
void Follow(CustomerTag& tag, CustomerRecord& record) {
  const std::string lastname = TrimInPlace(record, customer::Lastname);
  const std::string firstname = TrimInPlace(record, customer::Firstname);
  const std::string spouseLast = TrimInPlace(record, customer::SpouseLast);
  const std::string spouse = TrimInPlace(record, customer::Spouse);
  tag.Put(customertag::Number, record.Get(customer::Number));
  tag.Put(customertag::NameKey, lastname + "," + firstname);
  tag.Put(customertag::SpouseKey, spouseLast + "," + spouse);
  // A copy, so a phone that the main application keeps behind a blank stays equal in both files.
  tag.Put(customertag::Phone, Untrimmed(record, customer::HomePhone));
  tag.Put(customertag::reserved, "");
}

// Behind the highest that a tag bears, where the number found is somebody's.
std::optional<std::int32_t> FreeNumber(Customers& customers, modSystem& system, std::optional<std::int32_t> found) {
  const auto isTaken = [&](std::int32_t each) { return customers.IndexOf(each) != customers.Count(); };
  const auto highest = [&] {
    std::int32_t number = 0;
    for (std::size_t i = 0; i < customers.Count(); ++i) {
      const std::int32_t each = customers.Tag(i).Get(customertag::Number);
      if (each <= kHighestNumber) number = std::max(number, each);
    }
    return number;
  };
  return system.TakeFreeNumber(sysrec::last_customer_number, isTaken,
                               {.found = found, .beforehand = {}, .highest = highest});
}

}  // namespace

// One writing of CurrentCustomer.
class Customers::Writing {
 public:
  Writing(Customers& customers, const Change& change) : customers_(customers), change_(change) {}
  bool Run();

 private:
  std::int32_t Number() const { return customers_.CurrentCustomer.Get(customer::Number); }
  std::optional<std::size_t> Place();
  bool TakeAnotherNumber();
  // False when the person gave up; nothing when others may have written meanwhile, and all has to be looked at anew.
  std::optional<bool> Store(CustomerFiles& files, std::size_t place);
  void TakeUp(const CustomerFiles& files, std::uint64_t tagOffset, std::size_t place, const CustomerTag& tag,
              const CustomerRecord& record);

  Customers& customers_;
  const Change& change_;
};

bool Customers::WriteCustomer() { return UpdateCustomer(nullptr); }

bool Customers::UpdateCustomer(const Change& change) {
  lookupCustomer_ = kNobody;
  lookedUp_.reset();
  return Writing(*this, change).Run();
}

bool Customers::NewCustomer() {
  const std::optional<std::int32_t> number = FreeNumber(*this, system_, {});
  if (!number) return false;
  newNumber_ = number;
  CurrentCustomer = {};
  CurrentCustomer.Put(customer::Number, *number);
  CurrentCustomer.Put(customer::City, system_.SysRec.View(sysrec::company_city));
  CurrentCustomer.Put(customer::State, system_.SysRec.View(sysrec::company_state));
  CurrentCustomer.Put(customer::pricing_level, kRetail);
  CurrentCustomer.Put(customer::Date, ToFileDate(environment_.Today()));
  CurrentCustomer.Put(customer::VLink, kNoLink);
  return true;
}

// What lies in the files is looked at again once they are held open: they may have been waited for.
bool Customers::Writing::Run() {
  for (int tries = 0; tries < kTries;) {
    const std::optional<std::size_t> place = Place();
    if (!place) return false;
    CustomerFiles files(customers_.environment_, customers_.desktop_);
    if (!files.Open()) return false;
    const bool isNew = *place == customers_.Count();
    if (isNew && files.HasTagFrom(*place, Number())) {
      ++tries;
    } else if (const std::optional<bool> isStored = Store(files, *place)) {
      return *isStored;
    }
  }
  throw std::runtime_error("Customer " + FormatZeros(Number(), 6) + " has a tag in " + std::string(kCustomerTagFile) +
                           " that can't be read. Nothing was stored.");
}

// The place of the customer's tag in the array, and that tag as the current one; the count for a new customer, who is
// given another number if theirs is somebody's. Nothing when the person gave up.
std::optional<std::size_t> Customers::Writing::Place() {
  std::size_t index = customers_.IndexOf(Number());
  if (index == customers_.Count()) {
    // Without the tags the customer would pass for the first of all, and take the place of another one's tag.
    if (!customers_.LoadCustomerTags()) return std::nullopt;
    index = customers_.IndexOf(Number());
  }
  if (index != customers_.Count() && customers_.newNumber_ == Number()) {
    if (!TakeAnotherNumber()) return std::nullopt;
    index = customers_.Count();
  }
  if (index == customers_.Count() && index >= kCustomerLimit) {
    throw std::length_error("No more than 32767 customers can be held.");
  }
  if (index != customers_.Count()) customers_.CurrentTag = customers_.tags_[index];
  return index;
}

bool Customers::Writing::TakeAnotherNumber() {
  const std::optional<std::int32_t> number = FreeNumber(customers_, customers_.system_, Number());
  if (!number) return false;
  customers_.newNumber_ = number;
  customers_.CurrentCustomer.Put(customer::Number, *number);
  return true;
}

std::optional<bool> Customers::Writing::Store(CustomerFiles& files, std::size_t place) {
  const bool isNew = place == customers_.Count();
  CustomerTag tag;
  if (!isNew) tag = customers_.tags_[place];
  const CustomerFiles::Places places = isNew ? files.PlacesOfNew(place) : files.PlacesOf(tag, place);
  CustomerRecord record = customers_.CurrentCustomer;
  if (change_) {
    const CustomerRecord onFile = files.MasterAt(places.master);
    if (onFile.Get(customer::Number) == record.Get(customer::Number)) record = onFile;
    change_(record);
  }
  Follow(tag, record);
  tag.Put(customertag::Offset, places.master);
  CustomerFiles::Written written = CustomerFiles::Written::Nothing;
  CustomerFiles::Outcome outcome = CustomerFiles::Outcome::Ended;
  try {
    outcome = files.Write(places, tag, record, written);
  } catch (...) {
    if (written != CustomerFiles::Written::Nothing) TakeUp(files, places.tag, place, tag, record);
    throw;
  }
  const bool isOver = outcome == CustomerFiles::Outcome::Ended;
  if (written != CustomerFiles::Written::Nothing) TakeUp(files, places.tag, place, tag, record);
  if (!isOver) return std::nullopt;
  if (written != CustomerFiles::Written::Both) return false;
  ++customers_.writings_;
  files.Close();
  return true;
}

// What isn't in the tag file isn't found by a search either. A new tag that came to lie behind those of others has the
// array read anew.
void Customers::Writing::TakeUp(const CustomerFiles& files, std::uint64_t tagOffset, std::size_t place,
                                const CustomerTag& tag, const CustomerRecord& record) {
  customers_.newNumber_.reset();
  customers_.CurrentTag = tag;
  customers_.CurrentCustomer = record;
  if (place < customers_.Count()) {
    customers_.tags_[place] = tag;
  } else if (tagOffset == place * CustomerTag::kLength) {
    customers_.tags_.push_back(tag);
    customers_.numbers_.Appended(customers_.tags_);
  } else {
    customers_.FillTags(files.Tags());
  }
}

}  // namespace lantos
