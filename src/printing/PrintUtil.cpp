#include "printing/PrintUtil.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lantos {

namespace {

// At the size of the detail's largest letters these fill the width of a Letter sheet between its margins.
constexpr std::size_t kUprightWidth = 94;
constexpr std::size_t kTurnedWidth = 126;

}  // namespace

PrintUtil::PrintUtil(ui::Desktop& desktop, std::string name, std::string title)
    : desktop_(desktop), name_(std::move(name)), title_(std::move(title)) {}

void PrintUtil::BeginPrintJob() {
  job_ = {};
  job_.design.name = name_;
  job_.design.caption = title_;
  job_.design.numbersPages = false;
  job_.design.columns = {{"DataLine", 0, 1, ui::Align::Left, ""}};
  job_.title = title_;
  isOpen_ = true;
  column_ = line_ = 0;
  SetOrientation(ui::Orientation::Portrait);
}

void PrintUtil::EndPrintJob() {
  if (!std::exchange(isOpen_, false)) return;
  if (job_.lines.empty() && job_.boxes.empty()) return;
  double end = 0;
  for (const ui::DetailBox& box : job_.boxes) end = std::max(end, box.bottom);
  const auto lines = static_cast<std::size_t>(std::ceil(end));
  while (job_.lines.size() < lines) job_.lines.emplace_back(1);
  desktop_.PrintReport(job_, ui::PrinterDialog::Skipped);
}

bool PrintUtil::SetOrientation(ui::Orientation orientation) {
  job_.design.orientation = orientation;
  job_.design.characters = orientation == ui::Orientation::Landscape ? kTurnedWidth : kUprightWidth;
  return true;
}

void PrintUtil::PrintText(std::string_view text, Pen then) { PrintAt(column_, text, then); }

void PrintUtil::PrintCentered(std::string_view text, Pen then) {
  if (text.empty() && then == Pen::Stays) return;
  PrintAt((PageWidth() - std::min(text.size(), PageWidth())) / 2, text, then);
}

void PrintUtil::PrintRight(std::string_view text, Pen then) {
  if (text.empty() && then == Pen::Stays) return;
  PrintAt(PageWidth() - std::min(text.size() + 1, PageWidth()), text, then);
}

void PrintUtil::PrintBox(float left, float top, float right, float bottom) {
  if (isOpen_) job_.boxes.push_back({left, top, right, bottom});
}

std::size_t PrintUtil::PageWidth() const { return job_.design.characters; }

// Over what stands there already: blanks cover nothing.
void PrintUtil::PrintAt(std::size_t column, std::string_view text, Pen then) {
  if (!isOpen_) return;
  if (job_.lines.size() <= line_) job_.lines.resize(line_ + 1, {""});
  std::string& line = job_.lines[line_][0];
  const std::size_t end = std::min(column + text.size(), PageWidth());
  if (line.size() < end) line.resize(end, ' ');
  for (std::size_t i = column; i < end; ++i) {
    if (text[i - column] != ' ') line[i] = text[i - column];
  }
  column_ = column + text.size();
  if (then == Pen::Stays) return;
  column_ = 0;
  ++line_;
}

}  // namespace lantos
