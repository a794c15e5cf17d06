#include "records/EditedLines.h"

#include "records/OpenedFile.h"
#include "records/TextLines.h"

namespace lantos {

bool WantsToOverwrite(ui::Desktop& desktop, const std::string& what, const std::string& title) {
  return desktop.Ask("Somebody else has changed " + what +
                         " meanwhile.\r\rDo you want to store yours in its place?\rNo keeps what is stored, and "
                         "shows it here.",
                     title, ui::Buttons::YesNo, ui::Icon::Question) == ui::Answer::Yes;
}

const std::vector<std::string>& EditedLines::Read() {
  return lines_ = ReadTextLines(environment_, name_).value_or(std::vector<std::string>());
}

bool EditedLines::Store(ui::Desktop& desktop, const std::string& title, const std::vector<std::string>& lines) {
  while (!StoreUnlessChanged(lines)) {
    if (!WantsToOverwrite(desktop, "this list (" + name_ + ")", title)) return false;
  }
  return true;
}

bool EditedLines::StoreUnlessChanged(const std::vector<std::string>& lines) {
  OpenedFile file(environment_.openFiles, name_, Access::ReadWrite, Deny::All);
  std::vector<std::string> onFile = TextLinesIn(environment_, *file, name_);
  const bool isAsRead = onFile == lines_;
  if (isAsRead) PutTextLines(*file, lines);
  if (isAsRead) {
    lines_ = lines;
  } else {
    lines_ = std::move(onFile);
  }
  return isAsRead;
}

}  // namespace lantos
