#include "printing/ReportLines.h"

#include "frame/Text.h"

namespace lantos {

void ReportLines::Add(const std::string& dataLine, const std::string& amount1, const std::string& amount2,
                      const std::string& amount3) {
  AddRow(ui::LineKind::Text, dataLine, {amount1, amount2, amount3});
}

void ReportLines::AddRow(ui::LineKind kind, const std::string& dataLine, std::initializer_list<std::string> amounts) {
  std::vector<std::string> row{Left(dataLine, kDataLineWidth)};
  const auto columns = 1 + static_cast<std::size_t>(amounts_);
  for (const std::string& amount : amounts) {
    if (row.size() < columns) row.push_back(Left(amount, kAmountWidth));
  }
  row.resize(columns);
  rows_.push_back(std::move(row));
  kinds_.push_back(kind);
}

void ReportLines::AddHeading(const std::string& text) {
  Add(text);
  kinds_.back() = ui::LineKind::Heading;
}

void ReportLines::AddLeading(const std::string& text) {
  Add(text);
  kinds_.back() = ui::LineKind::Leading;
}

void ReportLines::AddRule(const std::string& text) {
  Add(text);
  kinds_.back() = ui::LineKind::Rule;
}

}  // namespace lantos
