#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "frame/Environment.h"
#include "records/CustomerNumbers.h"
#include "records/CustomerTag.h"
#include "records/OpenedFile.h"
#include "records/Record.h"
#include "records/RecordArray.h"
#include "records/Vehicles.h"
#include "records/modSystem.h"
#include "ui/Desktop.h"

namespace lantos {

// TQCSTDAT.DAT: the full record.
namespace customer {
inline constexpr LongField Number{0};
inline constexpr TextField Lastname{Number.End(), 21};
inline constexpr TextField Firstname{Lastname.End(), 21};
inline constexpr TextField Spouse{Firstname.End(), 21};  // first name
inline constexpr TextField SpouseLast{Spouse.End(), 21};
inline constexpr TextField Address{SpouseLast.End(), 33};
inline constexpr TextField City{Address.End(), 21};
inline constexpr TextField State{City.End(), 3};
inline constexpr TextField Zip{State.End(), 11};
inline constexpr TextField HomePhone{Zip.End(), 15};
inline constexpr TextField WorkPhone{HomePhone.End(), 15};
inline constexpr TextField WorkExt{WorkPhone.End(), 6};
inline constexpr TextField OtherPhone{WorkExt.End(), 15};
inline constexpr IntegerField pricing_level{OtherPhone.End()};  // 0 to 3: Cost, Wholesale, Resale, Retail
inline constexpr LongField Date{pricing_level.End()};           // FileDate of the record's creation
inline constexpr TextField tax_id_number{Date.End(), 21};       // blank for a taxable customer
inline constexpr TextField Comment{tax_id_number.End(), 47};
inline constexpr TextField salesperson{Comment.End(), 32};
inline constexpr LongField VLink{salesperson.End()};  // FileLink of the first vehicle
static_assert(VLink.End() == 317);
}  // namespace customer
using CustomerRecord = Record<customer::VLink.End()>;

inline constexpr std::string_view kCustomerFile = "TQCSTDAT.DAT";

// One customer with the date of the newest vehicle: a row of the refreshed customer index.
struct CustomerIndexRow {
  CustomerRecord customer;
  FileDate VehicleDate = -1;
};

class Customers {
 public:
  Customers(Environment& environment, ui::Desktop& desktop, modSystem& system, Vehicles& vehicles);
  Customers(const Customers&) = delete;

  // The customer that the screens work on. What merely looks a customer up leaves both alone.
  CustomerTag CurrentTag;
  CustomerRecord CurrentCustomer;

  enum class From { Memory, File };
  // Fills the array anew, with 32767 tags at most. False, and an empty array, when the person gave up. Whoever is
  // looked up next comes from the file too, if that is said.
  bool LoadCustomerTags(From lookUps = From::Memory);
  std::size_t Count() const { return tags_.size(); }
  const CustomerTag& Tag(std::size_t index) const { return tags_[index]; }
  // The place of the first tag with that number; Count() when there is none.
  std::size_t IndexOf(std::int32_t number) { return numbers_.Find(tags_, number); }
  // The master that a tag leads to. One is in memory and isn't read again: CurrentCustomer, until another one is looked
  // up; from then on that one. So a current customer of an hour ago is never taken for the record on file. A screen
  // that opens a customer reads the file whatever is in memory. Nothing when the tag leads nowhere or to somebody
  // else's record, which is told, and when the person gave up.
  std::optional<CustomerRecord> Master(const CustomerTag& tag, From from = From::Memory);
  // Whether a master that was wanted in this run was somebody else's.
  bool LeadsToAnothers(const CustomerTag& tag) const { return anothers_.contains(tag.Get(customertag::Number)); }
  // Whether the tag's Offset isn't one of the master file.
  bool LeadsNowhere(const CustomerTag& tag);

  // The same for the current one. FindCustomerTag makes the tag it finds current and returns its place. Not found:
  // Count(), CurrentTag left alone.
  std::size_t FindCustomerTag(const CustomerRecord& record);
  std::size_t FindCustomerTag(std::int32_t number);
  // Whoever was current before a look-up or a new customer.
  void PutBack(const CustomerTag& tag, const CustomerRecord& record) {
    newNumber_.reset();
    CurrentTag = tag;
    CurrentCustomer = record;
  }
  void MakeTagCurrent(std::size_t index) { CurrentTag = tags_[index]; }
  // The master of CurrentTag into CurrentCustomer. True when CurrentCustomer holds it afterwards.
  bool ReadCustomer(From from = From::Memory);
  // The tag and the master of a customer become the current ones; when they can't be had the current ones stay. An
  // unknown number reloads the tags once.
  bool MakeCurrent(std::int32_t number, From from = From::Memory);
  // CurrentCustomer and its tag; never over another one's. False, and nothing more written, when the person gave up;
  // array and CurrentTag are as before then. A tag that can't be put back is told by GivenUp, and is in both. A new
  // customer beyond the limit throws std::length_error. A new one whose number turns out to be somebody's is given
  // another, if the person wants that.
  bool WriteCustomer();
  // The same, but CurrentCustomer becomes the record as it lies on file, with what change puts into it: what others
  // have stored meanwhile stays. No other copy of this program writes a customer between the two. What change throws
  // leaves all as it was.
  using Change = std::function<void(CustomerRecord& record)>;
  bool UpdateCustomer(const Change& change);
  // How many were written in this run.
  std::size_t Writings() const { return writings_; }
  // False when the running number is somebody's already and the person doesn't want another.
  bool NewCustomer();
  // Of the owner's vehicles; -1 without any. A handle of OpenVehicleForRead spares the opening.
  FileDate LatestVehicleDate(const CustomerRecord& owner, FileHandle handle = kNoHandle);
  std::string SpouseName(std::size_t index);

  // Adds the vehicle at the head of CurrentCustomer's chain as it lies on file. Its place; kNoLink, and the chain as it
  // was, when it or the customer can't be written.
  // earlier is for who may try again, and kNoLink before the first try: a vehicle that one has appended is written
  // there.
  FileLink AppendVehicle(VehicleRecord& record, FileLink* earlier = nullptr);

  // Name and phones for the board: null for a customer who isn't known. The one looked up last is remembered. An
  // unknown one reloads the tags once. Good until the next read of a master.
  const CustomerRecord* LookupCustomer(std::int32_t customerNumber);

  // Keeps the customer master open from its first read on, for as long as this lives: many look-ups in a row then cost
  // one open. A person who has given up on the tags isn't asked again meanwhile. Nothing may wait for the person but
  // the look-ups' own prompts.
  class Reading {
   public:
    explicit Reading(Customers& customers) : customers_(customers), file_(customers.environment_.openFiles) {
      customers_.reading_ = &file_;
      customers_.tagsGivenUp_ = false;
      customers_.readLength_ = 0;
    }
    ~Reading() { customers_.reading_ = nullptr; }
    Reading(const Reading&) = delete;

   private:
    Customers& customers_;
    OpenedFile file_;
  };

  // As long as this lives nobody is asked or told anything: a file that somebody else has just then, or that can't be
  // read, throws FileError at once, and who can't be had by a bad tag isn't known.
  // Whoever is there to be told is told at the next look-up of his own.
  class Quietly {
   public:
    explicit Quietly(Customers& customers) : customers_(customers) { customers_.isQuiet_ = true; }
    ~Quietly() { customers_.isQuiet_ = false; }
    Quietly(const Quietly&) = delete;

   private:
    Customers& customers_;
  };

  // Loads every customer anew, with the date of the newest vehicle. False, and an empty index, when the person gave up.
  bool RefreshCustomers();
  // As RefreshCustomers loaded it.
  const std::vector<CustomerIndexRow>& Index() const { return index_; }

 private:
  void FillTags(const SharedFile& file);
  class Writing;
  const CustomerRecord& InMemory() const { return lookedUp_ ? *lookedUp_ : CurrentCustomer; }
  void BecomeCurrent(const CustomerRecord& master);
  std::size_t IndexAfterReload(std::int32_t number);
  void LoadTagsForLookup();
  void LoadIndex(const SharedFile& masters);

  Environment& environment_;
  ui::Desktop& desktop_;
  modSystem& system_;
  Vehicles& vehicles_;
  RecordArray<CustomerTag> tags_;
  CustomerNumbers numbers_;
  std::vector<CustomerIndexRow> index_;
  std::size_t writings_ = 0;
  std::optional<std::int32_t> newNumber_;  // taken, and not on file yet
  std::set<std::int32_t> anothers_;        // numbers whose tags lead to somebody else's record
  OpenedFile* reading_ = nullptr;
  bool tagsGivenUp_ = false;      // while reading_
  std::uint64_t readLength_ = 0;  // of the customer master, when it was last looked at while reading_
  static constexpr std::int32_t kNobody = -1;
  std::optional<CustomerRecord> lookedUp_;  // since CurrentCustomer was set
  std::int32_t lookupCustomer_ = kNobody;   // of the last look-up, while it was known
  bool isQuiet_ = false;
};

}  // namespace lantos
