#include "caretaker/exchange/MdbTools.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <sstream>

#include "caretaker/exchange/CommandOutput.h"
#include "caretaker/exchange/CsvRows.h"
#include "shopmaker/ShopDirectory.h"

namespace lantos {

namespace {

// Texts come in UTF-8, those of the older form of such files out of the page that the earlier program worked in;
// numbers have a point whatever the person's language.
const std::vector<Variable> kVariables = {
    {"MDBICONV", "UTF-8"}, {"MDB_JET3_CHARSET", "CP1252"}, {"MDBOPTS", ""}, {"LC_ALL", "C.UTF-8"}};

// mdb-export cuts what is longer.
constexpr std::size_t kLongestText = 199'999;

void RefuseCutText(const std::string& table, const OldRow& row) {
  for (const std::optional<std::string>& value : row) {
    if (!value || value->size() < kLongestText) continue;
    throw ShopError(
        fmt::format("A text of the table \"{}\" is so long that mdb-export cuts it. Nothing was changed.\n\n"
                    "Shorten it with the earlier program first: it begins with \"{}\".",
                    table, value->substr(0, 40)));
  }
}

}  // namespace

void MdbTools::Run(std::vector<std::string> words, const std::function<void(std::string_view)>& take) {
  try {
    const std::string complaint = RunCommand(words, kVariables, take, look_);
    const std::string line = fmt::format("{} says: {}", words.front(), complaint);
    if (!complaint.empty() && std::find(complaints_.begin(), complaints_.end(), line) == complaints_.end()) {
      complaints_.push_back(line);
    }
  } catch (const CommandMissing&) {
    throw ShopError(
        fmt::format("There is no {0}, which reads Jet databases. Nothing was changed.\n\nInstall mdbtools first: apt "
                    "install mdbtools.",
                    words.front()));
  } catch (const CommandError& error) {
    throw ShopError(fmt::format("\"{}\" can't be read. {} Nothing was changed.", file_.string(), error.what()));
  }
}

std::string MdbTools::OutputOf(std::vector<std::string> words) {
  std::string text;
  Run(std::move(words), [&](std::string_view piece) { text += piece; });
  return text;
}

std::vector<std::string> MdbTools::Names() {
  std::istringstream lines(OutputOf({"mdb-tables", "-1", file_.string()}));
  std::vector<std::string> names;
  for (std::string line; std::getline(lines, line);) {
    if (!line.empty()) names.push_back(line);
  }
  if (names.empty()) {
    throw ShopError(fmt::format("\"{}\" has no tables. Nothing was changed.", file_.string()));
  }
  return names;
}

std::int64_t MdbTools::CountOf(const std::string& table) {
  std::string text = OutputOf({"mdb-count", file_.string(), table});
  while (text.ends_with('\n')) text.pop_back();
  std::int64_t count = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
  if (text.empty() || error != std::errc() || end != text.data() + text.size()) {
    throw ShopError(
        fmt::format("How many rows the table \"{}\" has isn't known: mdb-count says \"{}\". Nothing was changed.",
                    table, text.substr(0, 40)));
  }
  return count;
}

void MdbTools::Read(const std::string& table, const std::function<void(OldRow&&)>& take) {
  CsvRows rows([&](OldRow&& row) {
    RefuseCutText(table, row);
    take(std::move(row));
  });
  try {
    Run({"mdb-export", "-D", "%Y-%m-%d", "-T", "%Y-%m-%d %H:%M:%S", "-b", "strip", file_.string(), table},
        [&](std::string_view piece) { rows.Feed(piece); });
    rows.Finish();
  } catch (const CsvError& error) {
    throw ShopError(
        fmt::format("What mdb-export tells of the table \"{}\" can't be understood: {}. Nothing was changed.", table,
                    error.what()));
  }
}

}  // namespace lantos
