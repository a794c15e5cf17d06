#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace lantos::ui {

// The windows of all running copies of this user on this computer, found by their captions. Each registry stands for
// one running copy and owns one entry file in a directory that only the user can enter; a lock on it, held for life,
// tells the living from the dead. Several can live in one process.
//
// Without a usable directory nothing fails: only the own windows are found then.
class WindowRegistry {
 public:
  // A copy started under another computer's name stands for another workstation: its windows aren't seen.
  explicit WindowRegistry(std::string computerName) : WindowRegistry(RuntimeDirectory(), std::move(computerName)) {}
  WindowRegistry(std::filesystem::path directory, std::string computerName);
  ~WindowRegistry();
  WindowRegistry(const WindowRegistry&) = delete;
  WindowRegistry& operator=(const WindowRegistry&) = delete;

  // All top-level windows of this copy, hidden ones too, in the program's page.
  void SetCaptions(const std::vector<std::string>& captions);

  // Whether a window's caption contains the pattern, without regard to case. Only the first 255 characters of a
  // caption count. An empty pattern finds nothing. The own windows count as well.
  bool Find(std::string_view pattern) const;
  // The same, and asks the copy that owns the first such window to bring it up.
  bool Activate(std::string_view pattern);
  // Captions of own windows that somebody wants brought up, since the last call.
  std::vector<std::string> TakeRaiseRequests();

  // $XDG_RUNTIME_DIR/lantos, else /tmp/lantos-<user number>.
  static std::filesystem::path RuntimeDirectory();

 private:
  struct Hit {
    std::filesystem::path entry;
    std::string caption;
  };
  void OpenEntry();
  bool FindHit(std::string_view pattern, Hit& hit) const;
  bool FindInEntry(const std::filesystem::path& entry, std::string_view pattern, Hit& hit) const;

  std::filesystem::path directory_;
  std::string computerName_;
  std::filesystem::path entry_;  // empty when there is none
  int descriptor_ = -1;
  std::vector<std::string> captions_;
  std::vector<std::string> ownRequests_;
};

}  // namespace lantos::ui
