#include "start/CommandLine.h"

#include "frame/Text.h"

namespace lantos {

namespace {

enum class Kind { Nothing, DataDirectory, OtherSwitch, Stranger };

Kind KindOf(const std::string& line) {
  if (line.empty()) return Kind::Nothing;
  if (line.starts_with("/D=") || line.starts_with("/d=")) return Kind::DataDirectory;
  return line.size() >= 3 && line[0] == '/' && line[2] == '=' ? Kind::OtherSwitch : Kind::Stranger;
}

std::string NotUnderstood(const std::string& line) { return "\"" + line + "\" on the command line is not understood."; }

}  // namespace

void TellWhatIsNotUnderstood(ui::Desktop& desktop, const std::string& commandLine) {
  const std::string line = Trim(commandLine);
  if (KindOf(line) != Kind::Stranger) return;
  const bool isPath = line.starts_with("/") || line.starts_with(".") || line.starts_with("~");
  desktop.Tell(NotUnderstood(line) + "\r\rThe data directory is given as /D=" + (isPath ? line : "DIRECTORY") +
                   "\r\rThe program goes on with the directory it worked in before.",
               "Lantos", ui::Icon::Exclamation);
}

void NoteUnknownSwitch(Shop& shop, const std::string& commandLine) {
  const std::string line = Trim(commandLine);
  if (KindOf(line) != Kind::OtherSwitch) return;
  const std::string text = NotUnderstood(line) + " The only switch is /D= and a directory.";
  shop.environment.log.Write(text);
  shop.desktop.ShowStatus(text);
}

}  // namespace lantos
