#include "estimatedb/postgres/ServerTables.h"

#include <fmt/format.h>

#include "estimatedb/engine/SqlWords.h"
#include "estimatedb/postgres/PostgresDialect.h"
#include "estimatedb/postgres/ServerLibrary.h"
#include "estimatedb/postgres/ServerSession.h"
#include "estimatedb/postgres/ServerWords.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr unsigned kText = 25;  // the server's number of the type
constexpr int kRowsARoundTrip = 1000;

// The program's own tables bear names that the server folds.
std::string Named(const std::string& name) { return QuotedName(ToLower(name)); }

std::string Listed(const std::vector<std::string>& columns) {
  std::string text;
  for (const std::string& column : columns) text += (text.empty() ? "" : ", ") + Named(column);
  return text;
}

std::string TextAt(const pg_result& result, int row, int column) {
  return {Pq().getvalue(&result, row, column), static_cast<std::size_t>(Pq().getlength(&result, row, column))};
}

CellKind KindOf(std::string_view type) {
  if (type == "int2") return CellKind::Short;
  if (type == "int4") return CellKind::Long;
  if (type == "int8" || type == "float8" || type == "float4" || type == "numeric") return CellKind::Number;
  return type == "date" ? CellKind::Date : CellKind::Text;
}

// A cursor's: the rest of a long table stays on the server.
class ServerRows : public RowReader {
 public:
  ServerRows(PostgresEngine& engine, std::string cursor) : engine_(engine), cursor_(std::move(cursor)) {}

  bool Next(CellRow& row) override {
    if (at_ == count_ && !Fetch()) return false;
    row.clear();
    for (int i = 0; i < Pq().nfields(rows_.get()); ++i) {
      row.push_back(Pq().getisnull(rows_.get(), at_, i) != 0 ? Cell() : Cell(TextAt(*rows_, at_, i)));
    }
    ++at_;
    return true;
  }

 private:
  bool Fetch() {
    rows_ = std::move(engine_.AskPlainly({{fmt::format("FETCH {} FROM {}", kRowsARoundTrip, cursor_)}}).back());
    at_ = 0;
    count_ = Pq().ntuples(rows_.get());
    return count_ > 0;
  }

  PostgresEngine& engine_;
  std::string cursor_;
  PostgresResult rows_;
  int at_ = 0;
  int count_ = 0;
};

void AddCell(PostgresRequest& request, const Cell& cell) {
  if (const auto* whole = std::get_if<std::int64_t>(&cell)) {
    request.values.emplace_back(fmt::format("{}", *whole));
  } else if (const auto* number = std::get_if<double>(&cell)) {
    request.values.emplace_back(fmt::format("{}", *number));
  } else if (const auto* text = std::get_if<std::string>(&cell)) {
    request.values.emplace_back(*text);
  } else {
    request.values.emplace_back();
  }
  request.types.push_back(0);  // the column's
}

constexpr std::string_view kHere =
    "(SELECT oid FROM pg_catalog.pg_namespace WHERE nspname = pg_catalog.current_schema())";

}  // namespace

PostgresResult ServerTables::Ask(const std::string& text, const std::vector<std::string>& values) {
  PostgresRequest request{.text = text};
  for (const std::string& value : values) {
    request.values.emplace_back(value);
    request.types.push_back(kText);
  }
  return std::move(engine_.AskPlainly({request}).back());
}

bool ServerTables::IsEmpty() {
  const PostgresResult result =
      Ask(fmt::format("SELECT EXISTS (SELECT FROM pg_catalog.pg_class WHERE relnamespace = {0}) OR EXISTS (SELECT FROM "
                      "pg_catalog.pg_proc WHERE pronamespace = {0}) OR EXISTS (SELECT FROM pg_catalog.pg_type WHERE "
                      "typnamespace = {0})",
                      kHere));
  return TextAt(*result, 0, 0) == "f";
}

std::vector<std::string> ServerTables::Tables() {
  const PostgresResult result = Ask(fmt::format(
      "SELECT relname FROM pg_catalog.pg_class WHERE relkind IN ('r', 'p') AND relnamespace = {} ORDER BY relname",
      kHere));
  std::vector<std::string> tables;
  for (int row = 0; row < Pq().ntuples(result.get()); ++row) tables.push_back(TextAt(*result, row, 0));
  return tables;
}

std::vector<StoredColumn> ServerTables::ColumnsOf(const std::string& table) {
  const PostgresResult result =
      Ask("SELECT a.attname, t.typname FROM pg_catalog.pg_attribute a JOIN pg_catalog.pg_type t ON t.oid = a.atttypid "
          "WHERE a.attrelid = $1::regclass AND a.attnum > 0 AND NOT a.attisdropped ORDER BY a.attnum",
          {Named(table)});
  std::vector<StoredColumn> columns;
  for (int row = 0; row < Pq().ntuples(result.get()); ++row) {
    const std::string name = TextAt(*result, row, 0);
    if (name != kRowNumberColumn) columns.push_back({name, KindOf(TextAt(*result, row, 1))});
  }
  return columns;
}

std::vector<std::string> ServerTables::KeyOf(const std::string& table) {
  const auto keys = KeysIn(*Ask(std::string(kAskForKeys)));
  const auto found = keys.find(ToLower(table));
  std::vector<std::string> columns;
  if (found == keys.end()) return columns;
  for (const std::string& column : found->second) {
    if (column != kRowNumberColumn) columns.push_back(Unquoted(column));
  }
  return columns;
}

std::int64_t ServerTables::CountOf(const std::string& table) {
  return std::stoll(TextAt(*Ask("SELECT count(*) FROM " + Named(table)), 0, 0));
}

std::unique_ptr<RowReader> ServerTables::Read(const std::string& table, const std::vector<std::string>& columns,
                                              const std::vector<std::string>& order) {
  std::string cursor = fmt::format("lantos_rows_{}", ++readers_);
  Ask(fmt::format("DECLARE {} NO SCROLL CURSOR FOR SELECT {} FROM {} ORDER BY {}", cursor, Listed(columns),
                  Named(table), order.empty() ? std::string(kRowNumberColumn) : Listed(order)));
  return std::make_unique<ServerRows>(engine_, std::move(cursor));
}

void ServerTables::Clear(const std::string& table) { Ask("DELETE FROM " + Named(table)); }

void ServerTables::Drop(const std::string& table) { Ask("DROP TABLE " + Named(table)); }

void ServerTables::Add(const std::string& table, const std::vector<std::string>& columns,
                       const std::vector<CellRow>& rows) {
  std::string places;
  for (std::size_t i = 1; i <= columns.size(); ++i) places += fmt::format("{}${}", i == 1 ? "" : ", ", i);
  const std::string text = fmt::format("INSERT INTO {} ({}) VALUES ({})", Named(table), Listed(columns), places);
  std::vector<PostgresRequest> requests;
  for (const CellRow& row : rows) {
    PostgresRequest& request =
        requests.emplace_back(PostgresRequest{.text = text, .use = PostgresRequest::Use::Planned});
    for (const Cell& cell : row) AddCell(request, cell);
  }
  if (!requests.empty()) engine_.AskPlainly(requests);
}

void ServerTables::LookOver(const std::string& table) { Ask("ANALYZE " + Named(table)); }

// Of a column that counts by itself where it isn't told a number; empty where there is none.
std::string ServerTables::SequenceOf(const std::string& table) {
  const PostgresResult result =
      Ask("SELECT pg_catalog.pg_get_serial_sequence($1, attname::text) FROM pg_catalog.pg_attribute WHERE attrelid = "
          "$1::regclass AND attidentity = 'd' AND NOT attisdropped",
          {Named(table)});
  return Pq().ntuples(result.get()) == 0 ? "" : TextAt(*result, 0, 0);
}

std::int64_t ServerTables::CounterOf(const std::string& table) {
  const std::string sequence = SequenceOf(table);
  if (sequence.empty()) return 0;
  return std::stoll(
      TextAt(*Ask("SELECT CASE WHEN is_called THEN last_value ELSE last_value - 1 END FROM " + sequence), 0, 0));
}

void ServerTables::SetCounter(const std::string& table, std::int64_t highest) {
  const std::string sequence = SequenceOf(table);
  if (sequence.empty() || highest < 1) return;
  Ask(fmt::format("SELECT pg_catalog.setval($1::regclass, {})", highest), {sequence});
}

std::string ServerTables::RenameSchema(const std::string& behind) {
  const std::string old = TextAt(*Ask("SELECT pg_catalog.current_schema()"), 0, 0);
  const auto isTaken = [this](const std::string& name) {
    return Pq().ntuples(Ask("SELECT FROM pg_catalog.pg_namespace WHERE nspname = $1", {name}).get()) != 0;
  };
  std::string name = old + behind;
  for (int number = 2; isTaken(name); ++number) name = fmt::format("{}{}_{}", old, behind, number);
  Ask(fmt::format("ALTER SCHEMA {} RENAME TO {}", QuotedName(old), QuotedName(name)));
  return name;
}

bool MakeSchema(const ServerPlace& place) {
  const std::unique_ptr<PostgresConnection> connection = ConnectTo(place);
  try {
    const std::vector<PostgresResult> found =
        connection->Exchange({{.text = "SELECT FROM pg_catalog.pg_namespace WHERE nspname = $1",
                               .values = {place.schema},
                               .types = {kText}}});
    if (Pq().ntuples(found.front().get()) != 0) return false;
    connection->Exchange({{"CREATE SCHEMA " + QuotedName(place.schema)}});
    return true;
  } catch (const PostgresFailure& failure) {
    throw DatabaseError(fmt::format("{} {}", failure.State(), FromUtf8(failure.what())), DatabaseErrorKind::Refused, 0,
                        WordsOfSchemaNotMade(place));
  }
}

void DropEmptySchema(const ServerPlace& place) noexcept {
  try {
    ConnectTo(place)->Exchange({{"DROP SCHEMA " + QuotedName(place.schema)}});
  } catch (const std::exception&) {
    return;
  }
}

}  // namespace lantos
