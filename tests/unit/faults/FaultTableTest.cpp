#include <fmt/format.h>

#include <cstdlib>
#include <iostream>

#include "faults/FaultRun.h"

// Every call on a file and every statement of each command fails once: what was typed is stored, or it is said that it
// isn't, nothing is left apart, and the next try goes well. LANTOS_FAULTS_ALL=1 tries all of them, otherwise so many of
// each command that lie evenly among them.
namespace lantos::test {
namespace {

constexpr std::size_t kSample = 48;
constexpr std::size_t kKillSample = 12;

bool WantsAll() { return std::getenv("LANTOS_FAULTS_ALL") != nullptr; }

std::string Describe(const std::string& command, const Trouble& trouble, const Ending& ending) {
  std::string apart;
  for (const std::string& name : ending.apart) apart += " " + name;
  return fmt::format("{}: {} at {} {} ({}), the person {}: {}{}{}{}; said: {}", command, NameOf(trouble.fault),
                     trouble.place == Trouble::Place::FileCall ? "call" : "statement", trouble.index, trouble.what,
                     trouble.person == Trouble::Person::Retries ? "retries" : "gives up",
                     ending.kind == Ending::Kind::Apart ? "apart:" + apart : "not stored",
                     ending.told ? "" : ", nobody was told", ending.hung ? ", without end" : "",
                     ending.again ? "" : ", the next try fails too", ending.said);
}

struct Row {
  std::size_t cases = 0;
  std::size_t stored = 0;
  std::size_t asBefore = 0;
  std::size_t gaps = 0;
  std::size_t inTurn = 0;
  std::size_t lost = 0;

  void Count(const Ending& ending) {
    ++cases;
    stored += ending.kind == Ending::Kind::Stored ? 1 : 0;
    asBefore += ending.kind == Ending::Kind::AsBefore ? 1 : 0;
    gaps += ending.kind == Ending::Kind::Gap ? 1 : 0;
    inTurn += ending.kind == Ending::Kind::InTurn ? 1 : 0;
    lost += ending.IsLost() ? 1 : 0;
  }
};

void Print(const std::string& command, const FaultRun& run, const Row& row) {
  std::cout << fmt::format("| {} | {} | {} | {} | {} | {} | {} | {} | {} |\n", command, run.FileCalls(),
                           run.Statements(), row.cases, row.stored, row.asBefore, row.gaps, row.inTurn, row.lost);
}

class EachCommand : public testing::TestWithParam<NamedDeed> {};

TEST_P(EachCommand, LosesNothingWhateverFails) {
  const FaultRun run(GetParam());
  Row row;
  for (const Trouble& trouble : run.Troubles(WantsAll() ? std::nullopt : std::optional(kSample))) {
    const Ending ending = run.Meet(trouble);
    row.Count(ending);
    EXPECT_FALSE(ending.IsLost()) << Describe(run.Name(), trouble, ending);
  }
  Print(run.Name(), run, row);
}

TEST_P(EachCommand, IsDoneOrNotDoneWhereverItIsKilled) {
  const FaultRun run(GetParam());
  Row row;
  for (const std::size_t call : run.Kills(WantsAll() ? std::nullopt : std::optional(kKillSample))) {
    const Ending ending = run.Kill(call);
    row.Count(ending);
    std::string apart;
    for (const std::string& name : ending.apart) apart += " " + name;
    EXPECT_FALSE(ending.IsLost()) << run.Name() << " killed at " << call << " (" << NameOf(run.Calls()[call].kind)
                                  << " " << run.Calls()[call].name << ") leaves apart:" << apart;
  }
  Print(run.Name() + ", killed", run, row);
}

std::string NameOfTest(const testing::TestParamInfo<NamedDeed>& tested) {
  std::string name;
  for (const char c : tested.param.name) name += std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
  return name;
}

INSTANTIATE_TEST_SUITE_P(Estimates, EachCommand, testing::ValuesIn(DeedsOnEstimates()), NameOfTest);
INSTANTIATE_TEST_SUITE_P(Lines, EachCommand, testing::ValuesIn(DeedsOnLines()), NameOfTest);
INSTANTIATE_TEST_SUITE_P(Stock, EachCommand, testing::ValuesIn(DeedsOnStock()), NameOfTest);
INSTANTIATE_TEST_SUITE_P(Masters, EachCommand, testing::ValuesIn(DeedsOnMasters()), NameOfTest);

}  // namespace
}  // namespace lantos::test
