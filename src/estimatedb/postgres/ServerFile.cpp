#include "estimatedb/postgres/ServerFile.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <memory>
#include <optional>

#include "estimatedb/engine/DatabaseError.h"
#include "estimatedb/engine/ServerMark.h"
#include "estimatedb/postgres/ServerLibrary.h"
#include "frame/FileCause.h"
#include "frame/GuardedOpen.h"
#include "frame/PathText.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr std::size_t kLongest = 64 * 1024;

[[noreturn]] void Refuse(const std::filesystem::path& path, std::string_view what) {
  const std::string text = fmt::format(
      "\"{}\" names a database server, but {} The file has been left as it is.\n\nBehind its first line, \"{}\", it "
      "must say:\nserver = postgresql://host:port/database\nschema = name",
      TextOfPath(path), what, kServerMark);
  throw DatabaseError(text, DatabaseErrorKind::Unreachable, 0, text);
}

struct Options {
  struct Free {
    void operator()(PQconninfoOption* options) const { Pq().conninfoFree(options); }
  };
  std::unique_ptr<PQconninfoOption, Free> all;

  std::string Get(std::string_view keyword) const {
    for (const PQconninfoOption* option = all.get(); option != nullptr && option->keyword != nullptr; ++option) {
      if (option->keyword == keyword) return option->val == nullptr ? "" : option->val;
    }
    return {};
  }
};

Options Parsed(const std::string& server, const std::filesystem::path& path) {
  char* message = nullptr;
  Options options{std::unique_ptr<PQconninfoOption, Options::Free>(Pq().conninfoParse(server.c_str(), &message))};
  const std::string why = message == nullptr ? "" : TrimNull(message);
  Pq().freemem(message);
  if (options.all) return options;
  Refuse(path,
         fmt::format("its line \"server\" isn't understood ({}).", FromUtf8(TrimView(why.substr(0, why.find('\n'))))));
}

// Never the address itself where a password may stand in it.
void TakeServer(ServerPlace& place) {
  if (!place.server.starts_with("postgresql://") && !place.server.starts_with("postgres://")) {
    Refuse(place.file, "its line \"server\" doesn't begin with \"postgresql://\".");
  }
  const Options options = Parsed(place.server, place.file);
  if (!options.Get("password").empty() || !options.Get("sslpassword").empty()) {
    Refuse(
        place.file,
        "a password stands in it, which everybody who can open the directory could read. Take it out, and keep it in "
        "the password file of the operating system's user.");
  }
  const std::string host = options.Get("host").empty() ? options.Get("hostaddr") : options.Get("host");
  const std::string port = options.Get("port");
  const std::string service = options.Get("service");
  place.address = FromUtf8(!host.empty()     ? host
                           : service.empty() ? "this machine"
                                             : service) +
                  (port.empty() ? "" : ":" + port);
  place.database = FromUtf8(options.Get("dbname"));
}

std::string ReadAll(const std::filesystem::path& path) {
  const int descriptor = OpenExistingFile(path, O_RDONLY);
  if (descriptor < 0) {
    const std::string words =
        fmt::format("\"{}\" can't be read: {}.", TextOfPath(path), CauseInWords(NumberOfErrno(errno)));
    throw DatabaseError(words, DatabaseErrorKind::Unreachable, 0, words);
  }
  std::string text;
  std::array<char, 4096> block{};
  ssize_t length = 0;
  while (text.size() <= kLongest && (length = ::read(descriptor, block.data(), block.size())) > 0) {
    text.append(block.data(), static_cast<std::size_t>(length));
  }
  ::close(descriptor);
  return text;
}

}  // namespace

ServerPlace ParseServerFile(std::string_view text, const std::filesystem::path& path) {
  ServerPlace place{.file = path, .server = {}, .schema = {}, .address = {}, .database = {}};
  if (text.size() > kLongest) Refuse(path, "it is too long for such a file.");
  int number = 0;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    line = TrimView(line);
    if (++number == 1 || line.empty() || line.front() == '#' || line.front() == ';') continue;
    std::string key;
    std::string value;
    SplitKeyValue(line, key, value);
    std::string* const taken = EqualsIgnoringCase(Trim(key), "server")   ? &place.server
                               : EqualsIgnoringCase(Trim(key), "schema") ? &place.schema
                                                                         : nullptr;
    if (taken == nullptr) Refuse(path, fmt::format("its line {} isn't understood.", number));
    if (!taken->empty()) Refuse(path, fmt::format("its line {} says again what a line before has said.", number));
    *taken = Trim(value);
  }
  if (place.server.empty()) Refuse(path, "no line \"server\" says which.");
  if (place.schema.empty()) Refuse(path, "no line \"schema\" says where in it the shop's tables are.");
  TakeServer(place);
  return place;
}

ServerPlace ReadServerFile(const std::filesystem::path& path) { return ParseServerFile(ReadAll(path), path); }

}  // namespace lantos
