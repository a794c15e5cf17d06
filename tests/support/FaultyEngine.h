#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "estimatedb/EngineChoice.h"
#include "estimatedb/EstimateDatabase.h"
#include "support/FaultyCalls.h"

namespace lantos::test {

// Which statements of a run fail. It outlives the engines that are opened under it.
class StatementFaults {
 public:
  // The statement of this index, counted from 0, fails, and the times - 1 behind it. A transaction's begin and its end
  // count as statements.
  void FailAt(std::size_t index, Fault fault, int times = 1) {
    When([index, fault, times](std::string_view, std::size_t at) -> const Fault* {
      static constexpr Fault kEach[] = {Fault::DiskFull, Fault::DeviceIo, Fault::ReadOnly, Fault::Held};
      const bool isDue = at >= index && at < index + static_cast<std::size_t>(times);
      return isDue ? &kEach[static_cast<std::size_t>(fault)] : nullptr;
    });
  }
  // Null lets the statement through.
  using Decide = std::function<const Fault*(std::string_view statement, std::size_t index)>;
  void When(Decide decide) { decide_ = std::move(decide); }
  void Mend() { decide_ = nullptr; }

  const std::vector<std::string>& Statements() const { return statements_; }
  std::size_t Failed() const { return failed_; }

  // For the engine: throws what the true one would.
  void Take(std::string_view statement) {
    const std::size_t index = statements_.size();
    statements_.emplace_back(statement);
    const Fault* fault = decide_ ? decide_(statement, index) : nullptr;
    if (fault == nullptr) return;
    ++failed_;
    const DatabaseErrorKind kind = KindOf(*fault);
    throw DatabaseError(NameOf(*fault) + "\n\nStatement: " + std::string(statement), kind, 1,
                        std::string(WordsOf(kind)) + "\n\nLantos.mdb");
  }

 private:
  static DatabaseErrorKind KindOf(Fault fault) {
    constexpr DatabaseErrorKind kKinds[] = {DatabaseErrorKind::Full, DatabaseErrorKind::Unreachable,
                                            DatabaseErrorKind::ReadOnly, DatabaseErrorKind::Locked};
    return kKinds[static_cast<std::size_t>(fault)];
  }

  std::vector<std::string> statements_;
  std::size_t failed_ = 0;
  Decide decide_;
};

// An engine whose statements fail on purpose, undone. A full or broken disk takes the whole transaction back with them,
// as the true engine does, whatever is made of the error on the way.
class FaultyEngine : public Engine {
 public:
  FaultyEngine(std::unique_ptr<Engine> engine, StatementFaults& faults) : engine_(std::move(engine)), faults_(faults) {}

  Recordset Run(std::string_view statement, const std::vector<Value>& parameters) override {
    Take(statement);
    return engine_->Run(statement, parameters);
  }
  void Insert(std::string_view table, const std::vector<std::string>& columns,
              const std::vector<Value>& values) override {
    Take("insert into " + std::string(table));
    engine_->Insert(table, columns, values);
  }
  void UpdateFirst(std::string_view table, const std::vector<std::string>& columns, const std::vector<Value>& values,
                   const RowKey& key) override {
    Take("update " + std::string(table));
    engine_->UpdateFirst(table, columns, values, key);
  }
  void DeleteFirst(std::string_view table, const RowKey& key) override {
    Take("delete from " + std::string(table));
    engine_->DeleteFirst(table, key);
  }
  void Together(const std::function<void()>& work) override {
    Take("begin");
    undone_ = nullptr;
    engine_->Together([&] {
      ++depth_;
      try {
        work();
        if (!undone_) Take("commit");
      } catch (...) {
        --depth_;
        throw;
      }
      --depth_;
      if (undone_) std::rethrow_exception(undone_);
    });
  }
  void Apart(const std::function<void()>& work) override {
    Take("savepoint");
    engine_->Apart(work);
  }
  void ReadTogether(const std::function<void()>& work) override {
    Take("begin to read");
    engine_->ReadTogether(work);
  }
  void Post(std::string_view statement, const std::vector<Value>& parameters) override {
    faults_.Take(statement);
    engine_->Post(statement, parameters);
  }
  bool IsFar() const override { return engine_->IsFar(); }
  void Foresee(const std::vector<Question>& questions) override { engine_->Foresee(questions); }
  void ReadAhead(const std::vector<Question>& questions, const std::function<void()>& work) override {
    engine_->ReadAhead(questions, work);
  }

 private:
  void Take(std::string_view statement) {
    if (depth_ > 0 && undone_) std::rethrow_exception(undone_);
    try {
      faults_.Take(statement);
    } catch (const DatabaseError& error) {
      const bool isUndone = error.Kind() == DatabaseErrorKind::Full || error.Kind() == DatabaseErrorKind::Unreachable;
      if (depth_ > 0 && isUndone) undone_ = std::current_exception();
      throw;
    }
  }

  std::unique_ptr<Engine> engine_;
  StatementFaults& faults_;
  int depth_ = 0;  // of transactions
  std::exception_ptr undone_;
};

// From its next statement on the shop's database is one whose statements fail as it is told. The faults outlive it.
inline void MakeFaulty(DataEnvironment& data, std::string_view file, Environment& environment,
                       StatementFaults& faults) {
  data.Disconnect();
  data.SetOpener([&environment, &faults, file] {
    return std::make_unique<FaultyEngine>(OpenDatabase(environment.files.PathOf(file), environment.clock), faults);
  });
}
inline void MakeFaulty(EstimateDatabase& database, Environment& environment, StatementFaults& faults) {
  MakeFaulty(database.lantosData, kLantosDatabase, environment, faults);
}

}  // namespace lantos::test
