#include "start/DataDirectory.h"

#include "frame/FileCause.h"
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

void ProcessCommandLine(Environment& environment, ui::Desktop& desktop, const std::string& commandLine) {
  const std::string line = Trim(commandLine);
  if (!line.starts_with("/D=") && !line.starts_with("/d=")) return;
  StoreDataDir(environment, desktop, WithBackslash(line.substr(3)), "go on in the directory of before");
}

void StoreDataDir(Environment& environment, ui::Desktop& desktop, const std::string& directory,
                  std::string_view otherwise) {
  UserSettings& settings = environment.settings;
  while (!settings.Save(kMainApplication, kSettingsSection, kDataDirKey, StoredPathText(directory))) {
    const FileFailure& failure = settings.Failure();
    const std::string place = TextOfPath(settings.FileOf(kMainApplication));
    const std::string text = "The data directory '" + directory + "' could not be stored" +
                             (failure.unfit.empty() ? " in\r" : ".\r") + InWords(failure, place) +
                             "\r\rClick Retry to try again, or Cancel to " + std::string(otherwise) + ".";
    if (desktop.Ask(text, "Lantos", ui::Buttons::RetryCancel, ui::Icon::Exclamation) == ui::Answer::Cancel) return;
  }
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
