#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace lantos::bench {

// The program's work and the plain operation it can't beat are two benchmarks: a figure's name, and the same with this
// behind it.
inline constexpr const char* kPlain = "/plain";

struct Figure {
  std::string name;
  double limit;  // of the program's time over the plain operation's
};

// Google Benchmark's table, and behind it the ratio of each figure to its limit. Times are medians of the repetitions.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  RatioReporter() : ConsoleReporter(OO_Tabular) {}
  void ReportRuns(const std::vector<Run>& runs) override;

  // True when no figure is over its limit. Figures that weren't measured are left out.
  bool PrintRatios(const std::vector<Figure>& figures) const;

 private:
  bool PrintRatio(const std::string& name, double ratio, double limit) const;
  bool PrintMemory(const std::string& name) const;

  std::map<std::string, double> times_;
  std::map<std::string, double> memory_;  // kilobytes
  std::map<std::string, double> allowance_;
  bool failed_ = false;
};

// Counters of a benchmark that starts a process: resident kilobytes when its window is painted, and what the program
// may take beyond the plain one.
inline constexpr const char* kResidentCounter = "resident_kB";
inline constexpr const char* kAllowanceCounter = "allowance_kB";

}  // namespace lantos::bench
