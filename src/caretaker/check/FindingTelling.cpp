#include "caretaker/check/FindingTelling.h"

#include <fmt/format.h>

#include "frame/Text.h"

namespace lantos {

nlohmann::ordered_json JsonOf(const std::vector<Finding>& findings) {
  nlohmann::ordered_json list = nlohmann::ordered_json::array();
  for (const Finding& finding : findings) {
    nlohmann::ordered_json one = {
        {"kind", finding.kind},   {"file", ToUtf8(finding.file)},   {"record", ToUtf8(finding.record)},
        {"field", finding.field}, {"words", ToUtf8(finding.words)}, {"repair", nullptr}};
    if (finding.CanBeMended()) one["repair"] = ToUtf8(finding.mending.words);
    list.push_back(std::move(one));
  }
  return list;
}

std::string CountOf(const std::vector<Finding>& findings) {
  return findings.size() == 1 ? "1 fault" : fmt::format("{} faults", findings.size());
}

}  // namespace lantos
