#pragma once

#include <string>
#include <vector>

#include "board/DayCapacityDatabase.h"
#include "start/Program.h"

namespace lantos::test {

// Notes when windows come and go.
class WatchfulDesktop : public TestDesktop {
 public:
  std::function<void(ui::Form&)> onShown;
  std::vector<std::string> events;  // "shown frmSplash", "unloaded frmSplash"

  void FormShown(ui::Form& form) override {
    events.push_back("shown " + form.Name());
    if (onShown) onShown(form);
  }
  void FormUnloaded(ui::Form& form) override { events.push_back("unloaded " + form.Name()); }
};

// The files of a shop as they lie there before a start, and what a run is given of the world.
struct InstalledShop {
  InstalledShop() {
    std::filesystem::copy_file(EmptyDatabase(), data / "Lantos.mdb");
    std::string system(1038, '\0');
    system.replace(44, 15, "Miller's Garage");
    data.Put("TQSYSTEM.DAT", system);
    StoreDataDir(data.DataDir());
  }

  void StoreDataDir(const std::string& text) { settings.Save("Korvel", "Settings", "DataDir", text); }
  std::string StoredDataDir() const { return settings.Get("Korvel", "Settings", "DataDir"); }
  std::string Setting(std::string_view key) const { return settings.Get("Lantos", "Settings", key, "(none)"); }
  bool Has(const std::string& name) const { return std::filesystem::exists(data / name); }
  // Messages of a log, without their times.
  std::string Log(const std::string& name) const {
    std::string messages;
    const std::string text = data.Content(name);
    for (std::size_t at = 0; at < text.size(); at = text.find("\r\n", at) + 2) {
      messages += text.substr(at + 20, text.find("\r\n", at) - at - 20) + "\n";
    }
    return messages;
  }

  // A whole run; the person's part of it stands in the desktop's script.
  int Run(const std::string& commandLine = "") {
    return Program(desktop, clock, settings, Invocation{commandLine, computer}).Run();
  }

  ScratchDirectory data;
  ScratchDirectory store;
  StandingClock clock{LocalTime{ToSerial(kToday), (8 * 60 + 15) * 60 * 1000}};
  UserSettings settings{store.Path()};
  WatchfulDesktop desktop;
  std::string computer = "BENCH1";
};

}  // namespace lantos::test
