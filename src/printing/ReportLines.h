#pragma once

#include <string>
#include <vector>

namespace lantos {

// The body of a report: its lines in the order in which they are printed, composed down to the last character by
// whoever fills it. A text is cut at the width of its column.
class ReportLines {
 public:
  static constexpr std::size_t kDataLineWidth = 255;
  static constexpr std::size_t kAmountWidth = 20;

  // With the columns Amt1, Amt2 and Amt3 beside DataLine, or without.
  explicit ReportLines(bool withAmounts) : withAmounts_(withAmounts) {}

  void Add(const std::string& dataLine, const std::string& amount1 = " ", const std::string& amount2 = " ",
           const std::string& amount3 = " ");
  void AddBlank() { Add(" "); }

  const std::vector<std::vector<std::string>>& Rows() const { return rows_; }

 private:
  bool withAmounts_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace lantos
