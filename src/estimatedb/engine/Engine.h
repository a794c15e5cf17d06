#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "estimatedb/engine/ChangeWatch.h"
#include "estimatedb/engine/DatabaseError.h"
#include "estimatedb/engine/Recordset.h"

namespace lantos {

// How long a lock that another copy of the program holds is waited for, unless somebody says otherwise.
inline constexpr std::chrono::milliseconds kBusyTimeout{5000};

// The one row that a change through a recordset is meant for: the first whose column has the value.
struct RowKey {
  std::string_view column;
  Value value;
};

// A statement and its values.
struct Question {
  std::string_view statement;
  std::vector<Value> values;
};

// A database behind the named commands: opens, runs a statement with parameters, gives rows by column name. Text
// crosses this border in the program's page and lies as Unicode in the database; dates lie there as ISO text.
// Every call throws DatabaseError when the engine refuses.
class Engine {
 public:
  virtual ~Engine() = default;
  // Runs a statement of the program's dialect. Rows, if it has any, are fetched whole; a statement without rows gives
  // a closed recordset.
  virtual Recordset Run(std::string_view statement, const std::vector<Value>& parameters) = 0;
  // What recordsets do to the one table they come from: a new row, a changed one, one row less. Where no row has the
  // key, a change or removal does nothing.
  virtual void Insert(std::string_view table, const std::vector<std::string>& columns,
                      const std::vector<Value>& values) = 0;
  virtual void UpdateFirst(std::string_view table, const std::vector<std::string>& columns,
                           const std::vector<Value>& values, const RowKey& key) = 0;
  virtual void DeleteFirst(std::string_view table, const RowKey& key) = 0;
  // All of the work or nothing of it, kept together and written once.
  virtual void Together(const std::function<void()>& work) = 0;
  // Within Together, a part of the work that may fail by itself: what it did is undone, its error goes on, and what was
  // done before stands for whoever goes on with it. Where the engine has undone everything (on a full disk, say),
  // Together ends with that error, whatever is made of it on the way.
  virtual void Apart(const std::function<void()>& work) = 0;
  // Statements that only read, seeing one state of the database and sharing one lock: many small ones take a third of
  // the time. Nobody can write meanwhile, so nothing in the work may wait for a person.
  virtual void ReadTogether(const std::function<void()>& work) = 0;
  // Within Together, a change that nothing is asked of: an engine that is far away may send it along with whatever
  // comes next, the commit at the latest. Where it fails, all of the work does, then. Within Apart, and elsewhere, it
  // is Run.
  virtual void Post(std::string_view statement, const std::vector<Value>& parameters) { Run(statement, parameters); }
  // Whether an answer is far away, so that it pays to say what will be asked next.
  virtual bool IsFar() const { return false; }
  // Within a transaction: reading statements that Run will be given next. An engine that is far away asks for all of
  // them in one go and has the answers when they are wanted; to others it is nothing.
  virtual void Foresee(const std::vector<Question>& questions) { static_cast<void>(questions); }
  // Outside of any transaction: work that begins with these reading statements, which an engine that is far away asks
  // in one go, and of one state. Work doesn't change anything, and may wait for a person.
  virtual void ReadAhead(const std::vector<Question>& questions, const std::function<void()>& work) {
    static_cast<void>(questions);
    work();
  }
  // Follows from here on what others change. The engine outlives it. Null where that can't be.
  virtual std::unique_ptr<ChangeWatch> Watch(const WatchTimes& times) {
    static_cast<void>(times);
    return nullptr;
  }
};

}  // namespace lantos
