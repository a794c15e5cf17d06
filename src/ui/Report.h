#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "ui/ReportText.h"

namespace lantos::ui {

// A banded report: a page header and footer on every page, detail lines from top to bottom, a report footer behind the
// last of them. A text breaks where it says so itself, and what is too long for its field is cut off there; only labels
// that grow, and the first column of a design that wraps, go on in the next line.
//
// Heights and sizes are points, a 72nd of an inch. Places across are shares of the printable width, so that a design
// fits every paper.
enum class Band { PageHeader, ReportFooter };
enum class Align { Left, Center, Right };
enum class Orientation { Portrait, Landscape };

// In Arial. Its lines are separated by line ends of any kind.
struct ReportLabel {
  std::string name;  // empty for what is always the same
  Band band = Band::PageHeader;
  double left = 0, top = 0, width = 1;
  double size = 9;
  Align align = Align::Left;
  bool bold = false;
  bool grows = false;  // the last of its band, not bold; becomes as high as the text needs, over pages if it must
  std::string text;
};

// A frame, or a line when it has no height.
struct ReportBox {
  Band band = Band::PageHeader;
  double left = 0, top = 0, width = 1, height = 0;
};

// A field of the detail band, in Courier New.
struct ReportColumn {
  std::string name;
  double left = 0, width = 1;
  Align align = Align::Left;
  std::string heading;  // above the first line of each page
};

struct ReportDesign {
  std::string name;     // "rptEstimate"
  std::string caption;  // the window keeps its place under it
  Orientation orientation = Orientation::Portrait;
  double headerHeight = 0;  // without what grows
  double footerHeight = 0;
  std::size_t characters = 80;  // that the first column must hold; the size of the detail follows from it
  bool numbersPages = true;     // at the foot of each
  bool wraps = false;           // whether what the first column can't hold goes on below
  double ruleHeight = 0;        // of a rule, with the room to write above it; no less than that of any line
  double aboveHeading = 0;      // empty
  std::vector<ReportColumn> columns;
  std::vector<ReportLabel> labels;
  std::vector<ReportBox> boxes;
};

// What a line is to the design. A text stands in the first column; the first column of any other line has the whole
// width of the page. Headings and leading lines aren't left at the foot of a page without what follows them; a heading
// has air above it.
enum class LineKind { Text, Across, Heading, Leading, Rule };

// Lines within one frame from margin to margin; on each page it is around those that the page has. They are no Text.
struct LineFrame {
  std::size_t first = 0, count = 0;
};

// A rectangle among the lines of a detail without headings, in characters from the left and lines from the first.
struct DetailBox {
  double left = 0, top = 0, right = 0, bottom = 0;
};

// From the edges of the paper, in points. Less than kReportMargin, which printers can't print on, is that; more than
// half of the paper is half of it.
inline constexpr double kReportMargin = 36;
struct ReportMargins {
  double top = kReportMargin, left = kReportMargin;
};

// A design, filled in.
struct Report {
  ReportDesign design;
  std::string title;
  std::vector<std::vector<std::string>> lines;  // a text for each column
  std::vector<LineKind> kinds = {};             // of the lines; those behind its end are Text
  std::vector<LineFrame> frames = {};           // around lines, in their order
  std::vector<DetailBox> boxes = {};
  ReportMargins margins = {};

  // Sets the label of that name in this design. A name that the design doesn't have throws std::logic_error.
  void SetLabel(std::string_view name, std::string text);
};

inline constexpr std::string_view kPageLabel = "lblPage";
inline constexpr std::string_view kPageText = "Page %p of %P";
std::string PageText(std::size_t page, std::size_t pages);  // page counted from 1

struct Paper {
  double width, height;  // points, upright
};
inline constexpr Paper kLetterPaper{612, 792};
inline constexpr Paper kA4Paper{595.3, 841.9};

// Lines of a label that grows, of those in the layout.
struct GrownLines {
  std::size_t first = 0, count = 0;
};

// Where everything comes to lie, the same on every desktop.
struct ReportPage {
  GrownLines header;        // all on every page; where that leaves too little room, on the first ones only
  double headingTop = 0;    // of the columns
  double headerHeight = 0;  // with them
  std::size_t firstLine = 0, lineCount = 0;  // of the layout's
  bool hasFooter = false;                    // the report footer's fixed part, behind the detail
  GrownLines footer;                         // behind that
};
// A line of the detail on paper. Its text stands at the foot of its height.
struct PrintedLine {
  std::size_t line = 0;  // of the report
  std::string text;      // in the first column
  bool begins = true;    // the report's line, and has the other columns beside it
  LineKind kind = LineKind::Text;
  double height = 0;
  bool isFramed = false;
};
struct ReportLayout {
  double left = 0, top = 0;      // where the printable part begins
  double width = 0, height = 0;  // of it, in the report's orientation
  double detailSize = 0, detailPitch = 0;
  double characterWidth = 0;  // of the detail
  std::vector<PrintedLine> lines;
  std::vector<std::string> header, footer;  // of the labels that grow
  std::vector<ReportPage> pages;            // at least one
};
ReportLayout LayOut(const Report& report, Paper paper = kLetterPaper);
// The label of the band that grows, null where there is none or it is empty.
const ReportLabel* GrowingLabel(const Report& report, Band band);
double PitchOf(double size);  // from line to line of a label

// What a printed job is where there is no paper: a line of text a report line, its columns apart by tabs; those and
// line ends within a column are blanks. Throws FileError.
void WriteReportText(const Report& report, const std::filesystem::path& to);

}  // namespace lantos::ui
