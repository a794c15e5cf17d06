#include "shopmaker/ShopTrail.h"

#include <fmt/format.h>

#include "estimatedb/EngineChoice.h"
#include "estimatedb/EstimateDatabase.h"
#include "frame/Dates.h"
#include "frame/FileIO.h"
#include "frame/PathText.h"
#include "shopmaker/ShopDirectory.h"

namespace lantos {

std::int64_t PruneShopTrail(const std::filesystem::path& directory, DaySerial firstKept, Clock& clock,
                            const std::function<void()>& look) {
  if (firstKept > clock.Today()) {
    throw ShopError(fmt::format("{} is still to come; nothing was taken off the trail.", FormatIsoDate(firstKept)));
  }
  FileIO files(clock);
  files.SetDataDir(TextOfPath(directory / ""));
  if (!files.IsThere(kLantosDatabase)) {
    throw ShopError(fmt::format("There is no {} in {}.", kLantosDatabase, directory.string()));
  }
  de database;
  database.SetOpener([&] { return OpenDatabase(files.PathOf(kLantosDatabase), clock); });
  database.Connection();
  look();
  return PruneTrail(database, firstKept);
}

}  // namespace lantos
