#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/Environment.h"
#include "ui/Desktop.h"

namespace lantos {

// Whether what is on the screen shall take the place of what somebody else has stored since it was read; what names it.
bool WantsToOverwrite(ui::Desktop& desktop, const std::string& what, const std::string& title);

// A file of lines that a screen reads at its opening and writes as a whole, while others may do the same.
class EditedLines {
 public:
  EditedLines(Environment& environment, std::string_view name) : environment_(environment), name_(name) {}

  // No file is no line. FileError when it can't be read.
  const std::vector<std::string>& Read();
  // What was read last.
  const std::vector<std::string>& Lines() const { return lines_; }
  // The whole file. Asks first when it isn't as it was read; nobody's file is held while the person thinks. False when
  // what is stored is kept: it is read then. FileError when it can't be written.
  bool Store(ui::Desktop& desktop, const std::string& title, const std::vector<std::string>& lines);

 private:
  bool StoreUnlessChanged(const std::vector<std::string>& lines);

  Environment& environment_;
  std::string name_;
  std::vector<std::string> lines_;
};

}  // namespace lantos
