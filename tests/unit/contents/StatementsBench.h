#pragma once

#include <set>
#include <span>
#include <string>
#include <tuple>

#include "contents/ContentsBench.h"
#include "records/modSystem.h"

namespace lantos::test {

// What the work on an estimate asks of the databases, statement by statement.
struct StatementsBench : ContentsBench {
  StatementsBench() {
    SystemRecord& system = records.system.SysRec;
    system.Put(sysrec::labor_surcharge_percent, 50000);
    system.Put(sysrec::surcharge_description, "SHOP SUPPLIES");
    CreateKorvelDatabase(directory / "Korvel.mdb", clock);
    Watch(database.lantosData, kLantosCommands, "Lantos.mdb");
    Watch(database.korvelData, kKorvelCommands, "Korvel.mdb");
  }

  void Watch(DataEnvironment& data, std::span<const Command> commands, std::string_view name) {
    data.Disconnect();
    data.SetOpener([this, commands, path = directory / std::string(name)] {
      return std::make_unique<WatchedEngine>(
          OpenDatabase(path, clock),
          [this, commands](std::string_view text) { (IsInTable(commands, text) ? known : strangers).emplace(text); },
          [this](std::string_view table, const std::vector<std::string>& columns) {
            edits.emplace(table);
            edits.insert(columns.begin(), columns.end());
          },
          [this](std::string_view statement, std::size_t place, const std::string& text) {
            texts.emplace(statement, place, text);
          });
    });
  }

  std::set<std::string> known;
  std::set<std::string> strangers;
  std::set<std::tuple<std::string, std::size_t, std::string>> texts;  // statement, place among its values, text
  std::set<std::string> edits;  // names of tables and columns that went into an edit of a recordset
};

}  // namespace lantos::test
