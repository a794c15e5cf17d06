#include "contents/labor/LaborRows.h"

#include "frame/Numbers.h"
#include "frame/Text.h"
#include "records/LaborText.h"

namespace lantos {

namespace {

const std::string kDescriptionIndent(7, ' ');

}  // namespace

std::vector<std::string> LaborRows(const WoLaborLine& line) {
  std::vector<std::string> rows;
  rows.push_back(FormatZeros(line.Mechanic, 6) + " " + FormatHundredths(line.Hours) + " " +
                 FormatHundredths(line.Rate) + " " + FormatHundredths(line.Total));
  for (const std::string& text : line.Desc) {
    if (!text.empty()) rows.push_back(kDescriptionIndent + text);
  }
  return rows;
}

WoLaborLine ReadLaborLine(const Recordset& row) {
  WoLaborLine line;
  line.Hours = row.Long("LaborHours");
  line.Rate = row.Long("LaborRate");
  line.Total = row.Long("LaborTotal");
  line.Mechanic = row.Long("Mechanic");
  line.Desc = SplitLaborText(row.Text("Description"));
  return line;
}

LineValues ValuesOf(const WoLaborLine& line) {
  LineValues values = {{"Technician", FormatZeros(line.Mechanic, 6)},
                       {"Hours", FormatHundredths(line.Hours)},
                       {"Rate", FormatHundredths(line.Rate)},
                       {"Total", FormatHundredths(line.Total)}};
  AddTexts(values, "Description", SplitLaborText(JoinLaborText(line.Desc)));
  return values;
}

}  // namespace lantos
