#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "frame/FileCause.h"

namespace lantos {

// The per-user settings store: one file an application name, under the user's configuration directory. Values are
// read from the file at each Get, so that another running copy's change is seen. Keys and sections are found without
// regard to case. A file that can't be written loses the value: the caller is told, and the log.
class UserSettings {
 public:
  explicit UserSettings(std::filesystem::path directory) : directory_(std::move(directory)) {}
  // XDG_CONFIG_HOME/lantos, or ~/.config/lantos.
  static std::filesystem::path PlatformDirectory();

  std::string Get(std::string_view application, std::string_view section, std::string_view key,
                  std::string_view defaultValue = "") const;
  // False when it could not be saved.
  bool Save(std::string_view application, std::string_view section, std::string_view key, std::string_view value);
  // A text that is neither boolean nor number throws std::invalid_argument.
  bool GetBoolean(std::string_view application, std::string_view section, std::string_view key,
                  bool defaultValue) const;

  // The same for the program's own application and section.
  std::string Get(std::string_view key, std::string_view defaultValue = "") const;
  bool Save(std::string_view key, std::string_view value);
  // A text that is no number, or one beyond single precision, throws std::invalid_argument.
  double GetNumber(std::string_view key, double defaultValue) const;
  bool GetBoolean(std::string_view key, bool defaultValue) const;

  const std::filesystem::path& Directory() const { return directory_; }
  // Where an application's values lie, and why the last one that could not be saved was not.
  std::filesystem::path FileOf(std::string_view application) const;
  const FileFailure& Failure() const { return failure_; }
  // Hears of a value that could not be saved.
  std::function<void(const std::string& text)> logFailure;

 private:
  std::filesystem::path directory_;
  FileFailure failure_;
};

inline constexpr std::string_view kOwnApplication = "Lantos";
inline constexpr std::string_view kMainApplication = "Korvel";
inline constexpr std::string_view kSettingsSection = "Settings";

}  // namespace lantos
