#pragma once

#include <map>
#include <string>
#include <vector>

#include "estimatedb/EngineChoice.h"
#include "estimatedb/OldTables.h"
#include "estimatedb/TableMove.h"

namespace lantos {

// One table of a Jet database on its way into a table of ours, which holds nothing yet that is worth keeping.
class JetTable {
 public:
  // leave: columns of any table that aren't to come over. The arguments outlive it.
  JetTable(OldTables& old, OpenedTables& to, std::string oldName, std::string name,
           const std::vector<std::string>& leave, const TellProgress& tell);

  // Copies, counts and compares. Throws DatabaseError, whose words say which row or column is against it.
  MovedTable Import();

  const std::vector<std::string>& LeftColumns() const { return leftColumns_; }
  const std::map<std::string, std::int64_t>& LongTexts() const { return longTexts_; }  // how many, by column
  bool IsOlder() const { return isOlder_; }  // it lacked columns, and so does ours now

 private:
  void TakeColumns(const OldRow& names);
  void DropWhatIsMissing();
  void TakeRow(const OldRow& row);
  void Count();
  void Compare();
  void Tell(MoveStep step, std::size_t done) const;
  [[noreturn]] void RefuseRow(const OldRow& row, const std::string& why) const;
  std::string MarkOf(const OldRow& row) const;
  bool IsKey(const std::string& column) const;

  // Where a value of the dump goes: a column of ours, or nowhere.
  struct Place {
    std::string name;
    CellKind kind = CellKind::Text;
    std::size_t width = 0;
    bool isTaken = true;
  };

  OldTables& old_;
  OpenedTables& to_;
  std::string oldName_;
  std::string name_;
  const std::vector<std::string>& leave_;
  const TellProgress& tell_;
  std::vector<Place> places_;         // one for each column of the dump
  std::vector<std::string> columns_;  // those taken, in that order
  std::vector<std::string> order_;    // by which rows are compared
  bool hasKey_ = false;
  std::vector<CellRow> rows_;
  std::int64_t count_ = 0;
  std::vector<std::string> leftColumns_;
  std::map<std::string, std::int64_t> longTexts_;
  bool isOlder_ = false;
};

}  // namespace lantos
