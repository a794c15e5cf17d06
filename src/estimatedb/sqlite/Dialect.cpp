#include "estimatedb/sqlite/Dialect.h"

#include <algorithm>

#include "estimatedb/sqlite/SqlWords.h"
#include "frame/Dates.h"
#include "frame/Text.h"

namespace lantos {

namespace {

struct TypeName {
  std::string_view ours;
  std::string_view sqlite;
};

// Types whose name would give SQLite's column another character: a text column must keep "0123" as it is, a counter
// must count by itself.
constexpr TypeName kTypeNames[] = {
    {"Counter", "INTEGER PRIMARY KEY AUTOINCREMENT"},
    {"Memo", "LongText"},
    {"Long", "INTEGER"},
    {"Integer", "INTEGER"},
    {"Short", "SMALLINT"},
    {"DateTime", "DATE"},
    {"YesNo", "BOOLEAN"},
};

std::string_view SqliteType(const Word& word) {
  for (const TypeName& name : kTypeNames) {
    if (IsKeyword(word, name.ours)) return name.sqlite;
  }
  return word.text;
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

// "ALTER TABLE t ADD COLUMN c type".
std::string AddColumn(const std::vector<Word>& words) {
  std::string result;
  std::size_t meaningful = 0;
  for (const Word& word : words) {
    const bool isType = word.kind != WordKind::Gap && ++meaningful == 7;
    result += isType ? std::string(SqliteType(word)) : Copied(word);
  }
  return result;
}

// A column's type stands second in a part of the bracket. A counter is the table's key, so the constraint that names
// the key becomes one of uniqueness. "Date()" as a default is the local day.
class TableMaker {
 public:
  explicit TableMaker(const std::vector<Word>& words) : words_(words) {
    hasCounter_ = std::any_of(words.begin(), words.end(), [](const Word& word) { return IsKeyword(word, "Counter"); });
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
    if (depth_ == 1 && IsKeyword(word, "DEFAULT")) {
      TakeDefault(i);
    } else if (hasCounter_ && isConstraint_ && IsKeyword(word, "PRIMARY")) {
      result_ += "UNIQUE";
      while (i + 1 < words_.size() && !IsKeyword(words_[i], "KEY")) ++i;
    } else if (depth_ == 1 && place_ == 2 && !isConstraint_ && word.kind != WordKind::Gap) {
      result_ += SqliteType(word);
    } else {
      result_ += Copied(word);
    }
  }

  void TakeDefault(std::size_t& i) {
    result_ += words_[i].text;
    std::size_t date = i + 1;
    while (date < words_.size() && words_[date].kind == WordKind::Gap) ++date;
    if (date + 2 >= words_.size() || !IsKeyword(words_[date], "Date") || !IsSign(words_[date + 1], '(')) return;
    result_ += " (date('now','localtime'))";
    i = date + 2;
  }

  const std::vector<Word>& words_;
  std::string result_;
  bool hasCounter_ = false;
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

bool Begins(const std::vector<Word>& words, std::initializer_list<std::string_view> keywords) {
  if (words.size() < keywords.size()) return false;
  return std::equal(keywords.begin(), keywords.end(), words.begin(), [](std::string_view keyword, const Word& word) {
    return keyword.empty() || IsKeyword(word, keyword);
  });
}

}  // namespace

std::optional<ColumnChange> AsColumnChange(std::string_view statement) {
  const std::vector<Word> words = MeaningfulWords(statement);
  if (words.size() < 7 || !Begins(words, {"ALTER", "TABLE", "", "ALTER", "COLUMN"})) return std::nullopt;
  std::string type(SqliteType(words[6]));
  for (std::size_t i = 7; i < words.size(); ++i) type += words[i].text;
  return ColumnChange{Unquoted(words[2].text), Unquoted(words[5].text), type};
}

std::string ToSqlite(std::string_view statement) {
  const std::vector<Word> words = CutIntoWords(statement);
  const std::vector<Word> meaningful = MeaningfulWords(statement);
  if (meaningful.size() == 1 && meaningful[0].kind == WordKind::Name) {
    return "select * from " + std::string(meaningful[0].text);
  }
  if (Begins(meaningful, {"CREATE", "TABLE"})) return TableMaker(words).Make();
  if (Begins(meaningful, {"ALTER", "TABLE", "", "ADD", "COLUMN"})) return AddColumn(words);
  if (Begins(meaningful, {"UPDATE"})) return Update(words);
  return CopiedWhole(words);
}

namespace {

// Words that end a column's type.
constexpr std::string_view kColumnConstraints[] = {
    "CONSTRAINT", "PRIMARY", "NOT", "NULL", "UNIQUE", "CHECK", "DEFAULT", "COLLATE", "REFERENCES", "GENERATED", "AS"};

bool EndsType(const Word& word) {
  return std::any_of(std::begin(kColumnConstraints), std::end(kColumnConstraints),
                     [&](std::string_view keyword) { return IsKeyword(word, keyword); });
}

bool IsName(const Word& word, std::string_view name) {
  return (word.kind == WordKind::Name || word.kind == WordKind::DoubleQuoted) &&
         EqualsIgnoringCase(Unquoted(word.text), name);
}

// Where the type of a column stands, as places in words; both are 0 when there is no such column.
std::pair<std::size_t, std::size_t> FindColumnType(const std::vector<Word>& words, std::size_t bracket,
                                                   std::string_view column) {
  int depth = 0;
  bool atStart = false;
  for (std::size_t i = bracket; i < words.size(); ++i) {
    if (IsSign(words[i], '(')) ++depth;
    if (IsSign(words[i], ')')) --depth;
    if (depth == 1 && (IsSign(words[i], ',') || i == bracket)) {
      atStart = true;
      continue;
    }
    if (!atStart || words[i].kind == WordKind::Gap) continue;
    atStart = false;
    if (!IsName(words[i], column)) continue;
    std::size_t end = i + 1;
    for (int inner = 0; end < words.size(); ++end) {
      if (IsSign(words[end], '(')) ++inner;
      const bool ends = IsSign(words[end], ',') || IsSign(words[end], ')') || EndsType(words[end]);
      if (inner == 0 && ends) break;
      if (IsSign(words[end], ')')) --inner;
    }
    return {i + 1, end};
  }
  return {0, 0};
}

}  // namespace

std::optional<std::string> WithColumnType(std::string_view createTable, std::string_view newTable,
                                          std::string_view column, std::string_view type) {
  const std::vector<Word> words = CutIntoWords(createTable);
  std::size_t bracket = 0;
  while (bracket < words.size() && !IsSign(words[bracket], '(')) ++bracket;
  const auto [from, to] = FindColumnType(words, bracket, column);
  if (to == 0) return std::nullopt;
  std::string result = "CREATE TABLE " + QuotedName(newTable) + " ";
  for (std::size_t i = bracket; i < words.size(); ++i) {
    if (i == from) result += " " + std::string(type) + " ";
    if (i < from || i >= to) result += words[i].text;
  }
  return result;
}

ColumnType TypeFromDeclaration(std::string_view declared) {
  const std::vector<Word> words = MeaningfulWords(declared);
  if (words.empty()) return ColumnType::Other;
  const auto isOneOf = [&](std::initializer_list<std::string_view> names) {
    return std::any_of(names.begin(), names.end(), [&](std::string_view name) { return IsKeyword(words[0], name); });
  };
  if (isOneOf({"Date", "DateTime"})) return ColumnType::Date;
  if (isOneOf({"Memo", "LongText", "Clob", "Note", "NText"})) return ColumnType::LongText;
  if (!isOneOf({"Text", "Char", "VarChar", "NChar", "NVarChar", "Character", "String"})) return ColumnType::Other;
  const bool hasWidth =
      words.size() > 2 && std::any_of(words.begin(), words.end(), [](const Word& word) { return IsSign(word, '('); });
  return hasWidth || !isOneOf({"Text"}) ? ColumnType::ShortText : ColumnType::LongText;
}

}  // namespace lantos
