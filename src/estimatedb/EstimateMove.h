#pragma once

#include <string>

#include "estimatedb/TableMove.h"
#include "frame/FileIO.h"

namespace lantos {

// Where the estimates of a shop were, and what of them was moved.
struct EstimateMove {
  MovedTables moved;
  std::string kept;  // the name that the old database has now: a file's, or a schema's
};

// Copies the tables of Lantos.mdb to a schema of a server, whose address is a text as libpq takes it, and puts a file
// that names it in their place. Nobody else can write meanwhile. Until that file is there, which is the last step, the
// old database is the shop's; from then on it lies beside it under another name. The schema is made where there is
// none. Throws DatabaseError or FileError, whose words are for the person; the shop is as it was then.
EstimateMove MoveToServer(const FileIO& files, const std::string& server, const std::string& schema,
                          const TellProgress& tell);

// The way back: a new Lantos.mdb takes the place of the file that names the server, and the schema gets another name.
// Where the server is against that the schema keeps its name, and none is returned.
EstimateMove MoveToFile(const FileIO& files, const TellProgress& tell);

}  // namespace lantos
