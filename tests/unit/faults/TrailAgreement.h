#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace lantos::test {

// What the estimates hold as another program sees it: by table, by what tells a row from the others, by column. A
// column that holds nothing isn't there.
using TrailedRow = std::map<std::string, std::string>;
using TrailedTables = std::map<std::string, std::map<std::string, TrailedRow>>;
TrailedTables TrailedTablesOf(const std::filesystem::path& database);

// Does to the tables as they were what the trail of a database tells, and names the rows that it then has otherwise:
// "Labors 7|1". Empty when rows and trail agree.
std::vector<std::string> TrailDisagreements(TrailedTables before, const std::filesystem::path& database);

}  // namespace lantos::test
