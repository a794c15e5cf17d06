#pragma once

#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "estimatedb/engine/SqlWords.h"

namespace lantos {

// The statements of the program are written in the dialect of the database it was first made for. What of it no engine
// takes is turned here, into the words of the engine that asks; docs/database.md has the table. Everything else passes
// unchanged.

enum class Width { Kept, Dropped };

// A type of the dialect, and what the engine calls it; of one with a width in brackets, whether that stays.
struct TypeName {
  std::string_view ours;
  std::string_view engines;
  Width width = Width::Kept;
};

enum class ConstraintNames { Kept, Dropped };

struct EngineWords {
  std::span<const TypeName> types;  // a type that isn't among them passes; "Counter" makes its column the key
  std::string_view today;           // the local day, as a column's default
  ConstraintNames constraintNames = ConstraintNames::Kept;
  std::string_view rowNumber = {};  // the column, with its type, that a table without a key is given behind the others
};

std::string Turned(std::string_view statement, const EngineWords& words);

// A change of a column's type.
struct ColumnChange {
  std::string table;
  std::string column;
  std::string type;  // as the engine is to see it
};
std::optional<ColumnChange> AsColumnChange(std::string_view statement, const EngineWords& words);

// Whether a statement begins with these keywords; an empty one stands for any word.
bool Begins(const std::vector<Word>& words, std::initializer_list<std::string_view> keywords);

}  // namespace lantos
