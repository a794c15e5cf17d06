#include "caretaker/check/Finding.h"

namespace lantos {

std::string LineOf(const Finding& finding) {
  std::string line = finding.file;
  for (const std::string* part : {&finding.record, &finding.field}) {
    if (!part->empty()) line += ", " + *part;
  }
  return line + ": " + finding.words + ".";
}

bool IsSame(const Finding& one, const Finding& other) {
  return one.kind == other.kind && one.file == other.file && one.record == other.record && one.field == other.field &&
         one.words == other.words;
}

}  // namespace lantos
