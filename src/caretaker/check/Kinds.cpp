#include "caretaker/check/Kinds.h"

#include <algorithm>

namespace lantos {

namespace {

constexpr Kind kKinds[] = {
    {"names", "two spellings of one name", Answer::None, FindNames},
    {"modes", "files that shut other workstations out", Answer::None, FindModes},
    {"lengths", "files that aren't whole records", Answer::None, FindLengths},
    {"tags", "tags and masters of customers and parts", Answer::One, FindTags},
    {"chains", "chains of vehicles, of usage and of pay", Answer::One, FindChains},
    {"counters", "running numbers", Answer::One, FindCounters},
    {"alternates", "alternates of parts", Answer::One, FindAlternates},
    {"kits", "cores and kits", Answer::None, FindKits},
    {"workorders", "tags and texts of work orders", Answer::None, FindWorkorders},
    {"dates", "dates", Answer::None, FindDates},
    {"texts", "texts", Answer::None, FindTexts},
    {"database", "the databases", Answer::None, FindDatabase},
    {"estimates", "customers and vehicles of estimates", Answer::None, FindEstimateLinks},
    {"mailboxes", "mailboxes of dead copies", Answer::One, FindMailboxes},
};

}  // namespace

std::span<const Kind> Kinds() { return kKinds; }

const Kind* KindNamed(std::string_view name) {
  const auto* const found =
      std::find_if(std::begin(kKinds), std::end(kKinds), [&](const Kind& kind) { return kind.name == name; });
  return found == std::end(kKinds) ? nullptr : found;
}

}  // namespace lantos
