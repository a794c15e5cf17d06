#include "ui/Report.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "frame/FileError.h"
#include "frame/Text.h"
#include "ui/Desktop.h"

namespace lantos::ui {

namespace {

constexpr double kCharacterWidth = 0.6003;  // of the fixed-pitch font, a little more than exact
constexpr double kLargestDetail = 9.5;
constexpr double kDetailLeading = 1.2;
constexpr double kLabelLeading = 1.25;
constexpr double kHeadingHeight = 14;
constexpr double kPageFooterHeight = 18;

std::size_t GrownLines(const Report& report, Band band, double& size) {
  for (const ReportLabel& label : report.design.labels) {
    if (label.band != band || !label.grows || label.text.empty()) continue;
    size = label.size;
    return LinesOf(label.text).size();
  }
  return 0;
}

void Replace(std::string& text, std::string_view what, std::size_t number) {
  if (const std::size_t at = text.find(what); at != std::string::npos)
    text.replace(at, what.size(), std::to_string(number));
}

}  // namespace

void Report::SetLabel(std::string_view name, std::string text) {
  for (ReportLabel& label : design.labels) {
    if (label.name != name) continue;
    label.text = std::move(text);
    return;
  }
  throw std::logic_error(design.name + " has no label " + std::string(name));
}

std::string PageText(std::size_t page, std::size_t pages) {
  std::string text(kPageText);
  Replace(text, "%p", page);
  Replace(text, "%P", pages);
  return text;
}

double PitchOf(double size) { return size * kLabelLeading; }

std::vector<std::string> LinesOf(std::string_view text) {
  const std::string plain = WithLineFeeds(text);
  std::vector<std::string> lines;
  for (std::size_t start = 0;;) {
    const std::size_t end = plain.find('\n', start);
    lines.push_back(plain.substr(start, end == std::string::npos ? end : end - start));
    if (end == std::string::npos) return lines;
    start = end + 1;
  }
}

ReportLayout LayOut(const Report& report, Paper paper) {
  const ReportDesign& design = report.design;
  if (design.orientation == Orientation::Landscape) std::swap(paper.width, paper.height);
  ReportLayout layout;
  layout.width = paper.width - 2 * kReportMargin;
  layout.height = paper.height - 2 * kReportMargin - kPageFooterHeight;
  double size = 0;
  const std::size_t grownHeader = GrownLines(report, Band::PageHeader, size);
  layout.headingTop = design.headerHeight + static_cast<double>(grownHeader) * PitchOf(size);
  const bool hasHeadings = std::any_of(design.columns.begin(), design.columns.end(),
                                       [](const ReportColumn& column) { return !column.heading.empty(); });
  layout.headerHeight = layout.headingTop + (hasHeadings ? kHeadingHeight : 0);
  const double field = design.columns.empty() ? layout.width : design.columns.front().width * layout.width;
  layout.detailSize = std::min(kLargestDetail, field / (kCharacterWidth * static_cast<double>(design.characters)));
  layout.detailPitch = layout.detailSize * kDetailLeading;

  // A header that leaves no room for a line would never come to an end: it gets one all the same.
  const double room = std::max(layout.height - layout.headerHeight, layout.detailPitch);
  const auto perPage = static_cast<std::size_t>(room / layout.detailPitch);
  std::size_t line = 0;
  do {
    const std::size_t count = std::min(perPage, report.lines.size() - line);
    layout.pages.push_back({line, count, false, 0, 0});
    line += count;
  } while (line < report.lines.size());

  double left = room - static_cast<double>(layout.pages.back().lineCount) * layout.detailPitch;
  if (design.footerHeight > left && layout.pages.back().lineCount > 0) {
    layout.pages.push_back({line, 0, false, 0, 0});
    left = room;
  }
  layout.pages.back().hasFooter = true;
  left -= design.footerHeight;
  const std::size_t grown = GrownLines(report, Band::ReportFooter, size);
  for (std::size_t done = 0; done < grown;) {
    auto count = static_cast<std::size_t>(std::max(left, 0.0) / PitchOf(size));
    // A statement stays in one piece where it can: it begins a page rather than be torn.
    const bool torn = done == 0 && left < room && count < grown && static_cast<double>(grown) * PitchOf(size) <= room;
    if (torn) count = 0;
    count = std::min(count, grown - done);
    layout.pages.back().firstGrown = done;
    layout.pages.back().grownCount = count;
    done += count;
    if (done == grown) break;
    layout.pages.push_back({line, 0, false, done, 0});
    left = std::max(room, PitchOf(size));
  }
  return layout;
}

void WriteReportText(const Report& report, const std::filesystem::path& to) {
  std::ofstream file(to, std::ios::binary);
  for (const std::vector<std::string>& columns : report.lines) {
    std::string text;
    for (const std::string& column : columns)
      text += (text.empty() && &column == &columns.front() ? "" : "\t") + column;
    file << ToUtf8(text.substr(0, text.find_last_not_of(" \t") + 1)) << "\n";
  }
  file.close();
  if (!file) throw FileError(FileErrorNumber::DeviceIo, "printing to " + to.string());
}

}  // namespace lantos::ui
