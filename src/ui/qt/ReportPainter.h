#pragma once

#include <QFont>
#include <QRectF>
#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "ui/Report.h"

class QPagedPaintDevice;
class QPainter;

namespace lantos::ui {

// Paints a report page by page. Everything comes to lie where LayOut says.
class ReportPainter {
 public:
  ReportPainter(const Report& report, Paper paper) : report_(report), layout_(LayOut(report, paper)) {}

  std::size_t PageCount() const { return layout_.pages.size(); }
  // Page counted from 0. The painter's origin is the corner of the paper, whatever its resolution.
  void PaintPage(QPainter& painter, std::size_t page) const;

 private:
  // In points from the corner of the printable part, as all of these.
  void PaintBand(QPainter& painter, Band band, double top) const;
  void PaintBox(QPainter& painter, const ReportBox& box, double top) const;
  void PaintGrown(QPainter& painter, Band band, double top, GrownLines lines) const;
  void PaintLabel(QPainter& painter, const ReportLabel& label, double top, const std::vector<std::string>& lines) const;
  void PaintHeadings(QPainter& painter, const ReportPage& page) const;
  void PaintDetail(QPainter& painter, const ReportPage& page) const;
  void PaintFrames(QPainter& painter, const ReportPage& page) const;
  void PaintDrawn(QPainter& painter, const ReportPage& page) const;
  // Of that column, on a line with its top there.
  QRectF FieldOf(std::size_t column, const PrintedLine& line, double top) const;
  void PaintFooter(QPainter& painter, const ReportPage& page) const;
  std::span<const PrintedLine> LinesOn(const ReportPage& page) const;
  QRectF Across(double left, double width, double top, double height) const;

  const Report& report_;
  ReportLayout layout_;
};

// The paper in the device.
Paper PaperOf(const QPagedPaintDevice& device);
// The whole sheet without the device's own margins, turned as the report is.
void SetSheet(QPagedPaintDevice& device, const Report& report);
// Paints all pages, or those of the device's page ranges, as often as told. False when the device refuses.
bool PaintReport(const Report& report, QPagedPaintDevice& device, int copies = 1);

}  // namespace lantos::ui
