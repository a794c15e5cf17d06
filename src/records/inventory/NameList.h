#pragma once

#include <cstddef>
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
  // At the end, behind the names that other copies have added meanwhile; the whole line is rewritten, under the one
  // open that it was read anew under. The place of the name. A file that is held is waited for, two seconds.
  std::size_t Add(std::string_view name);

 private:
  // The names, which keep their places, and behind them those of the file that aren't among them.
  std::vector<std::string> Together(const std::vector<std::string>& onFile) const;

  Environment& environment_;
  std::string_view file_;
  std::vector<std::string> names_;
};

}  // namespace lantos
