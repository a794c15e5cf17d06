#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/Environment.h"
#include "records/OpenedFile.h"
#include "records/Record.h"

namespace lantos {

// TQFOLLOW.DAT: service recommendations that earlier work orders left behind.
namespace followup {
inline constexpr ByteField Active{0};  // 0: used or void
inline constexpr LongField CustomerNumber{Active.End()};
inline constexpr TextField VIN{CustomerNumber.End(), 21};
inline constexpr TextField LicenseNumber{VIN.End(), 11};
inline constexpr OpaqueField korvel1{LicenseNumber.End(), 6};
inline constexpr LongField WorkorderNumber{korvel1.End()};
inline constexpr LongField FollowupDate{WorkorderNumber.End()};  // FileDate
inline constexpr LongField Miles{FollowupDate.End()};
inline constexpr LongField Days{Miles.End()};
inline constexpr TextField Description{Days.End(), 513};  // lines joined by tabs
inline constexpr LongField Mechanic{Description.End()};
inline constexpr LongField Hours{Mechanic.End()};  // Hundredths
inline constexpr LongField Rate{Hours.End()};      // Cents an hour
inline constexpr LongField Total{Rate.End()};      // Cents
inline constexpr OpaqueField korvel2{Total.End(), 8};
static_assert(korvel2.End() == 596);
}  // namespace followup
using FollowupRecord = Record<followup::korvel2.End()>;

inline constexpr std::string_view kFollowupFile = "TQFOLLOW.DAT";

struct Followup {
  std::size_t recordNumber = 0;  // from 0
  FollowupRecord record;
};

// None of these traps a failed open: it surfaces as FileError.
class Followups {
 public:
  explicit Followups(Environment& environment) : environment_(environment) {}

  // The active ones of a customer's vehicle, in file order: by VIN, or by license when the vehicle has no VIN. A
  // vehicle with neither has none.
  std::vector<Followup> OpenFollowups(std::int32_t customer, std::string_view vin, std::string_view license);
  // Whether a work order's line has an active record already.
  bool Exists(std::int32_t customer, std::string_view vin, std::string_view license, std::int32_t workorder,
              FileDate date, std::int32_t miles);

  // A pass of using followups up, with the file open for writing from its first to its last.
  class Using {
   public:
    explicit Using(Environment& environment);
    // Writes the record back as no longer active.
    void UseUp(Followup& followup);

   private:
    OpenedFile file_;
  };

 private:
  Environment& environment_;
};

}  // namespace lantos
