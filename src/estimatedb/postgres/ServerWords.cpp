#include "estimatedb/postgres/ServerWords.h"

#include <fmt/format.h>

#include "frame/PathText.h"
#include "frame/Text.h"

namespace lantos {

namespace {

std::string Server(const ServerPlace& place) { return fmt::format("The database server \"{}\"", place.address); }

std::string File(const ServerPlace& place) { return fmt::format("\"{}\"", TextOfPath(place.file)); }

struct StateRow {
  std::string_view begin;  // of the state
  DatabaseErrorKind kind;
};

// The first row that fits counts.
constexpr StateRow kStates[] = {
    {"42P01", DatabaseErrorKind::NotThere},                                         // table
    {"42703", DatabaseErrorKind::NotThere},                                         // column
    {"23505", DatabaseErrorKind::Duplicate},   {"23", DatabaseErrorKind::Refused},  // other rules of a table
    {"22", DatabaseErrorKind::Refused},     // a value that its column can't hold
    {"P0001", DatabaseErrorKind::Refused},  // a trigger's own refusal
    {"42501", DatabaseErrorKind::Refused},  // rights
    {"55P03", DatabaseErrorKind::Locked},   // waited too long
    {"40", DatabaseErrorKind::Locked},      // two that waited for each other
    {"25006", DatabaseErrorKind::ReadOnly},    {"53100", DatabaseErrorKind::Full},
    {"58030", DatabaseErrorKind::Unreachable},  // the server's own disk
    {"XX001", DatabaseErrorKind::Damaged},     {"XX002", DatabaseErrorKind::Damaged},
    {"08", DatabaseErrorKind::Unreachable},    {"57P", DatabaseErrorKind::Unreachable},
};

}  // namespace

DatabaseErrorKind KindOfState(std::string_view state) {
  if (state.empty()) return DatabaseErrorKind::Unreachable;
  for (const StateRow& row : kStates) {
    if (state.starts_with(row.begin)) return row.kind;
  }
  return DatabaseErrorKind::Other;
}

std::string WordsOfRefusedConnection(const ServerPlace& place, std::string_view state) {
  if (state.starts_with("28")) {
    return fmt::format(
        "{} refused the login. Nothing was stored.\n\nIt is named in {}. Look whether the user is right there, and "
        "whether the password is in the password file of the operating system's user; or ask whoever looks after the "
        "server. The run log has the server's reason.",
        Server(place), File(place));
  }
  if (state == "3D000") {
    return fmt::format("{} has no database \"{}\".\n\nCorrect the line \"server\" in {}.", Server(place),
                       place.database, File(place));
  }
  if (state == "42501") {
    return fmt::format(
        "{} doesn't let this login into the database \"{}\", which {} names.\n\nAsk whoever looks after the server.",
        Server(place), place.database, File(place));
  }
  if (state == "53300") {
    return fmt::format(
        "{} has as many connections as it takes. Nothing was stored.\n\nTry again later; or let whoever "
        "looks after the server allow more.",
        Server(place));
  }
  if (state == "57P03") {
    return fmt::format("{} is just starting or stopping. Nothing was stored.\n\nTry again in a moment.", Server(place));
  }
  return fmt::format(
      "{} can't be reached. Nothing was stored.\n\nIt is named in {}. Look whether the network is there, and whether "
      "the server runs; then try again. The run log has the reason.",
      Server(place), File(place));
}

std::string WordsOfLostConnection(const ServerPlace& place, Fate fate) {
  const std::string_view stored =
      fate == Fate::NotStored ? "Nothing of what was being done was stored."
                              : "Whether what was being done was stored isn't known: look before you do it again.";
  return fmt::format("The connection to the database server \"{}\" was lost. {}\n\nThe next command connects again.",
                     place.address, stored);
}

std::string WordsOfMissingSchema(const ServerPlace& place) {
  return fmt::format(
      "The database \"{}\" on the server \"{}\" has no schema \"{}\".\n\nCorrect the line \"schema\" in {}.",
      place.database, place.address, FromUtf8(place.schema), File(place));
}

std::string WordsOfClosedSchema(const ServerPlace& place) {
  return fmt::format(
      "{} doesn't let this login into the schema \"{}\", which {} names.\n\nCorrect the line \"schema\" there, or ask "
      "whoever looks after the server.",
      Server(place), FromUtf8(place.schema), File(place));
}

std::string WordsOfSchemaNotMade(const ServerPlace& place) {
  return fmt::format(
      "{} doesn't let this login make the schema \"{}\" in the database \"{}\". Nothing was changed.\n\nAsk whoever "
      "looks after the server to make it and to give it to this login.",
      Server(place), FromUtf8(place.schema), place.database);
}

std::string WordsOfEncoding(const ServerPlace& place, std::string_view encoding) {
  return fmt::format(
      "The database \"{}\" on the server \"{}\" keeps its texts in {}, which can't hold all that is typed here.\n\nThe "
      "program needs a database with the encoding UTF8.",
      place.database, place.address, encoding);
}

std::string TroubleOfFollowing(std::string_view state) {
  if (state == "42501") return "no rights";
  if (state == "53300") return "server full";
  if (state.starts_with("28")) return "login refused";
  return {};
}

std::string WordsOfTroubledFollowing(const ServerPlace& place, std::string_view state) {
  if (state != "42501") return WordsOfRefusedConnection(place, state);
  return fmt::format(
      "{} doesn't let this login read, or make, what tells of changes. Whoever looks after the server can give it "
      "SELECT, "
      "INSERT, UPDATE and DELETE on the tables TrailCount and TrailFeed of the schema \"{}\".",
      Server(place), FromUtf8(place.schema));
}

}  // namespace lantos
