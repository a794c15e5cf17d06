#include "estimatedb/engine/Dialect.h"

#include <algorithm>

#include "frame/Dates.h"
#include "frame/Text.h"

namespace lantos {

namespace {

const TypeName* FindType(const Word& word, const EngineWords& engine) {
  for (const TypeName& type : engine.types) {
    if (IsKeyword(word, type.ours)) return &type;
  }
  return nullptr;
}

// "01/01/2003" in double quotes is a date, any other text in double quotes a text.
std::string AsLiteral(const Word& word) {
  const std::string inside = Unquoted(word.text);
  const bool isDate = inside.size() == 10 && inside[2] == '/' && inside[5] == '/';
  const std::optional<DaySerial> day = isDate ? ParseDate(inside) : std::nullopt;
  return QuotedText(day ? FormatIsoDate(*day) : inside);
}

std::string Copied(const Word& word) {
  return word.kind == WordKind::DoubleQuoted ? AsLiteral(word) : std::string(word.text);
}

std::string CopiedWhole(const std::vector<Word>& words) {
  std::string result;
  for (const Word& word : words) result += Copied(word);
  return result;
}

// Appends the type that begins at a word, which moves to the last word that belongs to it.
void TakeType(const std::vector<Word>& words, std::size_t& i, const EngineWords& engine, std::string& result) {
  const TypeName* type = FindType(words[i], engine);
  result += type == nullptr ? words[i].text : type->engines;
  if (type == nullptr || type->width == Width::Kept) return;
  std::size_t bracket = i + 1;
  while (bracket < words.size() && words[bracket].kind == WordKind::Gap) ++bracket;
  if (bracket >= words.size() || !IsSign(words[bracket], '(')) return;
  while (bracket < words.size() && !IsSign(words[bracket], ')')) ++bracket;
  i = std::min(bracket, words.size() - 1);
}

// "ALTER TABLE t ADD COLUMN c type".
std::string AddColumn(const std::vector<Word>& words, const EngineWords& engine) {
  std::string result;
  std::size_t meaningful = 0;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i].kind != WordKind::Gap && ++meaningful == 7) {
      TakeType(words, i, engine, result);
    } else {
      result += Copied(words[i]);
    }
  }
  return result;
}

// A column's type stands second in a part of the bracket. A counter is the table's key, so the constraint that names
// the key becomes one of uniqueness. "Date()" as a default is the local day.
class TableMaker {
 public:
  TableMaker(const std::vector<Word>& words, const EngineWords& engine) : words_(words), engine_(engine) {
    const auto has = [&](std::string_view keyword) {
      return std::any_of(words.begin(), words.end(), [&](const Word& word) { return IsKeyword(word, keyword); });
    };
    hasCounter_ = has("Counter");
    lacksKey_ = !hasCounter_ && !has("PRIMARY");
  }

  std::string Make() {
    for (std::size_t i = 0; i < words_.size(); ++i) Take(i);
    return result_;
  }

 private:
  void Take(std::size_t& i) {
    const Word& word = words_[i];
    if (word.kind != WordKind::Gap) ++place_;
    if (IsSign(word, '(')) ++depth_;
    if (IsSign(word, ')')) --depth_;
    if (depth_ == 1 && (IsSign(word, '(') || IsSign(word, ','))) {
      place_ = 0;
      isConstraint_ = false;
    }
    if (depth_ == 1 && place_ == 1 && word.kind != WordKind::Gap)
      isConstraint_ = IsKeyword(word, "CONSTRAINT") || IsKeyword(word, "PRIMARY");
    if (depth_ == 0 && lacksKey_ && IsSign(word, ')')) TakeRowNumber();
    if (depth_ == 1 && place_ == 1 && IsKeyword(word, "CONSTRAINT") &&
        engine_.constraintNames == ConstraintNames::Dropped) {
      SkipToKind(i);
    } else if (depth_ == 1 && IsKeyword(word, "DEFAULT")) {
      TakeDefault(i);
    } else if (hasCounter_ && isConstraint_ && IsKeyword(word, "PRIMARY")) {
      result_ += "UNIQUE";
      while (i + 1 < words_.size() && !IsKeyword(words_[i], "KEY")) ++i;
    } else if (depth_ == 1 && place_ == 2 && !isConstraint_ && word.kind != WordKind::Gap) {
      TakeType(words_, i, engine_, result_);
    } else {
      result_ += Copied(word);
    }
  }

  // From CONSTRAINT to what the constraint is, which comes next.
  void SkipToKind(std::size_t& i) {
    for (int meaningful = 0; i + 1 < words_.size(); ++i) {
      if (words_[i + 1].kind != WordKind::Gap && ++meaningful == 2) return;
    }
  }

  void TakeRowNumber() {
    if (!engine_.rowNumber.empty()) result_ += "," + std::string(engine_.rowNumber);
  }

  void TakeDefault(std::size_t& i) {
    result_ += words_[i].text;
    std::size_t date = i + 1;
    while (date < words_.size() && words_[date].kind == WordKind::Gap) ++date;
    if (date + 2 >= words_.size() || !IsKeyword(words_[date], "Date") || !IsSign(words_[date + 1], '(')) return;
    result_ += " " + std::string(engine_.today);
    i = date + 2;
  }

  const std::vector<Word>& words_;
  const EngineWords& engine_;
  std::string result_;
  bool hasCounter_ = false;
  bool lacksKey_ = false;
  bool isConstraint_ = false;
  int depth_ = 0;
  int place_ = 0;  // of the word in its part of the bracket
};

// "UPDATE T AS n, S AS o SET n.A = o.A, … WHERE …" becomes "UPDATE T AS n SET A = o.A, … FROM S AS o WHERE …".
std::string UpdateFromSecondTable(const std::vector<Word>& words, std::size_t comma, std::size_t set) {
  std::size_t where = set;
  while (where < words.size() && !IsKeyword(words[where], "WHERE")) ++where;
  const auto append = [&](std::string& text, std::size_t from, std::size_t to) {
    for (std::size_t i = from; i < to; ++i) text += Copied(words[i]);
  };
  std::string result;
  append(result, 0, comma);
  result += " ";
  bool atTarget = true;  // a column that is set stands without its table's name
  int depth = 0;
  for (std::size_t i = set; i < where; ++i) {
    if (i > set && atTarget && words[i].kind == WordKind::Name) {
      if (i + 2 < where && IsSign(words[i + 1], '.')) i += 2;
      atTarget = false;
    }
    if (IsSign(words[i], '(')) ++depth;
    if (IsSign(words[i], ')')) --depth;
    if (depth == 0 && IsSign(words[i], ',')) atTarget = true;
    result += Copied(words[i]);
  }
  result += "FROM";
  append(result, comma + 1, set);
  append(result, where, words.size());
  return result;
}

std::string Update(const std::vector<Word>& words) {
  std::size_t comma = 0;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (IsSign(words[i], ',') && comma == 0) comma = i;
    if (IsKeyword(words[i], "SET")) return comma == 0 ? CopiedWhole(words) : UpdateFromSecondTable(words, comma, i);
  }
  return CopiedWhole(words);
}

}  // namespace

bool Begins(const std::vector<Word>& words, std::initializer_list<std::string_view> keywords) {
  if (words.size() < keywords.size()) return false;
  return std::equal(keywords.begin(), keywords.end(), words.begin(), [](std::string_view keyword, const Word& word) {
    return keyword.empty() || IsKeyword(word, keyword);
  });
}

std::optional<ColumnChange> AsColumnChange(std::string_view statement, const EngineWords& engine) {
  const std::vector<Word> words = MeaningfulWords(statement);
  if (words.size() < 7 || !Begins(words, {"ALTER", "TABLE", "", "ALTER", "COLUMN"})) return std::nullopt;
  std::string type;
  std::size_t i = 6;
  TakeType(words, i, engine, type);
  for (++i; i < words.size(); ++i) type += words[i].text;
  return ColumnChange{Unquoted(words[2].text), Unquoted(words[5].text), type};
}

std::string Turned(std::string_view statement, const EngineWords& engine) {
  const std::vector<Word> words = CutIntoWords(statement);
  const std::vector<Word> meaningful = MeaningfulWords(statement);
  if (meaningful.size() == 1 && meaningful[0].kind == WordKind::Name) {
    return "select * from " + std::string(meaningful[0].text);
  }
  if (Begins(meaningful, {"CREATE", "TABLE"})) return TableMaker(words, engine).Make();
  if (Begins(meaningful, {"ALTER", "TABLE", "", "ADD", "COLUMN"})) return AddColumn(words, engine);
  if (Begins(meaningful, {"UPDATE"})) return Update(words);
  return CopiedWhole(words);
}

}  // namespace lantos
