#include "estimatedb/postgres/ServerSession.h"

#include <fmt/format.h>

#include <algorithm>

#include "estimatedb/postgres/PostgresDialect.h"
#include "estimatedb/postgres/ServerLibrary.h"
#include "estimatedb/postgres/ServerWords.h"
#include "frame/Dates.h"
#include "frame/Text.h"

namespace lantos {

namespace {

// How long the server may take to let somebody in.
constexpr std::chrono::milliseconds kPatience{10000};

// Statements are short: compiling one, as the server does where it takes a table for large, costs more than any of
// them.
constexpr std::string_view kSetUp =
    "SELECT pg_catalog.current_setting('server_encoding'), CASE "
    "WHEN pg_catalog.to_regnamespace(pg_catalog.quote_ident($1)) IS NULL THEN 'missing' "
    "WHEN NOT pg_catalog.has_schema_privilege($1, 'USAGE') THEN 'closed' ELSE 'open' END, "
    "pg_catalog.set_config('search_path', pg_catalog.quote_ident($1), false), "
    "pg_catalog.set_config('lock_timeout', $2, false), "
    "pg_catalog.set_config('DateStyle', 'ISO, YMD', false), "
    "pg_catalog.set_config('extra_float_digits', '1', false), "
    "pg_catalog.set_config('standard_conforming_strings', 'on', false), "
    "pg_catalog.set_config('default_transaction_isolation', 'read committed', false), "
    "pg_catalog.set_config('synchronous_commit', 'on', false), "
    "pg_catalog.set_config('client_min_messages', 'warning', false), "
    "pg_catalog.set_config('jit', 'off', false), "
    "pg_catalog.set_config('lantos.copy', $3, false)";

constexpr unsigned kText = 25;  // the server's number of the type

[[noreturn]] void Refuse(const PostgresFailure& failure, const ServerPlace& place) {
  throw DatabaseError(fmt::format("{} {}\n\nServer: {}, database: {}", failure.State(), FromUtf8(failure.what()),
                                  place.address, place.database),
                      DatabaseErrorKind::Unreachable, 0, WordsOfRefusedConnection(place, failure.State()));
}

[[noreturn]] void Refuse(const std::string& words) {
  throw DatabaseError(words, DatabaseErrorKind::Unreachable, 0, words);
}

}  // namespace

const std::string_view kAskForKeys =
    "SELECT name, pg_catalog.quote_ident(key) FROM ("
    "SELECT c.relname AS name, a.attname AS key, k.place FROM pg_catalog.pg_index i "
    "JOIN pg_catalog.pg_class c ON c.oid = i.indrelid "
    "CROSS JOIN LATERAL pg_catalog.unnest(i.indkey::int2[]) WITH ORDINALITY AS k(number, place) "
    "JOIN pg_catalog.pg_attribute a ON a.attrelid = c.oid AND a.attnum = k.number "
    "WHERE i.indisprimary AND c.relnamespace = pg_catalog.quote_ident(pg_catalog.current_schema())::regnamespace "
    "UNION ALL "
    "SELECT c.relname, a.attname, 1 FROM pg_catalog.pg_class c "
    "JOIN pg_catalog.pg_attribute a ON a.attrelid = c.oid AND a.attname = 'lantos_row' "
    "WHERE c.relkind = 'r' AND c.relnamespace = pg_catalog.quote_ident(pg_catalog.current_schema())::regnamespace) AS "
    "keys ORDER BY name, "
    "place";

std::map<std::string, std::vector<std::string>> KeysIn(const pg_result& result) {
  std::map<std::string, std::vector<std::string>> keys;
  for (int row = 0; row < Pq().ntuples(&result); ++row) {
    keys[Pq().getvalue(&result, row, 0)].emplace_back(Pq().getvalue(&result, row, 1));
  }
  return keys;
}

PostgresRequest TellToday(DaySerial today) {
  return {fmt::format("SELECT pg_catalog.set_config('{}', $1, false)", kTodaySetting), {FormatIsoDate(today)}, {kText}};
}

std::unique_ptr<PostgresConnection> ConnectTo(const ServerPlace& place) {
  try {
    return std::make_unique<PostgresConnection>(place.server, kPatience);
  } catch (const PostgresFailure& failure) {
    Refuse(failure, place);
  }
}

ServerSession OpenSession(const ServerPlace& place, DaySerial today, std::chrono::milliseconds lockTimeout,
                          const std::string& copy) {
  try {
    ServerSession session{ConnectTo(place), {}};
    const std::vector<PostgresResult> set = session.connection->Exchange(
        {{std::string(kSetUp),
          {place.schema, fmt::format("{}ms", std::max<std::int64_t>(lockTimeout.count(), 1)), copy},
          {kText, kText, kText}},
         TellToday(today)});
    const std::string_view encoding = Pq().getvalue(set.front().get(), 0, 0);
    const std::string_view schema = Pq().getvalue(set.front().get(), 0, 1);
    if (schema == "missing") Refuse(WordsOfMissingSchema(place));
    if (schema == "closed") Refuse(WordsOfClosedSchema(place));
    if (encoding != "UTF8") Refuse(WordsOfEncoding(place, encoding));
    session.keys = KeysIn(*session.connection->Exchange({{std::string(kAskForKeys)}}).front());
    return session;
  } catch (const PostgresFailure& failure) {
    Refuse(failure, place);
  }
}

}  // namespace lantos
