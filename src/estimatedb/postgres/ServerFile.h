#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace lantos {

// Where the tables of a shop lie that has a server for them, as the file that stands in the database's place says it.
struct ServerPlace {
  std::filesystem::path file;
  std::string server;    // as a connection string, without a password
  std::string schema;    // UTF-8
  std::string address;   // of the server, for people: "host:port"
  std::string database;  // for people
};

// Reads such a file: a first line that says what it is, "server = postgresql://host:port/database" and
// "schema = name"; empty lines and those that begin with "#" or ";" say nothing. Throws DatabaseError, whose text is
// for the person: which line it is and what it should be. A password is refused, since everybody can read the file.
ServerPlace ReadServerFile(const std::filesystem::path& path);
ServerPlace ParseServerFile(std::string_view text, const std::filesystem::path& path);

}  // namespace lantos
