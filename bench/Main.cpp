#include <benchmark/benchmark.h>

#include <vector>

#include "bench/Ratios.h"

namespace {

const std::vector<lantos::bench::Figure> kFigures = {
    {"LoadCustomerTags", 1.5},  {"LoadVehicles", 2.0},    {"SearchByName", 2.0},   {"FindPart", 2.0},
    {"InventoryLoad", 2.0},     {"InventorySearch", 2.0}, {"LoadWeek", 1.5},       {"LoadServerWeek", 1.5},
    {"ServerWeekAtOnce", 2.0},  {"LoadFarWeek", 1.5},     {"AddLaborLine", 1.5},   {"StartToBoard", 1.4},
    {"VehicleSummary", 1.5},    {"Conversion", 1.5},      {"Worksheet", 2.0},      {"SavePart", 1.5},
    {"SendChanges", 1.5},       {"TakeChangesIn", 2.0},   {"WorkorderPaper", 2.0}, {"HistorySearch", 1.5},
    {"HistoryHit", 1.5},        {"FindOpened", 1.5},      {"TechHours", 1.5},      {"AddTrailedLine", 1.3},
    {"TrailedConversion", 1.3}, {"CheckShop", 3.0},       {"BackupShop", 1.5},
};

}  // namespace

int main(int count, char** arguments) {
  // A program and its plain operation take turns, so that both see the same machine. What is given later counts.
  std::vector<char*> all = {arguments[0]};
  char interleave[] = "--benchmark_enable_random_interleaving=true";
  char repetitions[] = "--benchmark_repetitions=15";
  char aggregates[] = "--benchmark_report_aggregates_only=true";
  char time[] = "--benchmark_min_time=0.1";
  for (char* argument : {interleave, repetitions, aggregates, time}) all.push_back(argument);
  all.insert(all.end(), arguments + 1, arguments + count);
  int allCount = static_cast<int>(all.size());
  all.push_back(nullptr);
  benchmark::Initialize(&allCount, all.data());
  if (benchmark::ReportUnrecognizedArguments(allCount, all.data())) return 2;
  lantos::bench::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return reporter.PrintRatios(kFigures) ? 0 : 1;
}
