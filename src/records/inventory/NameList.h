#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/Environment.h"

namespace lantos {

// Departments (TQDEPART.DAT) and manufacturers (TQMANUFA.DAT): a text of one line, a column of kNameColumn characters
// for each name. Errors of the file surface as FileError.
class NameList {
 public:
  NameList(Environment& environment, std::string_view file) : environment_(environment), file_(file) {}

  void Load();
  const std::vector<std::string>& Names() const { return names_; }
  // At the end; the whole line is rewritten at once, under an exclusive open.
  void Add(std::string_view name);

 private:
  Environment& environment_;
  std::string_view file_;
  std::vector<std::string> names_;
};

}  // namespace lantos
