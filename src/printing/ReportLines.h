#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "ui/Report.h"

namespace lantos {

// The body of a report: its lines in the order in which they are printed, composed down to the last character by
// whoever fills it. A text is cut at the width of its column.
class ReportLines {
 public:
  static constexpr std::size_t kDataLineWidth = 255;
  static constexpr std::size_t kAmountWidth = 20;

  // How many columns stand beside DataLine.
  enum class Amounts { None = 0, Three = 3, Five = 5 };
  explicit ReportLines(Amounts amounts) : amounts_(amounts) {}

  void Add(const std::string& dataLine, const std::string& amount1 = " ", const std::string& amount2 = " ",
           const std::string& amount3 = " ");
  // With as many amounts as there are; those behind the last one given are empty.
  void AddRow(ui::LineKind kind, const std::string& dataLine, std::initializer_list<std::string> amounts = {});
  void AddBlank() { Add(" "); }
  void AddHeading(const std::string& text);
  void AddLeading(const std::string& text);  // goes with what follows
  void AddRule(const std::string& text);     // for somebody to write on

  const std::vector<std::vector<std::string>>& Rows() const { return rows_; }
  const std::vector<ui::LineKind>& Kinds() const { return kinds_; }

 private:
  Amounts amounts_;
  std::vector<std::vector<std::string>> rows_;
  std::vector<ui::LineKind> kinds_;
};

}  // namespace lantos
