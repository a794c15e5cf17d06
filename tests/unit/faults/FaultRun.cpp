#include "faults/FaultRun.h"

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <map>

#include "faults/Person.h"
#include "support/FaultyEngine.h"

namespace lantos::test {

namespace {

using Manner = Trouble::Person;

// Longer than any wait that ends by itself.
constexpr int kMostFailures = 1100;
constexpr int kFailuresOfAHold = 60;
constexpr std::int32_t kMostNumbersSkipped = 3;

bool IsOfDatabase(const FileCall& call) { return call.name.find(".mdb") != std::string::npos; }

// From the call on the same goes wrong with the file again and again, until it is clear that nobody will be told.
FaultyCalls::Decide FromCall(const Trouble& trouble, const std::vector<FileCall>& calls, bool& hung) {
  const std::string name = calls[trouble.index].name;
  return [trouble, name, &hung, failures = 0](const FileCall& call, std::size_t at) mutable {
    if (at < trouble.index || call.name != name || hung) return 0;
    const int result = ErrnoOf(call, trouble.fault);
    // A part's files are waited for without a box, with a word on the status line; whoever has them lets go.
    if (trouble.fault == Fault::Held && call.name.starts_with("TQINV") && failures >= kFailuresOfAHold) return 0;
    hung = result != 0 && ++failures > kMostFailures;
    return result;
  };
}

bool IsJournal(const std::string& name) { return name.starts_with("AJ") || name.starts_with("AR"); }
bool HasJournal(const ShopState& state) {
  return std::any_of(state.begin(), state.end(),
                     [](const auto& file) { return IsJournal(file.first) && !file.second.empty(); });
}

std::size_t TimesIn(const ShopState& state, const std::string& text) {
  std::size_t times = 0;
  for (const auto& [name, content] : state) {
    for (std::size_t at = content.find(text); at != std::string::npos; at = content.find(text, at + 1)) ++times;
  }
  return times;
}

// The rows of the number as those of another one.
std::string Renumbered(std::string rows, std::int32_t from, std::int32_t to) {
  const std::string text = std::to_string(from) + "|";
  for (std::size_t at = rows.find(text); at != std::string::npos; at = rows.find(text, at + 1)) {
    if (at == 0 || rows[at - 1] == '\n' || rows[at - 1] == '|') rows.replace(at, text.size(), std::to_string(to) + "|");
  }
  return rows;
}

// In place of what the deed's own shop has, which nobody has begun to use.
void CopyFiles(const ScratchDirectory& from, Deed& deed) {
  namespace fs = std::filesystem;
  if (deed.Database() != nullptr) {
    deed.Database()->lantosData.Disconnect();
    deed.Database()->korvelData.Disconnect();
  }
  const fs::path to = deed.Shop().directory.Path();
  const auto isOfShop = [](const fs::directory_entry& entry) {
    return entry.is_regular_file() && entry.path().extension() != ".LOG";
  };
  for (const auto& entry : fs::directory_iterator(to)) {
    if (isOfShop(entry)) fs::remove(entry);
  }
  for (const auto& entry : fs::directory_iterator(from.Path())) {
    if (isOfShop(entry)) fs::copy_file(entry, to / entry.path().filename());
  }
}

bool HasEstimates(Deed& deed) { return std::filesystem::exists(deed.Shop().directory / std::string(kLantosDatabase)); }

void MakeStatementsFaulty(Deed& deed, StatementFaults& faults) {
  if (deed.Database() == nullptr) return;
  Environment& environment = deed.Shop().environment;
  MakeFaulty(*deed.Database(), environment, faults);
  if (environment.hasKorvelDatabase) MakeFaulty(deed.Database()->korvelData, kKorvelDatabase, environment, faults);
}

}  // namespace

FaultRun::FaultRun(const NamedDeed& deed) : deed_(deed) {
  const std::unique_ptr<Deed> run = Make();
  before_ = StateOf(run->Shop().directory);
  if (HasEstimates(*run)) rowsBefore_ = TrailedTablesOf(run->Shop().directory / std::string(kLantosDatabase));
  StatementFaults faults;
  MakeStatementsFaulty(*run, faults);
  {
    FaultyCalls calls(run->Shop().directory.Path());
    Person person(*run, Manner::Retries, [] {});
    person.Do();
    EXPECT_FALSE(person.WasTold()) << deed_.name << " without any trouble: " << person.Heard();
    calls_ = calls.Calls();
  }
  statements_ = faults.Statements();
  after_ = StateOf(run->Shop().directory);
  EXPECT_FALSE(Differences(before_, after_).empty()) << deed_.name << " changes nothing";
  Ending ending;
  CompareTrail(*run, ending);
  EXPECT_THAT(ending.apart, testing::IsEmpty()) << deed_.name << " without any trouble";
}

std::unique_ptr<Deed> FaultRun::Make() const {
  std::unique_ptr<Deed> deed = deed_.make();
  if (deed->Database() != nullptr) {
    deed->Database()->lantosData.KeepTrail(deed->Shop().environment.clock, {"FRONTDESK", "beth"});
  }
  return deed;
}

void FaultRun::CompareTrail(Deed& run, Ending& ending) const {
  if (!HasEstimates(run)) return;
  const std::vector<std::string> disagreements =
      TrailDisagreements(rowsBefore_, run.Shop().directory / std::string(kLantosDatabase));
  if (disagreements.empty()) return;
  ending.kind = Ending::Kind::Apart;
  for (const std::string& row : disagreements) ending.apart.push_back("trail: " + row);
}

std::vector<Trouble> FaultRun::Troubles(std::optional<std::size_t> atMost) const {
  std::vector<Trouble> all;
  for (const Manner person : {Manner::Retries, Manner::GivesUp}) {
    for (const Fault fault : kFaults) {
      for (std::size_t i = 0; i < calls_.size(); ++i) {
        // What its own calls run into, the database tells by its statements.
        if (ErrnoOf(calls_[i], fault) == 0 || IsOfDatabase(calls_[i])) continue;
        all.push_back({Trouble::Place::FileCall, i, fault, person, NameOf(calls_[i].kind) + " " + calls_[i].name});
      }
      for (std::size_t i = 0; i < statements_.size(); ++i) {
        all.push_back({Trouble::Place::Statement, i, fault, person, statements_[i]});
      }
    }
  }
  if (!atMost || all.size() <= *atMost) return all;
  std::vector<Trouble> some;
  for (std::size_t i = 0; i < *atMost; ++i) some.push_back(all[i * all.size() / *atMost]);
  return some;
}

Ending FaultRun::Meet(const Trouble& trouble) const {
  const std::unique_ptr<Deed> run = Make();
  StatementFaults faults;
  MakeStatementsFaulty(*run, faults);
  bool hung = false;
  bool told = false;
  std::string said;
  {
    FaultyCalls calls(run->Shop().directory.Path());
    if (trouble.place == Trouble::Place::FileCall) {
      calls.When(FromCall(trouble, calls_, hung));
    } else {
      faults.FailAt(trouble.index, trouble.fault);
    }
    Person person(*run, trouble.person, [&] {
      calls.Mend();
      faults.Mend();
    });
    try {
      person.Do();
    } catch (const Hung&) {
      hung = true;
    }
    calls.Mend();
    faults.Mend();
    told = person.WasTold();
    said = person.Heard();
  }
  Ending ending = Judge(StateOf(run->Shop().directory), *run);
  ending.told = told;
  ending.hung = hung;
  ending.said = said;
  TrySettling(*run, ending);
  if (!hung && (ending.kind == Ending::Kind::AsBefore || ending.kind == Ending::Kind::Gap)) {
    Person person(*run, Manner::Retries, [] {});
    person.Do();
    ending.again = AreAlikeInSize(StateOf(run->Shop().directory), after_);
    if (!ending.again) ending.said += " // next try: " + person.Heard();
  }
  CompareTrail(*run, ending);
  return ending;
}

Ending FaultRun::Kill(std::size_t call) const {
  const std::unique_ptr<Deed> run = Make();
  if (run->Database() != nullptr) {
    run->Database()->lantosData.Disconnect();
    run->Database()->korvelData.Disconnect();
  }
  const pid_t child = ::fork();
  if (child == 0) {
    FaultyCalls calls(run->Shop().directory.Path());
    calls.KillAt(call);
    Person person(*run, Manner::Retries, [] {});
    person.Do();
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  Ending ending = Judge(StateOf(run->Shop().directory), *run);
  // Nobody is there to be told, and nobody has given anything up.
  ending.told = true;
  const bool hasNoJournal =
      (run->HasJournal() || run->isJournaledWhenKilled) && !HasJournal(StateOf(run->Shop().directory));
  if (ending.kind == Ending::Kind::InTurn && (run->isWholeWhenKilled || hasNoJournal)) {
    ending.kind = Ending::Kind::Apart;
  }
  TrySettling(*run, ending);
  CompareTrail(*run, ending);
  return ending;
}

std::vector<std::size_t> FaultRun::Kills(std::optional<std::size_t> atMost) const {
  std::map<std::string, std::vector<std::size_t>> files;
  std::size_t count = 0;
  for (std::size_t i = 0; i < calls_.size(); ++i) {
    if (!Changes(calls_[i])) continue;
    files[calls_[i].name].push_back(i);
    ++count;
  }
  count = std::min(count, atMost.value_or(count));
  std::map<std::string, std::size_t> share;
  const auto isDue = [&](const auto& one, const auto& other) {
    return one.second.size() * (share[other.first] + 1) < other.second.size() * (share[one.first] + 1);
  };
  for (std::size_t i = 0; i < count; ++i) {
    const bool isFirst = share.size() < files.size();
    const auto unmet =
        std::find_if(files.begin(), files.end(), [&](const auto& file) { return !share.contains(file.first); });
    const auto next = isFirst ? unmet : std::max_element(files.begin(), files.end(), isDue);
    ++share[next->first];
  }
  std::vector<std::size_t> kills;
  for (const auto& [name, picked] : share) {
    const std::vector<std::size_t>& own = files[name];
    for (std::size_t i = 0; i < picked; ++i) kills.push_back(own[i * own.size() / picked]);
  }
  std::sort(kills.begin(), kills.end());
  return kills;
}

bool FaultRun::IsStored(const ShopState& state, const Deed& deed) const {
  if (Differences(state, after_).empty()) return true;
  if (!deed.mark.empty() && TimesIn(state, deed.mark) == TimesIn(after_, deed.mark)) return true;
  if (deed.firstNumber == 0) return false;
  for (std::int32_t skipped = 1; skipped <= kMostNumbersSkipped; ++skipped) {
    ShopState asFirst = state;
    for (auto& [name, content] : asFirst) {
      if (name.find(".mdb:") != std::string::npos)
        content = Renumbered(content, deed.firstNumber + skipped, deed.firstNumber);
    }
    for (const std::string& gap : deed.gaps) asFirst[gap] = after_.at(gap);
    if (Differences(asFirst, after_).empty()) return true;
  }
  return false;
}

void FaultRun::TrySettling(Deed& run, Ending& ending) const {
  const ShopState left = StateOf(run.Shop().directory);
  if (ending.kind != Ending::Kind::InTurn || !HasJournal(left)) return;
  const auto isOfNoRecord = [&](const std::string& name) {
    return IsJournal(name) || std::ranges::find(run.gaps, name) != run.gaps.end();
  };
  const bool isBegun = !std::ranges::all_of(Differences(left, before_), isOfNoRecord);
  for (const Deed::Settling how : {Deed::Settling::Finish, Deed::Settling::Undo}) {
    const std::unique_ptr<Deed> next = Make();
    CopyFiles(run.Shop().directory, *next);
    next->Shop().desktop.failuresExpected = true;
    next->Settle(how);
    const Ending settled = Judge(StateOf(next->Shop().directory), *next);
    const bool isLost = run.isJournaledWhenKilled && isBegun && settled.kind != Ending::Kind::Stored;
    if (settled.kind != Ending::Kind::InTurn && settled.kind != Ending::Kind::Apart && !isLost) continue;
    ending.kind = Ending::Kind::Apart;
    ending.apart = settled.apart;
    ending.said += how == Deed::Settling::Finish ? " // finished afterwards" : " // undone afterwards";
    for (const ui::Box& box : next->Shop().desktop.boxes) ending.said += " // " + box.text;
  }
  // All is there, and the next start finds it so.
  const std::vector<std::string> apart = Differences(left, after_);
  const bool isWhole = std::all_of(apart.begin(), apart.end(), IsJournal);
  if (isWhole && ending.kind == Ending::Kind::InTurn) ending.kind = Ending::Kind::Stored;
  if (run.isJournaledWhenKilled && !isBegun && ending.kind == Ending::Kind::InTurn) {
    ending.kind = run.gaps.empty() || std::ranges::all_of(Differences(left, before_), IsJournal)
                      ? Ending::Kind::AsBefore
                      : Ending::Kind::Gap;
  }
}

Ending FaultRun::Judge(const ShopState& state, Deed& deed) const {
  const auto isAmong = [](const std::vector<std::string>& names) {
    return [&names](const std::string& name) { return std::find(names.begin(), names.end(), name) != names.end(); };
  };
  Ending ending;
  if (IsStored(state, deed)) return ending;
  const bool mayHaveJournal = deed.HasJournal() || deed.isJournaledWhenKilled;
  // Whole, but for a journal that couldn't be deleted.
  if (ending.apart = Differences(state, after_); mayHaveJournal && std::ranges::all_of(ending.apart, IsJournal)) {
    ending.kind = Ending::Kind::InTurn;
    return ending;
  }
  ending.apart = Differences(state, before_);
  if (ending.apart.empty()) {
    ending.kind = Ending::Kind::AsBefore;
  } else if (std::all_of(ending.apart.begin(), ending.apart.end(), isAmong(deed.gaps))) {
    ending.kind = Ending::Kind::Gap;
  } else {
    std::erase_if(ending.apart, isAmong(deed.gaps));
    const bool isInTurn = std::all_of(ending.apart.begin(), ending.apart.end(), [&](const std::string& name) {
      return isAmong(deed.inTurn)(name) || (mayHaveJournal && IsJournal(name));
    });
    const bool mayBe = !deed.HasJournal() || HasJournal(state) || deed.IsWholeButForGivenUp(state, before_, after_);
    ending.kind = isInTurn && mayBe ? Ending::Kind::InTurn : Ending::Kind::Apart;
  }
  return ending;
}

}  // namespace lantos::test
