#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

#include "frame/Environment.h"
#include "frame/SharedFile.h"
#include "records/RecordArray.h"
#include "ui/Desktop.h"

namespace lantos {

class modSystem;

// TQVENDOR.DAT: whom the shop buys from, a plain array.
namespace vendor {
inline constexpr TextField VendorName{0, 32};
inline constexpr TextField Contact{VendorName.End(), 32};
inline constexpr TextField Address{Contact.End(), 33};
inline constexpr TextField City{Address.End(), 21};
inline constexpr TextField State{City.End(), 3};
inline constexpr TextField Zip{State.End(), 11};
inline constexpr TextField Phone1{Zip.End(), 15};
inline constexpr TextField Phone1Ext{Phone1.End(), 6};
inline constexpr TextField Phone2{Phone1Ext.End(), 15};
inline constexpr TextField Phone3{Phone2.End(), 15};
inline constexpr TextField TaxIdNumber{Phone3.End(), 21};
static_assert(TaxIdNumber.End() == 204);
}  // namespace vendor
using VendorRecord = Record<vendor::TaxIdNumber.End()>;

inline constexpr std::string_view kVendorFile = "TQVENDOR.DAT";
// The count is an unsigned 16-bit value, whose highest says that nothing was loaded.
inline constexpr std::size_t kVendorLimit = 65534;

// The vendors, all of them in memory; a vendor's place in the array is its place in the file, from 0. The routines that
// say so wait for the file for ever and ask the person to try again after each failure.
class Vendors {
 public:
  Vendors(Environment& environment, ui::Desktop& desktop, modSystem& system)
      : environment_(environment), desktop_(desktop), system_(system) {}

  bool Loaded() const { return loaded_; }
  std::size_t Count() const { return vendors_.size(); }
  // A vendor that was deleted is blank.
  const VendorRecord& operator[](std::size_t index) const { return vendors_.at(index); }
  // The first vendor of that name, in any case and without blanks around it; Count() when there is none. A blank name
  // is nobody's.
  std::size_t Find(std::string_view name) const;

  // Waits.
  void LoadVendors();
  // Reads the file again if it can be had at once; what is in memory stays if not. False then.
  bool LookAgain();
  // Copies the vendor to CurrentVendor, as the file has it if it can be had at once.
  void MakeCurrent(std::size_t index);

  // Stores CurrentVendor at the index. Waits.
  void SaveVendor(std::size_t index);
  // The same with the vendor as the file has it, into which change puts what is new; CurrentVendor is that one then.
  // What change throws leaves all as it was. False for a vendor that another copy has deleted. Waits.
  using Change = std::function<void(VendorRecord& record)>;
  bool UpdateVendor(std::size_t index, const Change& change);
  // Adds a vendor of the shop's own city and state at the end of the file, as it is then; CurrentVendor is the new one.
  // A name that another copy has added meanwhile isn't added again, and CurrentVendor is that vendor. Returns the
  // vendor's index. Waits. Throws std::overflow_error when no more can be held.
  enum class Outcome { Added, WasThere };
  struct Addition {
    Outcome outcome;
    std::size_t index;
  };
  Addition AddVendor(std::string_view name);
  // Leaves a blank record, so that the others keep their numbers; CurrentVendor is blank then. Waits.
  void DeleteVendor(std::size_t index);

  VendorRecord CurrentVendor;

 private:
  enum class Attempt { Done, WasThere, FileHasGrown };
  Attempt TryToAdd(const VendorRecord& added);
  void ReadAll();
  void Write(std::size_t index, std::string_view routine);

  Environment& environment_;
  ui::Desktop& desktop_;
  modSystem& system_;
  RecordArray<VendorRecord> vendors_;
  bool loaded_ = false;
};

}  // namespace lantos
