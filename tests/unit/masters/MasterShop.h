#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "admin/TestShop.h"
#include "masters/customers/MasterScreens.h"
#include "records/Customers.h"
#include "records/Fixture.h"
#include "records/modSystem.h"
#include "ui/Controls.h"

namespace lantos::test {

using ui::Answer;

using RawRecord = Image;

inline std::string TextAt(const std::string& bytes, std::size_t offset, std::size_t width) {
  return bytes.substr(offset, width).c_str();
}
// A text field's bytes: the text, then NULs.
inline std::string Padded(const std::string& text, std::size_t width) {
  return text + std::string(width - text.size(), '\0');
}
// The offsets at which two files of one length differ.
inline std::vector<std::size_t> Differences(const std::string& before, const std::string& after) {
  EXPECT_EQ(before.size(), after.size());
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i) {
    if (before[i] != after[i]) places.push_back(i);
  }
  return places;
}

// A customer in the two files.
struct RawCustomer {
  int number;
  std::string last;
  std::string first;
  std::string spouseLast = "";
  std::string spouse = "";
  std::string home = "";
  std::string work = "";
  std::string other = "";
  std::int32_t vLink = -1;

  std::string Tag(std::int32_t offset) const {
    return RawRecord(96)
        .Long(0, number)
        .Text(4, (last + "," + first).substr(0, 32))
        .Text(36, (spouseLast + "," + spouse).substr(0, 32))
        .Long(68, offset)
        .Text(72, home)
        .Bytes();
  }
  std::string Master() const {
    return RawRecord(317)
        .Long(0, number)
        .Text(4, last)
        .Text(25, first)
        .Text(46, spouse)
        .Text(67, spouseLast)
        .Text(88, "1 Main St")
        .Text(156, home)
        .Text(171, work)
        .Text(192, other)
        .Integer(207, 2)
        .Long(209, 731868)
        .Text(281, "KIM JONES")
        .Long(313, vLink)
        .Bytes();
  }
};

struct RawVehicle {
  int owner;
  std::string year;
  std::string make;
  std::string model;
  std::string license = "";
  std::string vin = "";
  std::int32_t mileage = 1000;
  std::int32_t vLink = -1;
  std::int32_t deleted = -1;

  std::string Bytes() const {
    return RawRecord(397)
        .Long(0, owner)
        .Long(4, deleted)
        .Text(8, make)
        .Text(29, model)
        .Text(50, year)
        .Text(82, vin)
        .Text(103, license)
        .Long(377, mileage)
        .Long(381, 731868)
        .Long(385, mileage)
        .Long(389, 731868)
        .Long(393, vLink)
        .Bytes();
  }
};

// A shop's directory with hand-made files, and the screens on it. Today is 30 September 2003.
class MasterShop : public ::testing::Test, protected TestShop {
 protected:
  MasterShop() {
    directory.Put("TQSYSTEM.DAT", RawRecord(1038).Long(12, 1001).Text(109, "Fresno").Text(130, "CA").Bytes());
    PutEmployees({{7, "KIM JONES", -1}, {3, "LEE WEST", -1}, {9, "PAT OLD", 731000}});
    directory.Put("TQCSTTAG.DAT", "");
    directory.Put("TQCSTDAT.DAT", "");
    directory.Put("TQVEHICL.DAT", "");
    directory.Put("TQMAKMOD.DAT", "");
    records.system.ReadSystem();
  }

  struct RawEmployee {
    int number;
    std::string name;
    std::int32_t terminated;
  };
  void PutEmployees(const std::vector<RawEmployee>& employees) const {
    std::string bytes;
    for (const RawEmployee& each : employees) {
      bytes += RawRecord(199).Long(0, each.number).Text(4, each.name).Long(134, -1).Long(138, each.terminated).Bytes();
    }
    directory.Put("TQEMPLOY.DAT", bytes);
  }
  void PutCustomers(const std::vector<RawCustomer>& customers) const {
    std::string tags;
    std::string masters;
    for (const RawCustomer& each : customers) {
      tags += each.Tag(static_cast<std::int32_t>(masters.size()));
      masters += each.Master();
    }
    directory.Put("TQCSTTAG.DAT", tags);
    directory.Put("TQCSTDAT.DAT", masters);
  }
  void PutVehicles(const std::vector<RawVehicle>& vehicles) const {
    std::string bytes;
    for (const RawVehicle& each : vehicles) bytes += each.Bytes();
    directory.Put("TQVEHICL.DAT", bytes);
  }
  void MakeCustomerCurrent(std::int32_t number) {
    if (records.customers.Count() == 0) records.customers.LoadCustomerTags();
    ASSERT_NE(records.customers.FindCustomerTag(number), records.customers.Count());
    ASSERT_TRUE(records.customers.ReadCustomer());
  }
  std::string Setting(const std::string& key) const { return settings.Get(key, "?"); }

  MasterScreens screens{shop};
};

// What a person does on a form.
template <class Screen>
Screen& As(ui::Form& form) {
  return dynamic_cast<Screen&>(form);
}

}  // namespace lantos::test
