#include <fmt/core.h>

#include <algorithm>
#include <sstream>

#include "frame/Dates.h"
#include "frame/Text.h"
#include "payroll/WithholdingRules.h"

namespace lantos {

namespace {

constexpr std::int64_t kMostCents = 1'000'000'000'00;  // a thousand million dollars

using Words = std::vector<std::string>;

Words WordsOf(const std::string& line) {
  std::istringstream in(line);
  Words words;
  for (std::string word; in >> word;) words.push_back(ToLower(word));
  return words;
}

// Digits with at most so many decimals, as a whole number of the last of them.
std::optional<std::int64_t> ReadDecimal(std::string_view text, int decimals) {
  constexpr std::size_t kLongest = 16;
  if (text.empty() || text.size() > kLongest || text.front() == '.' || text.back() == '.') return std::nullopt;
  std::int64_t value = 0;
  int behindPoint = -1;  // digits there; -1 before the point
  for (const char c : text) {
    if (c == '.' && behindPoint < 0) {
      behindPoint = 0;
    } else if (c >= '0' && c <= '9' && behindPoint < decimals) {
      value = value * 10 + (c - '0');
      if (behindPoint >= 0) ++behindPoint;
    } else {
      return std::nullopt;
    }
  }
  for (int i = std::max(behindPoint, 0); i < decimals; ++i) value *= 10;
  return value;
}

class RulesReader {
 public:
  RulesReader(const std::vector<std::string>& lines, int year) : lines_(lines), year_(year) {}

  std::vector<WithholdingRule> Read() {
    for (; at_ < lines_.size(); ++at_) {
      const Words words = WordsOf(lines_[at_]);
      if (!words.empty() && words[0][0] != '#') ReadLine(words);
    }
    EndRule();
    return std::move(rules_);
  }

 private:
  void ReadLine(const Words& words);
  void BeginRule(Authority authority, const Words& words);
  void EndRule();
  void ReadDates(const Words& words);
  void ReadAllowance(const Words& words);
  void ReadRate(const Words& words);
  void ReadTable(const Words& words);
  void ReadBracket(const Words& words);
  void SetKind(WithholdingRule::Kind kind);
  WithholdingRule& Rule();
  const PayPeriod& Period(const std::string& word);
  std::int64_t Amount(const std::string& word);
  Millionths Percent(std::string_view word);
  void Want(const Words& words, std::size_t count, std::string_view form);
  [[noreturn]] void Refuse(std::string_view why) const {
    throw WithholdingError(fmt::format("line {}: {}", std::min(at_ + 1, lines_.size()), why));
  }

  const std::vector<std::string>& lines_;
  int year_;
  std::size_t at_ = 0;
  std::vector<WithholdingRule> rules_;
  bool hasKind_ = false;
  std::vector<TaxBracket>* table_ = nullptr;
};

void RulesReader::ReadLine(const Words& words) {
  const std::string& first = words[0];
  if (first == "federal") return BeginRule(Authority::Federal, words);
  if (first == "state") return BeginRule(Authority::State, words);
  if (first == "local") return BeginRule(Authority::Local, words);
  WithholdingRule& rule = Rule();
  if (first == "over") return ReadBracket(words);
  if (first == "source") {
    if (words.size() == 1) Refuse("where are the figures from?");
    rule.source = Trim(lines_[at_].substr(ToLower(lines_[at_]).find(first) + first.size()));
  } else if (first == "from" || first == "to") {
    ReadDates(words);
  } else if (first == "allowance") {
    ReadAllowance(words);
  } else if (first == "none") {
    Want(words, 1, "none");
    SetKind(WithholdingRule::Kind::None);
  } else if (first == "rate") {
    ReadRate(words);
  } else if (first == "table") {
    ReadTable(words);
  } else {
    Refuse(fmt::format("\"{}\" means nothing here.", first));
  }
}

void RulesReader::BeginRule(Authority authority, const Words& words) {
  EndRule();
  WithholdingRule rule;
  rule.authority = authority;
  rule.from = ToSerial({year_, 1, 1});
  rule.to = ToSerial({year_, 12, 31});
  for (std::size_t i = 1; i < words.size(); ++i) {
    if (words[i].size() != 2) Refuse(fmt::format("\"{}\" is no state of two letters.", words[i]));
    rule.states.push_back(ToUpper(words[i]));
  }
  if (rule.states.empty() != (authority == Authority::Federal)) {
    Refuse(rule.states.empty() ? "which state is meant?" : "no state goes with \"federal\".");
  }
  rules_.push_back(std::move(rule));
  hasKind_ = false;
  table_ = nullptr;
}

void RulesReader::EndRule() {
  if (rules_.empty()) return;
  const WithholdingRule& rule = rules_.back();
  if (!hasKind_) Refuse("what is above has neither \"none\" nor a rate nor a table.");
  if (rule.source.empty()) Refuse("what is above names no source.");
  for (const auto& [key, brackets] : rule.tables) {
    if (brackets.empty()) Refuse("what is above has a table without a line.");
  }
}

void RulesReader::ReadDates(const Words& words) {
  Want(words, 2, "from mm/dd/yyyy, to mm/dd/yyyy");
  const std::optional<DaySerial> day = ParseDate(words[1]);
  if (!day || FromSerial(*day).year != year_) Refuse(fmt::format("\"{}\" is no day of {}.", words[1], year_));
  (words[0] == "from" ? Rule().from : Rule().to) = *day;
  if (Rule().from > Rule().to) Refuse("it ends before it begins.");
}

void RulesReader::ReadAllowance(const Words& words) {
  Want(words, 3, "allowance PERIOD AMOUNT");
  Rule().allowances[Period(words[1]).code] = Amount(words[2]);
}

void RulesReader::ReadRate(const Words& words) {
  Want(words, 2, "rate PERCENT%");
  SetKind(WithholdingRule::Kind::Rate);
  Rule().rate = Percent(words[1]);
}

void RulesReader::ReadTable(const Words& words) {
  Want(words, 3, "table PERIOD single, table PERIOD married");
  if (words[2] != "single" && words[2] != "married") Refuse(fmt::format("\"{}\" is no status.", words[2]));
  if (Rule().kind != WithholdingRule::Kind::Table) SetKind(WithholdingRule::Kind::Table);
  const TaxStatus status = words[2] == "married" ? TaxStatus::Married : TaxStatus::Single;
  const auto [table, isNew] = Rule().tables.try_emplace({Period(words[1]).code, status});
  if (!isNew) Refuse("this table stands above already.");
  table_ = &table->second;
}

void RulesReader::ReadBracket(const Words& words) {
  Want(words, 6, "over AMOUNT tax AMOUNT plus PERCENT%");
  if (table_ == nullptr) Refuse("no table stands above.");
  if (words[2] != "tax" || words[4] != "plus") Refuse("meant is: over AMOUNT tax AMOUNT plus PERCENT%");
  const TaxBracket bracket{Amount(words[1]), Amount(words[3]), Percent(words[5])};
  if (!table_->empty() && table_->back().over >= bracket.over) Refuse("the amounts of a table rise.");
  table_->push_back(bracket);
}

void RulesReader::SetKind(WithholdingRule::Kind kind) {
  if (hasKind_) Refuse("there is a \"none\", a rate or a table above already.");
  Rule().kind = kind;
  hasKind_ = true;
}

WithholdingRule& RulesReader::Rule() {
  if (rules_.empty()) Refuse("\"federal\", \"state\" or \"local\" goes first.");
  return rules_.back();
}

const PayPeriod& RulesReader::Period(const std::string& word) {
  const PayPeriod* period = FindPayPeriod(word);
  if (period == nullptr) Refuse(fmt::format("\"{}\" is no period.", word));
  return *period;
}

std::int64_t RulesReader::Amount(const std::string& word) {
  const std::optional<std::int64_t> amount = ReadDecimal(word, 2);
  if (!amount || *amount > kMostCents) Refuse(fmt::format("\"{}\" is no amount.", word));
  return *amount;
}

Millionths RulesReader::Percent(std::string_view word) {
  constexpr std::int64_t kAll = 1'000'000;
  const bool isMarked = word.ends_with('%');
  const std::optional<std::int64_t> percent = isMarked ? ReadDecimal(word.substr(0, word.size() - 1), 4) : std::nullopt;
  if (!percent || *percent > kAll) Refuse(fmt::format("\"{}\" is no percentage.", word));
  return static_cast<Millionths>(*percent);
}

void RulesReader::Want(const Words& words, std::size_t count, std::string_view form) {
  if (words.size() != count) Refuse(fmt::format("meant is: {}", form));
}

}  // namespace

std::vector<WithholdingRule> ReadWithholdingRules(const std::vector<std::string>& lines, int year) {
  return RulesReader(lines, year).Read();
}

}  // namespace lantos
