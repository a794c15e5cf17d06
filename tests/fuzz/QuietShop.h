#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

#include "shop/Records.h"
#include "support/ScratchDirectory.h"
#include "support/StandInDesktop.h"

namespace lantos::fuzz {

using test::ProcessEnded;

// Waits take no time.
class HastyClock : public StandingClock {
 public:
  HastyClock() : StandingClock(LocalTime{37894, 8 * 3'600'000}) {}
  void Wait(std::int64_t milliseconds) override { MoveOn(milliseconds); }
};

// A person who gives up at every question.
class QuietDesktop : public test::StandInDesktop {
 public:
  QuietDesktop() : StandInDesktop(Memory::Forgets) {}

 protected:
  ui::Answer AnswerTo(const ui::Box& box) override {
    switch (box.buttons) {
      case ui::Buttons::Ok:
        return ui::Answer::Ok;
      case ui::Buttons::YesNo:
        return ui::Answer::No;
      default:
        return ui::Answer::Cancel;
    }
  }
  void Use(ui::Form&) override {}
  void ChooseFrom(ui::MenuItem&) override {}
  void Failed(const std::string&) override {}
};

// In memory where there is such a place: the program flushes what it writes, which takes its time on a disk.
inline std::filesystem::path FastDirectory() {
  const bool memory = std::getenv("TMPDIR") == nullptr && ::access("/dev/shm", W_OK) == 0;
  return memory ? "/dev/shm" : std::filesystem::temp_directory_path();
}

// A data directory whose files can be given any content, gone at the end.
class QuietShop {
 public:
  QuietShop() { environment.files.SetDataDir(directory_.DataDir()); }

  void Put(std::string_view name, std::string_view content) {
    const int descriptor = ::open((directory_.Path() / name).c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    const bool written =
        descriptor >= 0 && ::write(descriptor, content.data(), content.size()) == static_cast<ssize_t>(content.size());
    ::close(descriptor);
    if (!written) throw std::runtime_error("can't write " + std::string(name));
  }
  std::string Content(std::string_view name) const {
    const SharedFile file(directory_.Path() / name, Access::Read, Deny::None, Absent::Fail);
    std::string content(static_cast<std::size_t>(file.Length()), '\0');
    file.ReadAt(0, std::as_writable_bytes(std::span(content)));
    return content;
  }

 private:
  test::ScratchDirectory directory_{FastDirectory()};

 public:
  HastyClock clock;
  UserSettings settings{directory_.Path()};
  Environment environment{clock, settings};
  QuietDesktop desktop;
};

}  // namespace lantos::fuzz
