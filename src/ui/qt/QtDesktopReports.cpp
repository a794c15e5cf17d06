#include <fmt/format.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QLocale>
#include <QPageRanges>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <algorithm>
#include <exception>
#include <stdexcept>
#include <utility>

#include "frame/FileError.h"
#include "ui/Report.h"
#include "ui/WindowPlace.h"
#include "ui/qt/QtDesktop.h"
#include "ui/qt/ReportPainter.h"
#include "ui/qt/ReportWindow.h"
#include "ui/qt/Text.h"

// Reports on show and on paper.
namespace lantos::ui {

namespace {

constexpr int kPdfDotsPerInch = 1200;

// A printer knows its paper. Where there is none it is what people there have.
QPageSize UsualPaper() {
  const QLocale here = QLocale::system();
  const QLocale::Territory land = here.territory();
  const bool isLetter = here.language() == QLocale::C || here.measurementSystem() == QLocale::ImperialUSSystem ||
                        land == QLocale::Canada || land == QLocale::Mexico;
  return QPageSize(isLetter ? QPageSize::Letter : QPageSize::A4);
}

std::unique_ptr<QPrinter> MakePrinter(bool isDriven) {
  auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
  if (isDriven) {
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setPageSize(QPageSize(QPageSize::Letter));
  } else if (printer->outputFormat() == QPrinter::PdfFormat) {
    printer->setPageSize(UsualPaper());
  }
  return printer;
}

// Where a printer dialog without printers offers to write to. Not everybody has a folder for documents.
QString SuggestedFile(const Report& report) {
  QString name = ToQt(report.title);
  for (const char16_t separator : {u'/', u'\\'}) name.replace(separator, u'-');
  QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  if (!folder.exists()) folder = QDir(QStandardPaths::writableLocation(QStandardPaths::HomeLocation));
  return folder.filePath(name + ".pdf");
}

void WriteReportPdf(const Report& report, const std::filesystem::path& to) {
  QPdfWriter pdf(QString::fromStdString(to.string()));
  pdf.setResolution(kPdfDotsPerInch);
  pdf.setTitle(ToQt(report.title));
  pdf.setPageSize(QPageSize(QPageSize::Letter));
  SetSheet(pdf, report);
  if (!PaintReport(report, pdf)) throw FileError(FileErrorNumber::DeviceIo, "printing to " + to.string());
}

}  // namespace

void QtDesktop::PreviewReport(const Report& report, ControlPlace& place) {
  ClosePreviews(report.design.name);
  ReportWindow window(report, MakePrinter(IsDriven()), TopWindow());
  previews_.push_back(&window);
  overlays_.push_back(&window);
  QObject::connect(&window, &QDialog::finished, &window, [this] { WakeWaits(); });
  window.onPrint = [&] { PrintFrom(window); };
  window.ShowAt(place);
  // Painted before the program goes on, as a form is.
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  const std::function<bool()> over = [&window] { return !window.isVisible(); };
  const Person::PreviewHands hands{[&window] { window.PrintButton().click(); }, [&window] { window.close(); }};
  WaitFor(over, [&] { person_->AtPreview(report, hands, over); });
  place = window.Place();
  std::erase(previews_, &window);
  std::erase(overlays_, &window);
  if (QWidget* top = TopWindow()) top->activateWindow();
}

// Their waits end when what came after them has ended.
void QtDesktop::ClosePreviews(const std::string& name) {
  for (ReportWindow* window : std::vector(previews_)) {
    if (window->GetReport().design.name != name) continue;
    std::erase(previews_, window);
    std::erase(overlays_, window);
    window->close();
  }
}

// A click on a button, where no form stands by to catch what fails.
void QtDesktop::PrintFrom(ReportWindow& window) {
  try {
    if (IsDriven()) return PrintJob(window.GetReport());
    if (AskForPrinter(window.GetReport(), window.Printer())) PrintOn(window.GetReport(), window.Printer());
    window.Refresh();
  } catch (const std::exception& error) {
    EndEvent(error);
  }
}

void QtDesktop::PrintReport(const Report& report, PrinterDialog dialog) {
  if (dialog == PrinterDialog::Skipped && IsDriven()) return PrintJob(report);
  // Without a printer the dialog takes the name of a PDF, whether or not it was to be skipped.
  const bool asks = dialog == PrinterDialog::Shown || QPrinterInfo::defaultPrinter().isNull();
  const std::unique_ptr<QPrinter> printer = MakePrinter(IsDriven());
  if (asks && !AskForPrinter(report, *printer)) return;
  IsDriven() ? PrintJob(report) : PrintOn(report, *printer);
}

bool QtDesktop::AskForPrinter(const Report& report, QPrinter& printer) {
  SetSheet(printer, report);
  printer.setDocName(ToQt(report.title));
  if (printer.outputFormat() == QPrinter::PdfFormat && printer.outputFileName().isEmpty()) {
    printer.setOutputFileName(SuggestedFile(report));
  }
  QPrintDialog dialog(&printer, TopWindow());
  dialog.setWindowTitle(QStringLiteral("Print ") + ToQt(report.title));
  dialog.setWindowModality(Qt::ApplicationModal);
  dialog.setMinMax(1, static_cast<int>(LayOut(report, PaperOf(printer)).pages.size()));
  bool isOver = false;
  bool accepted = false;
  QObject::connect(&dialog, &QDialog::finished, &dialog, [&](int result) {
    isOver = true;
    accepted = result == QDialog::Accepted;
    WakeWaits();
  });
  overlays_.push_back(&dialog);
  dialog.show();
  const std::function<bool()> over = [&isOver] { return isOver; };
  WaitFor(over, [&] {
    // Not by the button: nothing is asked about a file that this job isn't written to.
    person_->AtPrinter(
        report, [&dialog](bool print) { dialog.done(print ? QDialog::Accepted : QDialog::Rejected); }, over);
  });
  std::erase(overlays_, &dialog);
  if (QWidget* top = TopWindow()) top->activateWindow();
  return accepted;
}

void QtDesktop::PrintOn(const Report& report, QPrinter& printer) {
  // The dialog lets the paper be turned, for which the report has no design.
  SetSheet(printer, report);
  const Pointer pointer = pointer_;
  SetPointer(Pointer::Hourglass);
  const bool printed = PaintReport(report, printer, printer.supportsMultipleCopies() ? 1 : printer.copyCount());
  SetPointer(pointer);
  printer.setPageRanges({});  // the preview shows all of them
  if (!printed) throw std::runtime_error("The report could not be printed.");
}

void QtDesktop::PrintJob(const Report& report) {
  if (printTo_.empty()) return;
  const std::string name = fmt::format("job-{:03}-{}", ++jobs_, report.design.name);
  const std::filesystem::path text = printTo_ / (name + ".txt");
  const std::filesystem::path pdf = printTo_ / (name + ".pdf");
  WriteReportText(report, text);
  WriteReportPdf(report, pdf);
  person_->NotePrinted(report, text, pdf);
}

}  // namespace lantos::ui
