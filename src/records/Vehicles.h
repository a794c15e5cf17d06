#pragma once

#include <functional>

#include "frame/Environment.h"
#include "records/Record.h"
#include "records/RecordArray.h"
#include "records/modSystem.h"
#include "ui/Desktop.h"

namespace lantos {

// TQVEHICL.DAT: all vehicles of all customers in order of creation, chained for each customer by byte offsets.
namespace vehicle {
inline constexpr LongField Number{0};  // of the owning customer
inline constexpr LongField Deleted{Number.End()};
inline constexpr TextField Make{Deleted.End(), 21};
inline constexpr TextField Model{Make.End(), 21};
inline constexpr TextField Year{Model.End(), 6};
inline constexpr TextField EngineSize{Year.End(), 13};
inline constexpr TextField Transmission{EngineSize.End(), 13};
inline constexpr TextField VIN{Transmission.End(), 21};
inline constexpr TextField LicenseNumber{VIN.End(), 11};  // the unit number in a fleet shop
inline constexpr TextField State{LicenseNumber.End(), 3};
inline constexpr TextField VComment[4] = {
    {State.End(), 65}, {State.End() + 65, 65}, {State.End() + 130, 65}, {State.End() + 195, 65}};
inline constexpr LongField Mileage{VComment[3].End()};
inline constexpr LongField Date{Mileage.End()};  // FileDate of Mileage
inline constexpr LongField FirstMileage{Date.End()};
inline constexpr LongField FirstDate{FirstMileage.End()};
inline constexpr LongField VLink{FirstDate.End()};  // FileLink of the customer's next vehicle
static_assert(VLink.End() == 397);
}  // namespace vehicle
using VehicleRecord = Record<vehicle::VLink.End()>;

inline constexpr std::string_view kVehicleFile = "TQVEHICL.DAT";
inline constexpr std::int32_t kVehicleLive = -1;
inline constexpr std::int32_t kVehicleDeleted = 86;  // a plain number chosen as the mark; anything else is live

class Vehicles {
 public:
  Vehicles(Environment& environment, ui::Desktop& desktop, modSystem& system)
      : environment_(environment), desktop_(desktop), system_(system) {}
  Vehicles(const Vehicles&) = delete;

  VehicleRecord CurrentVehicle;
  FileLink CurrentVehicleOffset = kNoLink;  // where it was read from; kNoLink: not on file

  // A blank CurrentVehicle, live, unchained, with the shop's state.
  void NewVehicle();
  // Empty handle (kNoHandle) when the operator gave up; the caller reads nothing then.
  FileHandle OpenVehicleForRead();
  // With kNoHandle it opens the file itself and sets CurrentVehicleOffset (kNoLink after a failure, which has been
  // shown). With an open handle it reads and leaves CurrentVehicleOffset as it was.
  void ReadVehicle(FileLink offset, FileHandle handle = kNoHandle);
  // Writes CurrentVehicle at CurrentVehicleOffset and marks the array not loaded. A failure is shown and leaves
  // kNoLink. A vehicle that is not on file goes to appendInstead.
  void WriteVehicle();
  std::function<void()> appendInstead;
  std::uint64_t FileLength() const;

  // All vehicles in file order, deleted ones too.
  void LoadVehicles();
  bool Loaded() const { return count_ >= 0; }
  void MarkNotLoaded() { count_ = -1; }
  std::int32_t Count() const { return count_; }  // -1 before the first load
  const VehicleRecord& operator[](std::size_t index) const { return vehicles_[index]; }

  // Walks a chain from a link: use gets each vehicle's offset, with the vehicle in CurrentVehicle, and returns false
  // to stop. A chain that comes back to a link it has passed (damaged links) ends there, and so does one that can't be
  // read on. Opens and closes the file.
  void Walk(FileLink first, const std::function<bool(FileLink offset)>& use);
  // The same in a file that OpenVehicleForRead has opened.
  void Walk(FileLink first, FileHandle handle, const std::function<bool(FileLink offset)>& use);

  // The rule for the first recorded mileage, applied when a vehicle is saved.
  static void FollowFirstMileage(VehicleRecord& record);

 private:
  bool ReadOrTell(FileLink offset, FileHandle handle);

  Environment& environment_;
  ui::Desktop& desktop_;
  modSystem& system_;
  RecordArray<VehicleRecord> vehicles_;
  std::int32_t count_ = -1;
};

}  // namespace lantos
