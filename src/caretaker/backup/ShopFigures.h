#pragma once

#include <filesystem>
#include <vector>

#include "caretaker/backup/Manifest.h"
#include "frame/Clock.h"

namespace lantos {

// What a shop comes to: records of each file, rows and sums of each table of its databases, and how many of its links
// from file to file, and from the database to a file, lead to what they should. Nobody else works in the directory. A
// file that isn't there has no figures. Throws DatabaseError where a database can't be read to its end, FileError.
std::vector<ShopFigure> FiguresOf(const std::filesystem::path& directory, const Clock& clock);

}  // namespace lantos
