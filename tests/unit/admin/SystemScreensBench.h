#pragma once

#include <string>

#include "admin/TestShop.h"
#include "records/Fixture.h"
#include "records/modSystem.h"

namespace lantos::test {

// A shop whose system record is put together by hand, with bytes of the main application between its fields.
struct SystemShop : TestShop {
  SystemShop() { Put(Record()); }

  static Image Record() {
    std::string bytes(1038, '\0');
    for (std::size_t i = 411; i < 699; ++i) bytes[i] = static_cast<char>(i);
    return Image()
        .Append(Filled(bytes))
        .Long(0, 501)
        .Long(4, 1001)
        .Long(12, 2001)
        .Long(24, 82500)
        .Long(28, 60000)
        .Long(32, 50000)
        .Long(36, 40000)
        .Long(40, 6500)
        .Text(44, "Miller's Garage")
        .Text(76, "12 Elm St")
        .Text(109, "Fresno")
        .Text(130, "CA")
        .Text(133, "93650")
        .Text(144, "937-555-2222")
        .Text(159, "937-555-3333")
        .Text(174, "31-1234567")
        .Text(195, "52-7654321")
        .Text(216, "LOCAL 4")
        .Long(237, 0)
        .Long(241, 250000)
        .Long(245, 400000)
        .Long(249, 600000)
        .Text(253, "HAVE A NICE DAY")
        .Text(332, "AND COME AGAIN")
        .Long(699, 25000)
        .Long(703, -100000)
        .Text(707, "SHOP SUPPLIES")
        .Text(786, "NET 30")
        .Text(865, "ARD 123456")
        .Text(905, "EDIT.EXE")
        .Long(985, 15000)
        .Text(990, "Since 1956")
        .Text(1033, "Y");
  }
  void Put(const Image& record) const { directory.Put("TQSYSTEM.DAT", record); }
  std::string Stored() const { return directory.Content("TQSYSTEM.DAT"); }

 private:
  static Image Filled(const std::string& bytes) {
    Image image(bytes.size());
    return image.Text(0, bytes);
  }
};

}  // namespace lantos::test
