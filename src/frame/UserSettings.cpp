#include "frame/UserSettings.h"

#include <cmath>
#include <cstdlib>
#include <limits>
#include <stdexcept>

#include "frame/PathText.h"
#include "frame/ProfileFile.h"
#include "frame/Text.h"

namespace lantos {

namespace {

// The platform's word for what went wrong, with the key it went wrong at.
template <class Convert>
auto ReadAs(std::string_view key, const std::string& text, Convert convert) {
  try {
    return convert(text);
  } catch (const std::invalid_argument& error) {
    throw std::invalid_argument("Setting " + std::string(key) + ": " + error.what());
  }
}

}  // namespace

std::filesystem::path UserSettings::PlatformDirectory() {
  const char* configured = std::getenv("XDG_CONFIG_HOME");
  if (configured != nullptr && configured[0] == '/') return std::filesystem::path(configured) / "lantos";
  const char* home = std::getenv("HOME");
  return std::filesystem::path(home != nullptr && home[0] == '/' ? home : "/tmp") / ".config" / "lantos";
}

std::filesystem::path UserSettings::FileOf(std::string_view application) const {
  return directory_ / (std::string(application) + ".conf");
}

std::string UserSettings::Get(std::string_view application, std::string_view section, std::string_view key,
                              std::string_view defaultValue) const {
  return ProfileFile(FileOf(application), nullptr, Links::Followed).Get(section, key, defaultValue);
}

bool UserSettings::Save(std::string_view application, std::string_view section, std::string_view key,
                        std::string_view value) {
  std::error_code noDirectory;
  std::filesystem::create_directories(directory_, noDirectory);
  const std::filesystem::path file = FileOf(application);
  ProfileFile profile(file, nullptr, Links::Followed);
  if (profile.Put(section, key, value)) return true;
  failure_ = noDirectory ? FileFailure(NumberOfErrno(noDirectory.value())) : profile.Failure();
  if (!logFailure) return false;
  logFailure("Setting " + std::string(key) + " could not be saved in " + TextOfPath(file) +
             (noDirectory ? ": " + noDirectory.message() : ""));
  return false;
}

std::string UserSettings::Get(std::string_view key, std::string_view defaultValue) const {
  return Get(kOwnApplication, kSettingsSection, key, defaultValue);
}

bool UserSettings::Save(std::string_view key, std::string_view value) {
  return Save(kOwnApplication, kSettingsSection, key, value);
}

double UserSettings::GetNumber(std::string_view key, double defaultValue) const {
  const std::string text = Get(key);
  if (text.empty()) return defaultValue;
  const double value = ReadAs(key, text, ToNumber);
  if (std::fabs(value) > std::numeric_limits<float>::max()) {
    throw std::invalid_argument("Setting " + std::string(key) + ": Overflow: " + text);
  }
  return value;
}

bool UserSettings::GetBoolean(std::string_view key, bool defaultValue) const {
  return GetBoolean(kOwnApplication, kSettingsSection, key, defaultValue);
}

bool UserSettings::GetBoolean(std::string_view application, std::string_view section, std::string_view key,
                              bool defaultValue) const {
  const std::string text = Get(application, section, key);
  return text.empty() ? defaultValue : ReadAs(key, text, ToBoolean);
}

}  // namespace lantos
