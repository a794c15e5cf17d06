#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "TestDesktop.h"
#include "frame/ScratchDirectory.h"
#include "masters/customers/MasterScreens.h"
#include "records/Customers.h"
#include "records/modSystem.h"
#include "shop/Shop.h"
#include "ui/Controls.h"

namespace lantos::test {

using ui::Answer;

// A record as it lies in a file, made by hand and not by the program's writers.
class RawRecord {
 public:
  explicit RawRecord(std::size_t length) : bytes_(length, '\0') {}
  RawRecord& Long(std::size_t offset, std::int32_t value) {
    for (std::size_t i = 0; i < 4; ++i)
      bytes_[offset + i] = static_cast<char>(static_cast<std::uint32_t>(value) >> (8 * i));
    return *this;
  }
  RawRecord& Short(std::size_t offset, int value) {
    bytes_[offset] = static_cast<char>(value & 0xff);
    bytes_[offset + 1] = static_cast<char>(value >> 8);
    return *this;
  }
  RawRecord& Text(std::size_t offset, const std::string& text) {
    bytes_.replace(offset, text.size(), text);
    return *this;
  }
  const std::string& Bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

inline std::int32_t LongAt(const std::string& bytes, std::size_t offset) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    value |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes.at(offset + i))) << (8 * i);
  }
  return static_cast<std::int32_t>(value);
}
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
        .Short(207, 2)
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
class MasterShop : public ::testing::Test {
 protected:
  MasterShop() {
    environment.files.SetDataDir(directory.DataDir());
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

  ScratchDirectory directory;
  StandingClock clock{{37894, 29700000}};
  UserSettings settings{directory.Path() / "settings"};
  Environment environment{clock, settings};
  TestDesktop desktop;
  Records records{environment, desktop};
  ui::GlobalKeys keys{desktop};
  Shop shop{desktop, environment, records, keys};
  MasterScreens screens{shop};
};

// What a person does on a form.
template <class Screen>
Screen& As(ui::Form& form) {
  return dynamic_cast<Screen&>(form);
}
inline void Press(ui::Form& form, const std::string& key) { form.PressKey(ui::ParseKey(key)); }

}  // namespace lantos::test
