#pragma once

#include <string>
#include <vector>

#include "estimatedb/OldTables.h"
#include "estimatedb/TableMove.h"
#include "frame/Environment.h"
#include "shop/Records.h"

namespace lantos {

// A text that is longer than the program lets anybody type there. The file holds it whole.
struct LongTexts {
  std::string column;  // with its table: "Parts.PartDesc"
  std::int64_t count = 0;
};

// What came over from a Jet database.
struct JetImport {
  std::vector<MovedTable> tables;
  std::vector<std::string> leftBehind;  // tables that aren't the program's, and columns that were to be left
  std::vector<LongTexts> longTexts;
  bool wasUpgraded = false;  // an older program's, brought to the current shape
  std::string kept;          // the name that the Jet file has now
};

// Makes a Lantos.mdb of the program's own from the tables of the Jet database that lies under that name. Every row is
// taken over, counted against what the Jet database believes in, and compared with what has come to lie in the new
// file, which then goes through UpgradeDatabase. Only when all that is done does it take the place of the Jet file,
// which lies beside it under another name from then on. leave has columns that aren't the program's, as
// "Estimates.Extra": any others end the import. Throws DatabaseError, FileError or what old throws; the shop is as it
// was then.
JetImport ImportJet(Environment& environment, Records& records, OldTables& old, const std::vector<std::string>& leave,
                    const TellProgress& tell);

}  // namespace lantos
