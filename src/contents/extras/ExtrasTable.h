#pragma once

#include <optional>
#include <string>

#include "contents/Workbench.h"

namespace lantos {

// What tells the screen of sublets from the screen of waste.
struct ExtrasTable {
  const char* form;
  const char* list;           // the list's name on the form
  const char* caption;        // of the form
  const char* noun;           // of captions and messages
  const char* editorCaption;  // of the editor, for a new line
  LongField taxRate;

  const char* numberColumn;
  Recordset& (de::*stored)(std::int32_t estimate);
  Recordset& (de::*storedLine)(std::int32_t estimate, std::int32_t number);
  void (de::*add)(std::int32_t estimate, std::int32_t number, const de::Extra& line);
  void (de::*remove)(std::int32_t estimate, std::int32_t number);

  // Where a new line begins; nothing when the person takes none.
  std::optional<ExtraLine> (*newLine)(Workbench& bench);

  std::string DefaultTax(const Workbench& bench) const { return DefaultTaxable(bench.System().Get(taxRate)); }
};

extern const ExtrasTable kSubletExtras;
extern const ExtrasTable kWasteExtras;

}  // namespace lantos
