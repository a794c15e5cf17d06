#include <fmt/format.h>

#include <algorithm>

#include "frame/Dates.h"
#include "records/modEmployees.h"
#include "records/modSystem.h"
#include "shopmaker/Random.h"
#include "shopmaker/SampleSteps.h"
#include "shopmaker/SampleWords.h"

namespace lantos::sample {

namespace {

constexpr std::uint8_t kPaidByTheHour = 1;

constexpr std::size_t kWriters = 2;
constexpr std::size_t kMostTechnicians = 60;

EmployeeRecord ImagineEmployee(Random& random, std::int32_t number, std::string_view trade,
                               const SampleOptions& options) {
  const Town& town = random.Pick(kTowns);
  const std::string_view firstname = random.Pick(kFirstnames);
  const std::int32_t house = random.Between(10, 9899);
  EmployeeRecord record;
  record.Put(employee::EmpNumber, number);
  record.Put(employee::Name, fmt::format("{} {}", firstname, random.Pick(kLastnames)));
  record.Put(employee::SocSecNum, fmt::format("000-00-{:04}", random.Below(10000)));
  record.Put(employee::EmpAddr, fmt::format("{} {}", house, random.Pick(kStreets)));
  record.Put(employee::EmpCity, town.city);
  record.Put(employee::EmpState, town.state);
  record.Put(employee::EmpZip, town.zip);
  record.Put(employee::EmpPhone, fmt::format("{}-555-{:04}", town.areaCode, random.Below(10000)));
  record.Put(employee::DateHired, ToFileDate(options.date - random.Between(200, 4000)));
  record.Put(employee::DateTerminated, -1);
  record.Put(employee::MaritalStatus, random.Chance(50) ? 1 : 0);
  record.Put(employee::NumExemptions, static_cast<std::uint8_t>(random.Between(1, 4)));
  record.Put(employee::Wage, (trade == "writer" ? 1800 : 2200) + 25 * random.Below(30));
  record.Put(employee::WagePeriod, kPaidByTheHour);
  record.Put(employee::PayrollHead, kNoLink);
  return record;
}

}  // namespace

// The writers come first, then the technicians; the last one has left the shop.
void ImagineStaff(SampleShop& shop, const SampleOptions& options) {
  Random random(options.seed, kStaffStream);
  const auto mechanics = static_cast<std::size_t>(shop.standardHours[1] / 8);
  const std::size_t technicians = std::min(std::max<std::size_t>(mechanics, 2), kMostTechnicians);
  std::int32_t number = 1;
  for (std::size_t i = 0; i < kWriters; ++i) {
    shop.employees.push_back(ImagineEmployee(random, number++, "writer", options));
  }
  for (std::size_t i = 0; i < technicians; ++i) {
    shop.technicians.push_back(number);
    shop.employees.push_back(ImagineEmployee(random, number++, "technician", options));
  }
  EmployeeRecord gone = ImagineEmployee(random, number++, "technician", options);
  gone.Put(employee::DateTerminated, ToFileDate(options.date - random.Between(30, 190)));
  shop.employees.push_back(gone);
  shop.system.Put(sysrec::last_employee_number, number);
}

}  // namespace lantos::sample
