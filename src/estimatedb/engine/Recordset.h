#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "estimatedb/engine/ColumnList.h"
#include "frame/Types.h"

namespace lantos {

// A date on its way to the database.
struct DateValue {
  DaySerial day = 0;
  bool operator==(const DateValue&) const = default;
};

// What a column holds or a parameter carries. Text is in the program's page.
using Value = std::variant<std::monostate, std::int64_t, double, std::string, DateValue>;
bool IsNull(const Value& value);

// The rows of one statement, fetched whole, with one current row.
class Recordset {
 public:
  Recordset() = default;

  bool IsOpen() const { return columns_ != nullptr; }
  void Close();
  bool Eof() const { return current_ >= rows_.size(); }
  std::size_t Count() const { return rows_.size(); }
  void MoveFirst() { current_ = 0; }
  void MoveNext() { ++current_; }

  const std::vector<std::string>& Columns() const;
  bool HasColumn(std::string_view name) const;  // without regard to case
  ColumnType TypeOf(std::string_view column) const;

  // Columns of the current row by name. An unknown column throws DatabaseError, and so does a row that isn't there.
  bool IsNull(std::string_view column) const;
  std::int32_t Long(std::string_view column) const;  // null is 0; fractions to the nearest, halves to even
  double Number(std::string_view column) const;      // null is 0
  std::string Text(std::string_view column) const;   // null is empty
  DaySerial Date(std::string_view column, DaySerial whenNull = 0) const;
  const Value& operator[](std::string_view column) const;

  // "CustomerNumber ASC", "VehMake ASC, VehModel ASC": stable; numbers by value, text without regard to case, nulls
  // first. Becomes the order of the rows; the first one is current.
  void Sort(std::string_view order);
  // Rows that keep says no to are gone; the first one left is current. Keep sees each row as the current one.
  void Filter(const std::function<bool(const Recordset&)>& keep);

  // For those who fill it.
  void Open(std::vector<std::string> columns);
  void AddRow(std::vector<Value> values);
  // All rows at once, one behind the other; the number of cells is a multiple of the number of columns.
  void Open(std::shared_ptr<const ColumnList> columns, std::vector<Value> cells);

 private:
  std::size_t ColumnIndex(std::string_view name) const;
  const Value& Cell(std::uint32_t row, std::size_t column) const { return cells_[row * columns_->Count() + column]; }

  std::shared_ptr<const ColumnList> columns_;
  std::vector<Value> cells_;
  std::vector<std::uint32_t> rows_;  // the rows in their order, by their place in cells_
  std::size_t current_ = 0;
};

}  // namespace lantos
