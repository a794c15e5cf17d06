#include <fmt/core.h>

#include "estimatedb/de.h"
#include "frame/Dates.h"

namespace lantos {

namespace {

bool Fits(ParameterKind kind, const Value& value) {
  switch (kind) {
    case ParameterKind::Long:
      return std::holds_alternative<std::int64_t>(value);
    case ParameterKind::Text:
    case ParameterKind::DateText:
      return std::holds_alternative<std::string>(value);
    default:
      return std::holds_alternative<DateValue>(value);
  }
}

// Values as the command takes them. A date that comes as a text is compared as a date.
std::vector<Value> Checked(const Command& command, const std::vector<Value>& values) {
  if (values.size() != command.parameters.count) {
    throw DatabaseError(fmt::format("Command \"{}\" was given {} values.", command.name, values.size()));
  }
  std::vector<Value> checked = values;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (!Fits(command.parameters[i], values[i])) {
      throw DatabaseError(fmt::format("Value {} of command \"{}\" is of another kind.", i + 1, command.name));
    }
    if (command.parameters[i] != ParameterKind::DateText) continue;
    const std::string& text = std::get<std::string>(values[i]);
    const std::optional<DaySerial> day = ParseDate(text);
    if (!day) throw DatabaseError(fmt::format("Command \"{}\" needs a date: \"{}\" is none.", command.name, text));
    checked[i] = DateValue{*day};
  }
  return checked;
}

}  // namespace

void DataEnvironment::Disconnect() {
  CloseRecordsets();
  engine_.reset();
}

Engine& DataEnvironment::Connection() {
  if (!engine_) {
    if (!open_) throw DatabaseError("The database's place isn't known yet.");
    engine_ = open_();
  }
  return *engine_;
}

Recordset& DataEnvironment::Rs(std::string_view command) {
  const auto found = recordsets_.find(command);
  if (found != recordsets_.end()) return found->second;
  return recordsets_[std::string(FindCommand(commands_, command).name)];
}

void DataEnvironment::CloseRecordsets() {
  for (auto& [name, recordset] : recordsets_) recordset.Close();
}

std::vector<Question> DataEnvironment::QuestionsOf(const std::vector<Foreseen>& commands) const {
  std::vector<Question> questions;
  for (const Foreseen& each : commands) {
    const Command& entry = FindCommand(commands_, each.command);
    questions.push_back({entry.statement, Checked(entry, each.values)});
  }
  return questions;
}

void DataEnvironment::Foresee(const std::vector<Foreseen>& commands) { Connection().Foresee(QuestionsOf(commands)); }

void DataEnvironment::ReadAhead(const std::vector<Foreseen>& commands, const std::function<void()>& work) {
  Connection().ReadAhead(QuestionsOf(commands), work);
}

void DataEnvironment::Post(std::string_view command, const std::vector<Value>& values) {
  const Command& entry = FindCommand(commands_, command);
  Connection().Post(entry.statement, Checked(entry, values));
}

Recordset& DataEnvironment::Run(std::string_view command, const std::vector<Value>& values) {
  Recordset& recordset = Rs(command);
  recordset.Close();
  const Command& entry = FindCommand(commands_, command);
  recordset = Connection().Run(entry.statement, Checked(entry, values));
  return recordset;
}

}  // namespace lantos
