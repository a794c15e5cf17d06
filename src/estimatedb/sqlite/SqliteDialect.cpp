#include "estimatedb/sqlite/SqliteDialect.h"

#include <algorithm>

#include "frame/Text.h"

namespace lantos {

namespace {

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

constexpr EngineWords kWords{kTypeNames, "(date('now','localtime'))"};

}  // namespace

std::optional<ColumnChange> AsColumnChange(std::string_view statement) { return AsColumnChange(statement, kWords); }

std::string ToSqlite(std::string_view statement) { return Turned(statement, kWords); }

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
