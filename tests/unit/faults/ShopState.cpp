#include "faults/ShopState.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <set>

namespace lantos::test {

namespace {

// Files that are written as a whole, and the kits of standard jobs, of which a blank record is none.
const std::set<std::string> kTexts = {"Lantos.ini", "TQCANLAB.DAT", "TQCANNOT.DAT", "DISC_EST.TXT", "TQLABKIT.DAT"};

// As another program sees it, which takes back what a killed one has left half done. Of the trail, TrailAgreement tells
// whether it agrees with the rest.
void AddRows(const std::filesystem::path& path, ShopState& state) {
  SQLite::Database database(path.string(), SQLite::OPEN_READWRITE, 1000);
  std::vector<std::string> tables;
  SQLite::Statement names(
      database, "select name from sqlite_master where type = 'table' and name not like 'sqlite_%' and name <> 'Trail'");
  while (names.executeStep()) tables.push_back(names.getColumn(0).getString());
  for (const std::string& table : tables) {
    SQLite::Statement rows(database, "select * from \"" + table + "\"");
    std::string& content = state[path.filename().string() + ":" + table];
    while (rows.executeStep()) {
      for (int i = 0; i < rows.getColumnCount(); ++i) content += rows.getColumn(i).getString() + "|";
      content += "\n";
    }
  }
}

}  // namespace

ShopState StateOf(const ScratchDirectory& directory) {
  ShopState state;
  for (const auto& entry : std::filesystem::directory_iterator(directory.Path())) {
    const std::string name = entry.path().filename();
    const bool isLog = name.starts_with("LN") && name.ends_with(".LOG");
    if (!entry.is_regular_file() || isLog || name.ends_with("-journal")) continue;
    if (name.ends_with(".mdb")) {
      AddRows(entry.path(), state);
    } else {
      std::string& content = state[name] = directory.Content(name);
      // As it is read: room that was taken for a text that never came.
      if (kTexts.contains(name)) content.erase(content.find_last_not_of('\0') + 1);
    }
  }
  return state;
}

std::vector<std::string> Differences(const ShopState& a, const ShopState& b) {
  std::vector<std::string> names;
  for (const auto& [name, content] : a) {
    const auto other = b.find(name);
    // A file that was made and has nothing in it is as good as none.
    if (other == b.end() ? !content.empty() : other->second != content) names.push_back(name);
  }
  for (const auto& [name, content] : b) {
    if (!a.contains(name) && !content.empty()) names.push_back(name);
  }
  return names;
}

bool AreAlikeInSize(const ShopState& a, const ShopState& b) {
  for (const std::string& name : Differences(a, b)) {
    const auto first = a.find(name);
    const auto second = b.find(name);
    if (first == a.end() || second == b.end() || first->second.size() != second->second.size()) return false;
  }
  return true;
}

}  // namespace lantos::test
