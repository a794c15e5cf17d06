#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "estimatedb/CommandTable.h"
#include "estimatedb/engine/Engine.h"

namespace lantos::test {

// An engine that tells of each statement, of each text that goes into its places, and of each edit of a recordset,
// before the true one does it. What the watch throws is its failure.
class WatchedEngine : public Engine {
 public:
  using Tells = std::function<void(std::string_view statement)>;
  using WatchEdits = std::function<void(std::string_view table, const std::vector<std::string>& columns)>;
  // The place counts from 0.
  using WatchTexts = std::function<void(std::string_view statement, std::size_t place, const std::string& text)>;

  WatchedEngine(
      std::unique_ptr<Engine> engine, Tells watch,
      WatchEdits watchEdits = [](std::string_view, const std::vector<std::string>&) {},
      WatchTexts watchTexts = [](std::string_view, std::size_t, const std::string&) {})
      : engine_(std::move(engine)),
        watch_(std::move(watch)),
        watchEdits_(std::move(watchEdits)),
        watchTexts_(std::move(watchTexts)) {}

  Recordset Run(std::string_view statement, const std::vector<Value>& parameters) override {
    Tell(statement, parameters);
    return engine_->Run(statement, parameters);
  }
  void Insert(std::string_view table, const std::vector<std::string>& columns,
              const std::vector<Value>& values) override {
    watchEdits_(table, columns);
    engine_->Insert(table, columns, values);
  }
  void UpdateFirst(std::string_view table, const std::vector<std::string>& columns, const std::vector<Value>& values,
                   const RowKey& key) override {
    watchEdits_(table, columns);
    engine_->UpdateFirst(table, columns, values, key);
  }
  void DeleteFirst(std::string_view table, const RowKey& key) override {
    watchEdits_(table, {std::string(key.column)});
    engine_->DeleteFirst(table, key);
  }
  void Together(const std::function<void()>& work) override { engine_->Together(work); }
  void Apart(const std::function<void()>& work) override { engine_->Apart(work); }
  void ReadTogether(const std::function<void()>& work) override { engine_->ReadTogether(work); }
  void Post(std::string_view statement, const std::vector<Value>& parameters) override {
    Tell(statement, parameters);
    engine_->Post(statement, parameters);
  }
  bool IsFar() const override { return engine_->IsFar(); }
  std::unique_ptr<ChangeWatch> Watch(const WatchTimes& times) override { return engine_->Watch(times); }
  void Foresee(const std::vector<Question>& questions) override { engine_->Foresee(questions); }
  void ReadAhead(const std::vector<Question>& questions, const std::function<void()>& work) override {
    engine_->ReadAhead(questions, work);
  }

 private:
  void Tell(std::string_view statement, const std::vector<Value>& parameters) {
    watch_(statement);
    for (std::size_t place = 0; place < parameters.size(); ++place) {
      if (const auto* text = std::get_if<std::string>(&parameters[place])) watchTexts_(statement, place, *text);
    }
  }

  std::unique_ptr<Engine> engine_;
  Tells watch_;
  WatchEdits watchEdits_;
  WatchTexts watchTexts_;
};

inline bool IsInTable(std::span<const Command> commands, std::string_view statement) {
  return std::any_of(commands.begin(), commands.end(),
                     [statement](const Command& command) { return command.statement == statement; });
}

}  // namespace lantos::test
