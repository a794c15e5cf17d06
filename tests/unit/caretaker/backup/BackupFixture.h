#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "caretaker/backup/Backup.h"
#include "caretaker/backup/BackupError.h"
#include "caretaker/backup/Restore.h"
#include "shopmaker/SampleShop.h"
#include "support/ScratchDirectory.h"

namespace lantos::test {

// Something happens whenever somebody waits.
class EventfulClock : public StandingClock {
 public:
  using StandingClock::StandingClock;
  void Wait(std::int64_t milliseconds) override {
    StandingClock::Wait(milliseconds);
    if (meanwhile) meanwhile();
  }
  std::function<void()> meanwhile;
};

inline void TellNobody(const BackupProgress&) {}

// A small shop in "shop", and room for backups beside it.
class BackupTest : public ::testing::Test {
 protected:
  BackupTest() {
    SampleOptions options;
    options.customers = options.vehicles = options.parts = options.estimates = 12;
    options.date = clock.Today();
    MakeSampleShop(shop, options, clock);
  }

  void Put(const std::string& name, const std::string& content) { place.Put("shop/" + name, content); }
  std::string Content(const std::string& name) const { return place.Content("shop/" + name); }
  BackupDone Backup(const TellBackup& tell = TellNobody) { return MakeBackup(shop, archive, clock, tell); }
  // Of files alone.
  static std::vector<std::string> Names(const std::filesystem::path& directory) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(directory)) {
      if (entry.is_regular_file()) names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  // What is said when it is refused; empty when it isn't.
  static std::string Refusal(const std::function<void()>& work) {
    try {
      work();
    } catch (const BackupError& error) {
      return error.Words();
    }
    return {};
  }

  EventfulClock clock{*ParseLocalTime("2003-09-30T08:15:00")};
  ScratchDirectory place;
  std::filesystem::path shop = place / "shop";
  std::filesystem::path archive = place / "shop.tar.zst";
  std::filesystem::path restored = place / "restored";
};

}  // namespace lantos::test
