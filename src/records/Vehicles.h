#pragma once

#include <functional>
#include <optional>

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

  // The vehicle that the screens work on. What merely looks a vehicle up leaves both alone.
  VehicleRecord CurrentVehicle;
  FileLink CurrentVehicleOffset = kNoLink;  // where it was read from; kNoLink: not on file
  void MakeCurrent(const VehicleRecord& record, FileLink offset) {
    CurrentVehicle = record;
    CurrentVehicleOffset = offset;
  }

  // A blank vehicle, live, unchained, with the shop's state.
  VehicleRecord NewVehicle() const;
  // Empty handle (kNoHandle) when the person gave up; the caller reads nothing then.
  FileHandle OpenVehicleForRead();
  // The vehicle at an offset, from a file that OpenVehicleForRead has opened or, with kNoHandle, from one opened for
  // this alone. Nothing after a failure, which has been shown.
  std::optional<VehicleRecord> Read(FileLink offset, FileHandle handle = kNoHandle);
  // Writes the vehicle at its offset and marks the array not loaded; a CurrentVehicle of that offset follows. False
  // after a failure, which has been shown.
  bool Write(FileLink offset, const VehicleRecord& record);
  // The same at the end of the file, as it is once nobody else can write to it. The offset; kNoLink after a failure.
  // beforehand runs ahead of the writing, with that offset.
  FileLink Append(
      const VehicleRecord& record, const std::function<void(FileLink)>& beforehand = [](FileLink) {});
  // The same with the vehicle as it lies on file, into which change puts what is new: what others have stored meanwhile
  // stays. What change throws leaves it as it was. Nothing after a failure.
  using Change = std::function<void(VehicleRecord& record)>;
  std::optional<VehicleRecord> Update(FileLink offset, const Change& change);

  // The same for the current one. With kNoHandle CurrentVehicleOffset follows (kNoLink after a failure); with an open
  // handle it stays as it was, but after a failure.
  void ReadVehicle(FileLink offset, FileHandle handle = kNoHandle);
  // At CurrentVehicleOffset, which is kNoLink after a failure. A vehicle that is not on file goes to appendInstead,
  // which returns its place.
  void WriteVehicle();
  std::function<FileLink(VehicleRecord& record)> appendInstead;

  // All vehicles in file order, deleted ones too.
  void LoadVehicles();
  bool Loaded() const { return count_ >= 0; }
  void MarkNotLoaded() { count_ = -1; }
  std::int32_t Count() const { return count_; }  // -1 before the first load
  const VehicleRecord& operator[](std::size_t index) const { return vehicles_[index]; }

  // Walks a chain from a link: use gets each vehicle and its offset, and returns false to stop. A chain that comes back
  // to a link it has passed (damaged links) ends there, and so does one that can't be read on. With kNoHandle the file
  // is opened and closed.
  using Use = std::function<bool(const VehicleRecord& record, FileLink offset)>;
  void Walk(FileLink first, const Use& use, FileHandle handle = kNoHandle);

  // The rule for the first recorded mileage, applied when a vehicle is saved.
  static void FollowFirstMileage(VehicleRecord& record);

 private:
  using Step = std::function<void(SharedFile& file)>;
  bool InHeldFile(Access access, const Step& step);
  void Follow(FileLink offset, const VehicleRecord& record);

  Environment& environment_;
  ui::Desktop& desktop_;
  modSystem& system_;
  RecordArray<VehicleRecord> vehicles_;
  std::int32_t count_ = -1;
};

}  // namespace lantos
