#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

#include "InventoryFixture.h"
#include "records/inventory/Mailbox.h"

namespace lantos::test {

// Readings fail as often as the test says.
class FailingMailbox : public Mailbox {
 public:
  using Mailbox::Mailbox;
  mutable int failures = 0;

 protected:
  void Read(const SharedFile& file, std::uint64_t offset, std::span<InventoryTag> records) const override {
    if (failures > 0) {
      --failures;
      throw FileError(FileErrorNumber::DeviceIo, "reading");
    }
    Mailbox::Read(file, offset, records);
  }
};

// A shop with parts, in which this copy's update file is AU9300.$$$. Time passes by waits alone.
class BroadcastTest : public InventoryTest {
 protected:
  BroadcastTest() {
    world.updateFileName = kMine;
    Put(kMine, "");
    world.log.Open();
  }

  static constexpr const char* kMine = "AU9300.$$$";
  static constexpr const char* kPeer = "AU9301.$$$";

  static InventoryTag TagWith(const PartImage& part, std::int32_t master) { return TagOf(TagImage(part, master)); }
  void PassSeconds(int seconds) { patience.MoveOn(seconds * 1000); }
  bool IsThere(std::string_view name) const { return std::filesystem::exists(PathOf(name)); }
};

}  // namespace lantos::test
