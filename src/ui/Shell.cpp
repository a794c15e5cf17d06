#include "ui/Shell.h"

#include "frame/Text.h"

namespace lantos::ui {

namespace {

struct ShellResult {
  int code;
  const char* message;
};
constexpr ShellResult kShellResults[] = {
    {0, "Memory Error"},        {2, "File not found"},
    {3, "Path not found"},      {5, "Access Denied"},
    {8, "Out of Memory"},       {11, "Bad Executeable Format"},
    {26, "Sharing violation"},  {27, "Association incomplete"},
    {28, "DEE time out"},       {29, "DDE failed"},
    {30, "DDE Busy error"},     {31, "No association for this file"},
};
constexpr int kFirstGoodShellResult = 33;
constexpr int kFirstGoodRunResult = 32;

const char* MessageOf(int code) {
  for (const ShellResult& result : kShellResults) {
    if (result.code == code) return result.message;
  }
  return "Unknown Error!, Please try again...";
}

}  // namespace

void ShellOpen(Desktop& desktop, const std::string& path) {
  const int code = desktop.OpenDocument(path, "");
  if (code < kFirstGoodShellResult) desktop.Tell(MessageOf(code), path, Icon::Exclamation);
}

int RunShell(Desktop& desktop, const std::string& commandLine, const std::string& arguments) {
  const std::string line = Trim(commandLine);
  if (line.starts_with('"')) return desktop.OpenDocument(line.substr(1, line.find('"', 1) - 1), arguments);
  const std::size_t blank = line.find(' ');
  const std::string rest = blank == std::string::npos ? "" : Trim(line.substr(blank));
  return desktop.OpenDocument(line.substr(0, blank), Trim(rest + " " + arguments));
}

void ShowHelpFile(Desktop& desktop, const FileIO& files, std::string directory, const std::string& name) {
  if (directory.empty()) directory = files.DataDir();
  if (!directory.ends_with('\\') && !directory.ends_with('/')) directory += '\\';
  const std::string path = PlatformPath(directory + name).string();
  if (RunShell(desktop, "\"" + path + "\"", "") < kFirstGoodRunResult) {
    desktop.Tell("Could not locate " + path, "Missing help file");
  }
}

}  // namespace lantos::ui
