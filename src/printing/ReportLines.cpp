#include "printing/ReportLines.h"

#include "frame/Text.h"

namespace lantos {

void ReportLines::Add(const std::string& dataLine, const std::string& amount1, const std::string& amount2,
                      const std::string& amount3) {
  std::vector<std::string> row{Left(dataLine, kDataLineWidth)};
  if (amounts_ == Amounts::Three) {
    for (const std::string* amount : {&amount1, &amount2, &amount3}) row.push_back(Left(*amount, kAmountWidth));
  }
  rows_.push_back(std::move(row));
  kinds_.push_back(ui::LineKind::Text);
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
