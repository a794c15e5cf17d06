#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

#include "shop/Records.h"
#include "ui/Desktop.h"

namespace lantos::fuzz {

// The program ended its process.
struct ProcessEnded {};

// Waits take no time.
class HastyClock : public Clock {
 public:
  LocalTime Now() const override { return now_; }
  void Wait(std::int64_t milliseconds) override { now_ = now_.PlusMilliseconds(milliseconds); }

 private:
  LocalTime now_{37894, 8 * 3'600'000};
};

// A person who gives up at every question.
class QuietDesktop : public ui::Desktop {
 public:
  ui::Answer Show(const ui::Box& box) override {
    switch (box.buttons) {
      case ui::Buttons::Ok:
        return ui::Answer::Ok;
      case ui::Buttons::YesNo:
        return ui::Answer::No;
      default:
        return ui::Answer::Cancel;
    }
  }
  void PopupMenu(ui::Form&, ui::MenuItem&) override {}
  void Beep() override {}
  void SetPointer(ui::Pointer) override {}
  void ShowStatus(std::string_view) override {}
  int OpenDocument(const std::string&, const std::string&) override { return 2; }
  void PrintScreen(ui::Form&) override {}
  void PreviewReport(const ui::Report&, ui::ControlPlace&) override {}
  void PrintReport(const ui::Report&, bool) override {}
  bool FindWindowByTitle(std::string_view, bool) override { return false; }
  int TextWidth(const ui::Control&, std::string_view text) override { return static_cast<int>(text.size()); }
  void ReportFailure(const std::string&) override {}
  [[noreturn]] void EndProcess(int) override { throw ProcessEnded(); }
  void RunModal(ui::Form&) override {}
  void RunUntilUnloaded(ui::Form&) override {}
};

// In memory where there is such a place: the program flushes what it writes, which takes its time on a disk.
inline std::filesystem::path FastDirectory() {
  const bool memory = std::getenv("TMPDIR") == nullptr && ::access("/dev/shm", W_OK) == 0;
  return memory ? "/dev/shm" : std::filesystem::temp_directory_path();
}

// A data directory whose files can be given any content, gone at the end.
class QuietShop {
 public:
  QuietShop() : directory_(NewDirectory()) { environment.files.SetDataDir(directory_.string() + "\\"); }
  ~QuietShop() {
    std::error_code ignored;
    std::filesystem::remove_all(directory_, ignored);
  }
  QuietShop(const QuietShop&) = delete;

  void Put(std::string_view name, std::string_view content) {
    const int descriptor = ::open((directory_ / name).c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    const bool written =
        descriptor >= 0 && ::write(descriptor, content.data(), content.size()) == static_cast<ssize_t>(content.size());
    ::close(descriptor);
    if (!written) throw std::runtime_error("can't write " + std::string(name));
  }
  std::string Content(std::string_view name) const {
    const SharedFile file(directory_ / name, Access::Read, Deny::None, Absent::Fail);
    std::string content(static_cast<std::size_t>(file.Length()), '\0');
    file.ReadAt(0, std::as_writable_bytes(std::span(content)));
    return content;
  }

 private:
  static std::filesystem::path NewDirectory() {
    std::string name = (FastDirectory() / "lantos-quiet-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no directory " + name);
    return name;
  }

  std::filesystem::path directory_;

 public:
  HastyClock clock;
  UserSettings settings{directory_};
  Environment environment{clock, settings};
  QuietDesktop desktop;
};

}  // namespace lantos::fuzz
