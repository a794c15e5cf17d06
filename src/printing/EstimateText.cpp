#include "printing/EstimateText.h"

#include "frame/Text.h"
#include "workorders/Workorder.h"

namespace lantos {

LaborText LaborOnPaper(std::string_view description) {
  LaborText lines = SplitLaborText(description);
  for (std::string& line : lines) line = Left(line, kLaborLineWidth);
  return lines;
}

std::string PartOnPaper(const Recordset& part, PartNumber number) {
  return (number == PartNumber::Shown ? part.Text("PartNumber") + " " : std::string()) + part.Text("PartDesc");
}

bool AddNotes(ReportLines& lines, Recordset& rows) {
  const bool any = !rows.Eof();
  if (any) lines.AddHeading("____Notes____");
  for (; !rows.Eof(); rows.MoveNext()) {
    for (std::size_t i = 1; i <= kNoteLines; ++i) {
      const std::string text = rows.Text("Desc" + std::to_string(i));
      if (!Trim(text).empty()) lines.Add(text);
    }
  }
  rows.Close();
  return any;
}

}  // namespace lantos
