#include "start/DataDirectory.h"

#include "frame/PathText.h"
#include "frame/Text.h"
#include "start/frmEnterDir.h"

namespace lantos {

namespace {

constexpr std::string_view kDataDirKey = "DataDir";
constexpr std::string_view kDatabaseFile = "Lantos.mdb";

std::string WithBackslash(std::string text) {
  if (!text.ends_with('\\')) text += '\\';
  return text;
}

void TellMustBeSpecified(ui::Desktop& desktop) {
  desktop.Tell("Data directory must be specified!", "Fatal Error", ui::Icon::Critical);
}

// The person's answer, already stored with its final "/"; empty when there is none.
std::string AskForDirectory(Environment& environment, ui::Desktop& desktop) {
  frmEnterDir form(desktop, environment);
  form.ShowModal();
  form.Unload();
  return form.answer;
}

}  // namespace

void ProcessCommandLine(Environment& environment, const std::string& commandLine) {
  const std::string line = Trim(commandLine);
  if (!line.starts_with("/D=") && !line.starts_with("/d=")) return;
  StoreDataDir(environment, WithBackslash(line.substr(3)));
}

void StoreDataDir(Environment& environment, const std::string& directory) {
  environment.settings.Save(kMainApplication, kSettingsSection, kDataDirKey, StoredPathText(directory));
}

std::string StoredDataDir(const Environment& environment) {
  std::string directory = TextOfPlatform(environment.settings.Get(kMainApplication, kSettingsSection, kDataDirKey));
  if (directory.ends_with('/')) directory.back() = '\\';
  return directory;
}

bool ResolveDataDir(Environment& environment, ui::Desktop& desktop) {
  FileIO& files = environment.files;
  std::string directory = StoredDataDir(environment);
  if (directory.empty()) {
    directory = AskForDirectory(environment, desktop);
    if (directory.empty()) {
      TellMustBeSpecified(desktop);
    } else {
      directory = WithBackslash(directory);
    }
  }
  for (;;) {
    files.SetDataDir(directory);
    if (files.FileExists(kDatabaseFile)) return true;
    const ui::Answer answer =
        desktop.Ask("No scheduler files in data directory '" + directory + "'!\r\rChange directory?", "Error",
                    ui::Buttons::YesNoCancel, ui::Icon::Question);
    if (answer == ui::Answer::Cancel) return false;
    if (answer == ui::Answer::No) continue;
    const std::string entered = AskForDirectory(environment, desktop);
    if (entered.empty()) {
      TellMustBeSpecified(desktop);
      return false;
    }
    directory = WithBackslash(entered);
  }
}

}  // namespace lantos
