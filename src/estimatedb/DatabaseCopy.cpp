#include "estimatedb/DatabaseCopy.h"

#include "estimatedb/EngineChoice.h"
#include "estimatedb/TableMove.h"

namespace lantos {

DatabaseCopy::DatabaseCopy(std::filesystem::path path, const Clock& clock) : path_(std::move(path)), clock_(clock) {
  if (!NamesServer(path_)) file_ = CopierOf(path_, clock_);
}

void DatabaseCopy::To(const std::filesystem::path& path) {
  if (file_) return file_->To(path);
  OpenedTables from = OpenTables(path_, clock_);
  OpenedTables to = CreateTablesFile(path, clock_);
  // One state is read, and nobody is kept from writing.
  from.engine->ReadTogether([&] { to.engine->Together([&] { MoveTables(from, to, [](const MoveProgress&) {}); }); });
}

}  // namespace lantos
