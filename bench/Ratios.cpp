#include "bench/Ratios.h"

#include <fmt/format.h>

namespace lantos::bench {

namespace {

constexpr double kMemoryLimit = 1.0;

}  // namespace

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
  ConsoleReporter::ReportRuns(runs);
  for (const Run& run : runs) {
    failed_ = failed_ || run.error_occurred;
    if (run.run_type != Run::RT_Aggregate || run.aggregate_name != "median") continue;
    const std::string& name = run.run_name.function_name;
    times_[name] = run.GetAdjustedRealTime();
    if (const auto kilobytes = run.counters.find(kResidentCounter); kilobytes != run.counters.end()) {
      memory_[name] = kilobytes->second.value;
    }
    if (const auto kilobytes = run.counters.find(kAllowanceCounter); kilobytes != run.counters.end()) {
      allowance_[name] = kilobytes->second.value;
    }
  }
}

bool RatioReporter::PrintRatios(const std::vector<Figure>& figures) const {
  fmt::print("\n");
  bool good = !failed_;
  for (const Figure& figure : figures) {
    const auto program = times_.find(figure.name);
    const auto plain = times_.find(figure.name + kPlain);
    if (program == times_.end() || plain == times_.end()) continue;
    good = PrintRatio(figure.name, program->second / plain->second, figure.limit) && good;
    good = PrintMemory(figure.name) && good;
  }
  return good;
}

// The limit is the plain window's memory and the allowance.
bool RatioReporter::PrintMemory(const std::string& name) const {
  const auto program = memory_.find(name);
  const auto plain = memory_.find(name + kPlain);
  if (program == memory_.end() || plain == memory_.end()) return true;
  const double most = plain->second + allowance_.at(name);
  const std::string text = fmt::format("ResidentMemory, {:.0f} kB of {:.0f} kB", program->second, most);
  return PrintRatio(text, program->second / most, kMemoryLimit);
}

bool RatioReporter::PrintRatio(const std::string& name, double ratio, double limit) const {
  const bool good = ratio <= limit;
  fmt::print("{} {:.2f} (limit {:g}){}\n", name, ratio, limit, good ? "" : "  OVER");
  return good;
}

}  // namespace lantos::bench
