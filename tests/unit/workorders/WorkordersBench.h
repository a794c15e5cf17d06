#pragma once

#include "WorkorderBench.h"

namespace lantos::test {

inline constexpr std::string_view kFile = "W0004711.tqa";

// The files of work orders, on a desktop that answers by a script.
class WorkordersTest : public WorkorderBench {
 protected:
  WorkordersTest() { environment.log.Open(); }
  static std::string Crlf(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    return text;
  }
  void PutText(std::string_view name, const std::vector<std::string>& lines) const { Put(name, Crlf(lines)); }
  static std::vector<std::string> Short(const std::string& number, const std::string& part) {
    return {"[Workorder]", "WorkorderNumber=" + number, "Status=OPEN", "", "[Parts]", part, "", "[Check List]", ""};
  }
  void MakeTag(std::string_view fileName) { workorders.CurrentActiveTag.Put(wotag::FileName, fileName); }
  const Workorder& Current() const { return workorders.Current; }

  Workorders workorders{environment, desktop, records};
};

}  // namespace lantos::test
