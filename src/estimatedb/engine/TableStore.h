#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

// What lies in a database cell by cell, for whoever carries it over to another engine: no page of the program and no
// meaning of the program's comes in between.
namespace lantos {

// Text is UTF-8.
using Cell = std::variant<std::monostate, std::int64_t, double, std::string>;
using CellRow = std::vector<Cell>;

// What a column takes. Short, Long: whole numbers of two and four bytes.
enum class CellKind { Short, Long, Number, Date, Text };

struct StoredColumn {
  std::string name;
  CellKind kind = CellKind::Text;
  std::size_t width = 0;  // of a text, as the file declares it and nobody enforces; 0 for none
};

// Rows of one table, one after the other.
class RowReader {
 public:
  virtual ~RowReader() = default;
  // False behind the last one.
  virtual bool Next(CellRow& row) = 0;
};

// The tables of one database. Everything here is called within Together of the engine that it belongs to, and throws
// DatabaseError. Names of tables and columns are told apart without regard to case.
class TableStore {
 public:
  virtual ~TableStore() = default;
  // Whether there is anything at all.
  virtual bool IsEmpty() = 0;
  virtual std::vector<std::string> Tables() = 0;
  // What the engine finds wrong in its own files, in its words; a server's are its keeper's affair.
  virtual std::vector<std::string> Damage() { return {}; }
  virtual std::vector<StoredColumn> ColumnsOf(const std::string& table) = 0;
  // The columns that the rows are told apart by; none where they have no key.
  virtual std::vector<std::string> KeyOf(const std::string& table) = 0;
  virtual std::int64_t CountOf(const std::string& table) = 0;
  // In the order of these columns, texts by their bytes; without any, as they came.
  virtual std::unique_ptr<RowReader> Read(const std::string& table, const std::vector<std::string>& columns,
                                          const std::vector<std::string>& order) = 0;
  virtual void Clear(const std::string& table) = 0;
  virtual void Drop(const std::string& table) = 0;
  // Values stand in the order of the columns, and each fits its column.
  virtual void Add(const std::string& table, const std::vector<std::string>& columns,
                   const std::vector<CellRow>& rows) = 0;
  // Behind the last row that was added: a server that hasn't looked at a table plans as if next to nothing stood in it.
  virtual void LookOver(const std::string& table) { static_cast<void>(table); }
  // The highest number that a counting column has given; 0 where none counts, or hasn't yet.
  virtual std::int64_t CounterOf(const std::string& table) = 0;
  virtual void SetCounter(const std::string& table, std::int64_t highest) = 0;
};

}  // namespace lantos
