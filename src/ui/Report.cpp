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
constexpr double kBelowGrown = 8;           // between a header that grew and what follows
constexpr std::size_t kLeastLines = 12;     // of the detail that a page must have room for below one
constexpr std::size_t kShortStatement = 4;  // lines that aren't left alone on a page
constexpr double kPageFooterHeight = 18;
constexpr double kRounding = 1e-6;
constexpr std::size_t kFrameInset = 1;  // characters between a frame and its lines, at either side

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

const ReportLabel* GrowingLabel(const Report& report, Band band) {
  for (const ReportLabel& label : report.design.labels) {
    if (label.band == band && label.grows && !label.text.empty()) return &label;
  }
  return nullptr;
}

namespace {

// Lays out pages one behind the other. The header comes first, the detail below it, the footer behind its last line.
class Pages {
 public:
  Pages(const Report& report, ReportLayout& layout) : report_(report), layout_(layout) {
    headerLines_ = layout.header.size();
    if (const ReportLabel* label = GrowingLabel(report, Band::PageHeader)) headerPitch_ = PitchOf(label->size);
    if (const ReportLabel* label = GrowingLabel(report, Band::ReportFooter)) footerPitch_ = PitchOf(label->size);
    const auto& columns = report.design.columns;
    hasHeadings_ =
        std::any_of(columns.begin(), columns.end(), [](const ReportColumn& column) { return !column.heading.empty(); });
    const double least = std::max(report.design.footerHeight, static_cast<double>(kLeastLines) * layout.detailPitch);
    repeatsHeader_ = layout.height - HeaderHeight(headerLines_) >= least;
  }

  void LayOut() {
    std::size_t line = 0;
    do {
      Begin(line);
      const std::size_t count = FittingFrom(line);
      Page().lineCount = count;
      for (const std::size_t end = line + count; line < end; ++line) left_ -= layout_.lines[line].height;
    } while (line < layout_.lines.size() || headerDone_ < headerLines_);
    const bool fresh = Page().lineCount == 0 && (repeatsHeader_ || Page().header.count == 0);
    if (FooterHeight() > left_ && !fresh) Begin(line);
    Page().hasFooter = true;
    left_ -= report_.design.footerHeight;
    if (!layout_.footer.empty()) GrowFooter();
  }

 private:
  ReportPage& Page() { return layout_.pages.back(); }

  double HeadingTop(std::size_t grown) const {
    return report_.design.headerHeight + static_cast<double>(grown) * headerPitch_ + (grown > 0 ? kBelowGrown : 0);
  }
  double HeaderHeight(std::size_t grown) const { return HeadingTop(grown) + (hasHeadings_ ? kHeadingHeight : 0); }

  void Begin(std::size_t line) {
    ReportPage page;
    page.firstLine = line;
    if (repeatsHeader_) {
      page.header = {0, headerLines_};
      headerDone_ = headerLines_;
    } else if (headerDone_ < headerLines_) {
      const double room = std::max(layout_.height - HeaderHeight(0) - kBelowGrown, headerPitch_);
      page.header = {headerDone_, std::min(static_cast<std::size_t>(room / headerPitch_), headerLines_ - headerDone_)};
      headerDone_ += page.header.count;
    }
    page.headingTop = HeadingTop(page.header.count);
    page.headerHeight = HeaderHeight(page.header.count);
    left_ = std::max(layout_.height - page.headerHeight, 0.0);
    // A design whose header leaves no room for a line would never come to an end: it gets one all the same.
    const double least = line < layout_.lines.size() ? layout_.lines[line].height : layout_.detailPitch;
    if (page.header.count == 0 || repeatsHeader_) left_ = std::max(left_, least);
    layout_.pages.push_back(page);
  }

  std::size_t FittingFrom(std::size_t line) const {
    std::size_t end = line;
    for (double room = left_ + kRounding; end < layout_.lines.size(); ++end) {
      room -= layout_.lines[end].height;
      if (room < 0) break;
    }
    const auto leads = [this](std::size_t at) {
      const LineKind kind = layout_.lines[at].kind;
      return kind == LineKind::Heading || kind == LineKind::Leading;
    };
    const std::size_t full = end;
    while (end < layout_.lines.size() && end > line && leads(end - 1)) --end;
    return (end == line ? full : end) - line;
  }

  // With a short statement, where a page has room for both.
  double FooterHeight() const {
    const double fixed = report_.design.footerHeight;
    if (layout_.footer.size() > kShortStatement) return fixed;
    const double both = fixed + static_cast<double>(layout_.footer.size()) * footerPitch_;
    return both <= layout_.height - HeaderHeight(repeatsHeader_ ? headerLines_ : 0) ? both : fixed;
  }

  void GrowFooter() {
    const std::size_t lines = layout_.footer.size();
    const double pitch = footerPitch_, height = static_cast<double>(lines) * pitch;
    const double whole = layout_.height - Page().headerHeight;
    for (std::size_t done = 0; done < lines;) {
      auto count = std::min(static_cast<std::size_t>(std::max(left_, 0.0) / pitch), lines - done);
      // A statement stays in one piece where it can: it begins a page rather than be torn.
      if (done == 0 && left_ < whole && count < lines && height <= whole) count = 0;
      Page().footer = {done, count};
      done += count;
      if (done == lines) break;
      Begin(layout_.lines.size());
      left_ = std::max(left_, pitch);
    }
  }

  const Report& report_;
  ReportLayout& layout_;
  std::size_t headerLines_ = 0;  // that grow, and what each page has of them
  double headerPitch_ = 0, footerPitch_ = 0;
  bool hasHeadings_ = false;
  bool repeatsHeader_ = true;
  std::size_t headerDone_ = 0;
  double left_ = 0;  // of the last page's height
};

double HeightOf(LineKind kind, const ReportDesign& design, double pitch) {
  switch (kind) {
    case LineKind::Heading:
      return pitch + design.aboveHeading;
    case LineKind::Rule:
      return std::max(pitch, design.ruleHeight);
    case LineKind::Across:
    case LineKind::Leading:
    case LineKind::Text:
      break;
  }
  return pitch;
}

bool IsFramed(const Report& report, std::size_t line) {
  return std::any_of(report.frames.begin(), report.frames.end(), [line](const LineFrame& frame) {
    return line >= frame.first && line < frame.first + frame.count;
  });
}

std::vector<PrintedLine> PrintedLinesOf(const Report& report, const ReportLayout& layout, double field) {
  const double pitch = layout.detailPitch;
  const auto inField = static_cast<std::size_t>(field / layout.characterWidth + kRounding);
  const auto across = static_cast<std::size_t>(layout.width / layout.characterWidth + kRounding);
  std::vector<PrintedLine> printed;
  for (std::size_t line = 0; line < report.lines.size(); ++line) {
    const std::string first = report.lines[line].empty() ? std::string() : report.lines[line].front();
    const LineKind kind = line < report.kinds.size() ? report.kinds[line] : LineKind::Text;
    const double height = HeightOf(kind, report.design, pitch);
    const bool isFramed = IsFramed(report, line);
    const std::size_t characters = kind == LineKind::Text ? inField : across - (isFramed ? 2 * kFrameInset : 0);
    if (!report.design.wraps || first.size() <= characters) {
      printed.push_back({line, first, true, kind, height, isFramed});
      continue;
    }
    bool begins = true;
    for (std::string& text : WrappedLine(first, characters)) {
      printed.push_back({line, std::move(text), begins, kind, begins ? height : pitch, isFramed});
      begins = false;
    }
  }
  return printed;
}

std::vector<std::string> GrownLinesOf(const Report& report, Band band, double width) {
  const ReportLabel* label = GrowingLabel(report, band);
  return label == nullptr ? std::vector<std::string>() : WrappedLabel(label->text, label->size, label->width * width);
}

}  // namespace

ReportLayout LayOut(const Report& report, Paper paper) {
  const ReportDesign& design = report.design;
  if (design.orientation == Orientation::Landscape) std::swap(paper.width, paper.height);
  ReportLayout layout;
  layout.left = std::clamp(report.margins.left, kReportMargin, paper.width / 2);
  layout.top = std::clamp(report.margins.top, kReportMargin, paper.height / 2);
  layout.width = paper.width - layout.left - kReportMargin;
  layout.height = paper.height - layout.top - kReportMargin - kPageFooterHeight;
  const double field = design.columns.empty() ? layout.width : design.columns.front().width * layout.width;
  layout.detailSize = std::min(kLargestDetail, field / (kCharacterWidth * static_cast<double>(design.characters)));
  layout.detailPitch = layout.detailSize * kDetailLeading;
  layout.characterWidth = kCharacterWidth * layout.detailSize;
  layout.lines = PrintedLinesOf(report, layout, field);
  layout.header = GrownLinesOf(report, Band::PageHeader, layout.width);
  layout.footer = GrownLinesOf(report, Band::ReportFooter, layout.width);
  Pages(report, layout).LayOut();
  return layout;
}

void WriteReportText(const Report& report, const std::filesystem::path& to) {
  std::ofstream file(to, std::ios::binary);
  for (const std::vector<std::string>& columns : report.lines) {
    std::string text;
    for (const std::string& column : columns) {
      if (&column != &columns.front()) text += '\t';
      for (const char c : column) text += c == '\r' || c == '\n' || c == '\t' ? ' ' : c;
    }
    file << ToUtf8(text.substr(0, text.find_last_not_of(" \t") + 1)) << "\n";
  }
  file.close();
  if (!file) throw FileError(FileErrorNumber::DeviceIo, "printing to " + to.string());
}

}  // namespace lantos::ui
