#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <string>

#include "ui/Report.h"
#include "ui/WindowPlace.h"

class QAbstractButton;
class QBoxLayout;
class QLabel;
class QPrintPreviewWidget;
class QPrinter;

namespace lantos::ui {

// A report on show, a page at a time, as it will be on paper.
class ReportWindow : public QDialog {
 public:
  // Painted for the paper in the printer.
  ReportWindow(const Report& report, std::unique_ptr<QPrinter> printer, QWidget* parent);
  ~ReportWindow() override;

  std::function<void()> onPrint;

  const Report& GetReport() const { return report_; }
  QPrinter& Printer() { return *printer_; }
  // With what the printer has been told since.
  void Refresh();

  void ShowAt(const ControlPlace& place);
  // Where it is, or was when it closed.
  ControlPlace Place() const;

  QAbstractButton& PrintButton() { return *print_; }
  int Page() const;
  int PageCount() const;

  void done(int result) override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  QAbstractButton* AddButton(QBoxLayout& row, const QString& text, const QString& tip, std::function<void()> deed);
  void AddKey(const QKeySequence& key, std::function<void()> deed);
  void MakeButtons();
  void MakeKeys();
  void ArrangeRows();
  void GoTo(int page);
  // A page up or down where whole pages are shown, else a screenful.
  void Leaf(int direction);
  void ShowPage();

  const Report& report_;
  std::unique_ptr<QPrinter> printer_;
  QPrintPreviewWidget* preview_;
  QBoxLayout* rows_;
  QAbstractButton* print_ = nullptr;
  QAbstractButton* back_ = nullptr;
  QAbstractButton* forth_ = nullptr;
  QLabel* page_ = nullptr;
  ControlPlace closedAt_;
};

}  // namespace lantos::ui
