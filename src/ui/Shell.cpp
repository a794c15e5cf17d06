#include "ui/Shell.h"

#include "frame/Installation.h"
#include "frame/PathText.h"
#include "ui/Documents.h"

namespace lantos::ui {

namespace {

struct ShellResult {
  int code;
  const char* message;
};
constexpr ShellResult kShellResults[] = {
    {0, "Memory Error"},       {2, "File not found"},          {3, "Path not found"},
    {5, "Access Denied"},      {8, "Out of Memory"},           {11, "Bad Executeable Format"},
    {26, "Sharing violation"}, {27, "Association incomplete"}, {28, "DEE time out"},
    {29, "DDE failed"},        {30, "DDE Busy error"},         {31, "No association for this file"},
};
constexpr int kFirstGoodShellResult = 33;
constexpr int kFirstGoodHelpResult = 32;

const char* MessageOf(int code) {
  for (const ShellResult& result : kShellResults) {
    if (result.code == code) return result.message;
  }
  return "Unknown Error!, Please try again...";
}

bool OpenInstalled(Desktop& desktop, const std::string& name) {
  const std::string installed = TextOfPath(InstalledFolder("guide") / name);
  return LookAtDocument(installed) == kOpened && desktop.OpenDocument(installed) >= kFirstGoodHelpResult;
}

}  // namespace

void ShellOpen(Desktop& desktop, const std::string& path) {
  const int code = desktop.OpenDocument(path);
  if (code < kFirstGoodShellResult) desktop.Tell(MessageOf(code), path, Icon::Exclamation);
}

void ShowHelpFile(Desktop& desktop, const FileIO& files, std::string directory, const std::string& name) {
  const bool inDataDir = directory.empty() || directory == files.DataDir();
  if (directory.empty()) directory = files.DataDir();
  if (!directory.ends_with('\\') && !directory.ends_with('/')) directory += '\\';
  const std::string path = directory + name;
  // Names in the data directory are found in any case.
  const std::string found = inDataDir ? TextOfPath(files.PathOf(name)) : path;
  if (desktop.OpenDocument(found) >= kFirstGoodHelpResult) return;
  if (const std::string why = WhyNotOpened(found); !why.empty()) {
    desktop.Tell(path + why + ", so it isn't opened.", "Help file");
  } else if (!inDataDir || !OpenInstalled(desktop, name)) {
    desktop.Tell("Could not locate " + path, "Missing help file");
  }
}

}  // namespace lantos::ui
