#include "ui/qt/ReportPainter.h"

#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageRanges>
#include <QPagedPaintDevice>
#include <QPainter>
#include <algorithm>

#include "ui/qt/Text.h"

namespace lantos::ui {

namespace {

// Sizes of fonts are whole numbers of units. Beyond 64 of them Qt loads each glyph anew each time it is measured: the
// unit is as small as leaves the labels below that, and the detail has one of its own, for its size is any fraction.
constexpr double kUnits = 6;         // a point
constexpr double kDetailUnits = 60;  // the size of the detail
constexpr double kBoxLine = 0.75;
constexpr double kThinLine = 0.5;
constexpr double kAroundFramed = 3;  // between a frame and its first and last line
constexpr double kHeadingSize = 8.5;
constexpr double kBelowHeadingRule = 2;
constexpr double kPageTextSize = 9;
constexpr double kPointsPerInch = 72;
constexpr double kNoEnd = 1e9;  // points that hold any line
constexpr double kPointsPerMillimeter = kPointsPerInch / 25.4;

double ToUnits(double points) { return points * kUnits; }
QRectF Times(const QRectF& place, double factor) {
  return {place.x() * factor, place.y() * factor, place.width() * factor, place.height() * factor};
}

QFont MakeFont(const QStringList& families, QFont::StyleHint hint, double units, bool bold) {
  QFont font;
  font.setFamilies(families);
  font.setStyleHint(hint);
  font.setPixelSize(static_cast<int>(units));
  font.setBold(bold);
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setKerning(false);
  return font;
}

// The second of each has the same widths as the first.
QFont LabelFont(double size, bool bold) {
  return MakeFont({QStringLiteral("Arial"), QStringLiteral("Liberation Sans"), QStringLiteral("Helvetica")},
                  QFont::SansSerif, ToUnits(size), bold);
}
QFont DetailFont() {
  QFont font = MakeFont({QStringLiteral("Courier New"), QStringLiteral("Liberation Mono"), QStringLiteral("Courier")},
                        QFont::Monospace, kDetailUnits, false);
  font.setFixedPitch(true);
  return font;
}

int FlagOf(Align align) {
  switch (align) {
    case Align::Center:
      return Qt::AlignHCenter;
    case Align::Right:
      return Qt::AlignRight;
    case Align::Left:
      break;
  }
  return Qt::AlignLeft;
}

// Nearly all texts are told by the count of their letters, which costs less than to measure them.
bool Fits(const QFont& font, const QString& text, double width) {
  const QFontMetricsF metrics(font);
  return static_cast<double>(text.size()) * metrics.maxWidth() <= width || metrics.horizontalAdvance(text) <= width;
}

// A line in a field, in units. What is too long is cut off at the field's end, whatever side the text keeps to: an
// amount without its first digits would be another one.
void PaintText(QPainter& painter, const QRectF& place, Align align, const std::string& line) {
  constexpr int kFlags = Qt::TextSingleLine | Qt::TextDontClip | Qt::AlignVCenter;
  if (line.empty()) return;
  const QString text = ToQt(line);
  if (Fits(painter.font(), text, place.width())) return painter.drawText(place, kFlags | FlagOf(align), text);
  painter.save();
  // Above and below there may be strokes outside of the line's own height.
  painter.setClipRect(place.adjusted(0, -place.height(), 0, place.height()));
  painter.drawText(place, kFlags | FlagOf(Align::Left), text);
  painter.restore();
}

void PaintRule(QPainter& painter, double left, double right, double at) {
  painter.drawLine(QPointF(ToUnits(left), ToUnits(at)), QPointF(ToUnits(right), ToUnits(at)));
}

void SetPen(QPainter& painter, double width) {
  painter.setPen(QPen(Qt::black, ToUnits(width), Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
}

}  // namespace

void ReportPainter::PaintPage(QPainter& painter, std::size_t page) const {
  const ReportPage& plan = layout_.pages.at(page);
  painter.save();
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  const double dotsPerPoint = painter.device()->logicalDpiX() / kPointsPerInch;
  painter.scale(dotsPerPoint / kUnits, dotsPerPoint / kUnits);
  painter.translate(ToUnits(layout_.left), ToUnits(layout_.top));
  painter.setBrush(Qt::NoBrush);
  SetPen(painter, kThinLine);
  PaintBand(painter, Band::PageHeader, 0);
  PaintGrown(painter, Band::PageHeader, report_.design.headerHeight, plan.header);
  PaintHeadings(painter, plan);
  PaintDetail(painter, plan);
  PaintFrames(painter, plan);
  PaintDrawn(painter, plan);
  PaintFooter(painter, plan);
  if (report_.design.numbersPages) {
    painter.setFont(LabelFont(kPageTextSize, false));
    PaintText(painter, Times({0, layout_.height, layout_.width, 2 * PitchOf(kPageTextSize) - kPageTextSize}, kUnits),
              Align::Center, PageText(page + 1, PageCount()));
  }
  painter.restore();
}

std::span<const PrintedLine> ReportPainter::LinesOn(const ReportPage& page) const {
  return std::span(layout_.lines).subspan(page.firstLine, page.lineCount);
}

QRectF ReportPainter::Across(double left, double width, double top, double height) const {
  return {left * layout_.width, top, width * layout_.width, height};
}

// Without what grows, which has places of its own.
void ReportPainter::PaintBand(QPainter& painter, Band band, double top) const {
  for (const ReportBox& box : report_.design.boxes) {
    if (box.band == band) PaintBox(painter, box, top);
  }
  for (const ReportLabel& label : report_.design.labels) {
    if (label.band != band || label.grows) continue;
    PaintLabel(painter, label, top + label.top, WrappedLabel(label.text, label.size, kNoEnd));
  }
}

void ReportPainter::PaintGrown(QPainter& painter, Band band, double top, GrownLines lines) const {
  if (lines.count == 0) return;
  const std::vector<std::string>& all = band == Band::PageHeader ? layout_.header : layout_.footer;
  const auto first = all.begin() + static_cast<std::ptrdiff_t>(lines.first);
  const std::vector<std::string> shown(first, first + static_cast<std::ptrdiff_t>(lines.count));
  PaintLabel(painter, *GrowingLabel(report_, band), top, shown);
}

void ReportPainter::PaintBox(QPainter& painter, const ReportBox& box, double top) const {
  SetPen(painter, kBoxLine);
  const QRectF place = Across(box.left, box.width, top + box.top, box.height);
  if (box.height == 0) {
    PaintRule(painter, place.left(), place.right(), place.top());
  } else {
    painter.drawRect(Times(place, kUnits));
  }
}

void ReportPainter::PaintLabel(QPainter& painter, const ReportLabel& label, double top,
                               const std::vector<std::string>& lines) const {
  painter.setFont(LabelFont(label.size, label.bold));
  for (const std::string& line : lines) {
    PaintText(painter, Times(Across(label.left, label.width, top, PitchOf(label.size)), kUnits), label.align, line);
    top += PitchOf(label.size);
  }
}

void ReportPainter::PaintHeadings(QPainter& painter, const ReportPage& page) const {
  const double height = page.headerHeight - page.headingTop;
  if (height <= 0 || (page.lineCount == 0 && !page.hasFooter)) return;
  painter.setFont(LabelFont(kHeadingSize, true));
  for (const ReportColumn& column : report_.design.columns) {
    const QRectF field = Across(column.left, column.width, page.headingTop, height - kBelowHeadingRule);
    PaintText(painter, Times(field, kUnits), column.align, column.heading);
  }
  SetPen(painter, kThinLine);
  PaintRule(painter, 0, layout_.width, page.headerHeight - kBelowHeadingRule);
}

void ReportPainter::PaintDetail(QPainter& painter, const ReportPage& page) const {
  const std::vector<ReportColumn>& columns = report_.design.columns;
  const double units = kDetailUnits / layout_.detailSize;  // a point
  painter.save();
  painter.scale(kUnits / units, kUnits / units);
  painter.setFont(DetailFont());
  double bottom = page.headerHeight;
  for (const PrintedLine& line : LinesOn(page)) {
    bottom += line.height;
    const double top = bottom - layout_.detailPitch;
    const std::vector<std::string>& texts = report_.lines.at(line.line);
    const std::size_t count = line.begins ? std::min(columns.size(), texts.size()) : 1;
    for (std::size_t column = 0; column < count; ++column) {
      PaintText(painter, Times(FieldOf(column, line, top), units), columns[column].align,
                column == 0 ? line.text : texts[column]);
    }
  }
  painter.restore();
}

QRectF ReportPainter::FieldOf(std::size_t column, const PrintedLine& line, double top) const {
  const ReportColumn& design = report_.design.columns[column];
  if (column > 0 || line.kind == LineKind::Text) return Across(design.left, design.width, top, layout_.detailPitch);
  const double inset = line.isFramed ? layout_.characterWidth : 0;
  return Across(0, 1, top, layout_.detailPitch).adjusted(inset, 0, -inset, 0);
}

void ReportPainter::PaintFrames(QPainter& painter, const ReportPage& page) const {
  SetPen(painter, kBoxLine);
  const std::span<const PrintedLine> lines = LinesOn(page);
  double bottom = page.headerHeight, top = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    bottom += lines[i].height;
    if (!lines[i].isFramed) continue;
    if (i == 0 || !lines[i - 1].isFramed) top = bottom - layout_.detailPitch - kAroundFramed;
    if (i + 1 < lines.size() && lines[i + 1].isFramed) continue;
    painter.drawRect(Times(Across(0, 1, top, bottom + kAroundFramed - top), kUnits));
  }
}

// Each page has its part of a box.
void ReportPainter::PaintDrawn(QPainter& painter, const ReportPage& page) const {
  SetPen(painter, kThinLine);
  const auto first = static_cast<double>(page.firstLine), end = first + static_cast<double>(page.lineCount);
  for (const DetailBox& box : report_.boxes) {
    const double top = std::max(box.top, first), bottom = std::min(box.bottom, end);
    if (bottom < top || (bottom == top && box.top < box.bottom)) continue;
    const double width = (box.right - box.left) * layout_.characterWidth;
    painter.drawRect(Times({box.left * layout_.characterWidth, page.headerHeight + (top - first) * layout_.detailPitch,
                            width, (bottom - top) * layout_.detailPitch},
                           kUnits));
  }
}

void ReportPainter::PaintFooter(QPainter& painter, const ReportPage& page) const {
  double top = page.headerHeight;
  for (const PrintedLine& line : LinesOn(page)) top += line.height;
  if (page.hasFooter) {
    PaintBand(painter, Band::ReportFooter, top);
    top += report_.design.footerHeight;
  }
  PaintGrown(painter, Band::ReportFooter, top, page.footer);
}

Paper PaperOf(const QPagedPaintDevice& device) {
  const QSizeF size = device.pageLayout().pageSize().size(QPageSize::Millimeter) * kPointsPerMillimeter;
  return {size.width(), size.height()};
}

void SetSheet(QPagedPaintDevice& device, const Report& report) {
  QPageLayout layout = device.pageLayout();
  layout.setMode(QPageLayout::FullPageMode);
  layout.setOrientation(report.design.orientation == Orientation::Landscape ? QPageLayout::Landscape
                                                                            : QPageLayout::Portrait);
  device.setPageLayout(layout);
}

bool PaintReport(const Report& report, QPagedPaintDevice& device, int copies) {
  const ReportPainter pages(report, PaperOf(device));
  const QPageRanges wanted = device.pageRanges();
  QPainter painter;
  if (!painter.begin(&device)) return false;
  bool first = true;
  for (int copy = 0; copy < copies; ++copy) {
    for (std::size_t page = 0; page < pages.PageCount(); ++page) {
      if (!wanted.isEmpty() && !wanted.contains(static_cast<int>(page) + 1)) continue;
      if (!first && !device.newPage()) return false;
      pages.PaintPage(painter, page);
      first = false;
    }
  }
  return painter.end();
}

}  // namespace lantos::ui
