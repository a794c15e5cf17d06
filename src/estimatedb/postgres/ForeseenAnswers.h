#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "estimatedb/engine/Recordset.h"

namespace lantos {

// What was asked for ahead, until it is wanted; each answer is given once.
class ForeseenAnswers {
 public:
  void Keep(std::string_view statement, std::vector<Value> values, Recordset answer);
  std::optional<Recordset> Take(std::string_view statement, const std::vector<Value>& values);
  void Forget();

 private:
  struct Answer {
    const std::string* statement;
    std::vector<Value> values;
    Recordset rows;
  };
  static std::size_t MarkOf(std::string_view statement, const std::vector<Value>& values);

  std::unordered_set<std::string> statements_;  // each once, whatever it was asked of
  const std::string* last_ = nullptr;
  std::unordered_multimap<std::size_t, Answer> answers_;
};

}  // namespace lantos
