#include "board/DetailLines.h"

#include "frame/Numbers.h"
#include "frame/Text.h"

namespace lantos {

namespace {

const std::string kDescriptionIndent(7, ' ');

}  // namespace

std::vector<std::string> SplitLaborText(std::string_view text) {
  std::vector<std::string> lines;
  while (lines.size() < kLaborTextLines) {
    const std::size_t tab = text.find('\t');
    lines.push_back(Trim(text.substr(0, tab)));
    if (tab == std::string_view::npos) break;
    text.remove_prefix(tab + 1);
  }
  return lines;
}

std::vector<std::string> LaborRows(const Recordset& labor) {
  std::vector<std::string> rows;
  rows.push_back(FormatZeros(labor.Long("Mechanic"), 6) + " " + FormatHundredths(labor.Long("LaborHours")) + " " +
                 FormatHundredths(labor.Long("LaborRate")) + " " + FormatHundredths(labor.Long("LaborTotal")));
  for (const std::string& line : SplitLaborText(labor.Text("Description"))) {
    if (!line.empty()) rows.push_back(kDescriptionIndent + line);
  }
  return rows;
}

std::string PartRow(const Recordset& part) {
  return LeftJustify(part.Text("PartNumber"), 21) + " " + LeftJustify(part.Text("PartDesc"), 20) + " " +
         RightJustify(std::to_string(part.Long("Quantity")), 5) + " " +
         RightJustify(FormatHundredths(part.Long("PartPrice")), 7) + " " +
         RightJustify(FormatHundredths(part.Long("PartTotal")), 7);
}

double TotalOfRow(std::string_view row) {
  const std::size_t blank = row.rfind(' ');
  return Val(blank == std::string_view::npos ? row : row.substr(blank + 1));
}

double HoursOfLaborRow(std::string_view row) {
  if (row.size() < 8) return 0;
  const std::string_view rest = row.substr(7);
  return Val(rest.substr(0, rest.find(' ')));
}

}  // namespace lantos
