#include <QApplication>
#include <QCursor>
#include <QMenu>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>

#include "ui/qt/BoxWindow.h"
#include "ui/qt/FormWindow.h"
#include "ui/qt/MenuActions.h"
#include "ui/qt/QtDesktop.h"
#include "ui/qt/Text.h"

// What a form puts in front of itself: boxes and menus; and its picture on paper.
namespace lantos::ui {

namespace {

constexpr double kPictureShare = 0.9;  // of the page

QAction* AddEntry(QMenu& menu, MenuItem& item) {
  if (item.Caption() == "-") return menu.addSeparator();
  QAction* action = menu.addAction(ToQt(item.Caption()));
  ShowState(*action, item);
  return action;
}

QAction* FirstShown(const QMenu& menu) {
  const QList<QAction*> actions = menu.actions();
  const auto first = std::find_if(actions.begin(), actions.end(), [](QAction* action) { return action->isVisible(); });
  return first == actions.end() ? nullptr : *first;
}

}  // namespace

Answer QtDesktop::Show(const Box& box) {
  BoxWindow window(box, TopWindow());
  overlays_.push_back(&window);
  QObject::connect(&window, &QDialog::finished, &window, [this] { WakeWaits(); });
  window.show();
  const std::function<bool()> over = [&window] { return window.Pressed().has_value() && !window.isVisible(); };
  WaitFor(over, [&] {
    person_->AtBox(
        box, [&](Answer answer) { window.Press(answer); }, over);
  });
  overlays_.pop_back();
  if (QWidget* top = TopWindow()) top->activateWindow();
  return window.Pressed().value_or(ButtonsOf(box).back());
}

// The click of the entry runs when the menu is gone: it may show windows of its own.
void QtDesktop::PopupMenu(Form&, MenuItem& menu) {
  const auto& items = menu.Items();
  if (std::none_of(items.begin(), items.end(), [](const auto& item) { return item->Visible(); })) return;
  QMenu shown;
  std::vector<std::pair<QAction*, MenuItem*>> entries;
  for (const auto& item : items) entries.emplace_back(AddEntry(shown, *item), item.get());
  MenuItem* chosen = nullptr;
  QObject::connect(&shown, &QMenu::triggered, &shown, [&](QAction* action) {
    for (const auto& [shownAction, item] : entries) {
      if (shownAction == action) chosen = item;
    }
  });
  bool closed = false;
  QObject::connect(&shown, &QMenu::aboutToHide, &shown, [&] {
    closed = true;
    // The choice is told of after the hiding.
    QMetaObject::invokeMethod(
        context_.get(), [this] { WakeWaits(); }, Qt::QueuedConnection);
  });
  overlays_.push_back(&shown);
  shown.popup(menuPlace_.value_or(QCursor::pos()));
  if (menuPlace_) shown.setActiveAction(FirstShown(shown));
  menuPlace_.reset();
  const std::function<bool()> over = [&closed] { return closed; };
  const auto choose = [&](MenuItem* item) {
    for (const auto& [action, entry] : entries) {
      if (entry == item) action->trigger();
    }
    shown.close();
    closed = true;
  };
  WaitFor(over, [&] { person_->AtPopup(menu, choose, over); });
  overlays_.pop_back();
  if (QWidget* top = TopWindow()) top->activateWindow();
  if (chosen != nullptr) chosen->DoClick();
}

void QtDesktop::PrintScreen(Form& form) {
  FlushWindows();
  if (IsDriven()) {
    if (printTo_.empty()) return;
    const std::string name = "screen-" + std::to_string(++screens_) + "-" + form.Name() + ".pdf";
    const std::filesystem::path pdf = printTo_ / name;
    PrintPicture(form, QString::fromStdString(pdf.string()));
    if (notePrinted) notePrinted(form.Name(), pdf);
  } else if (QPrinterInfo::defaultPrinter().isNull()) {
    Tell("No printer is installed.", "Print Screen", Icon::Exclamation);
  } else {
    PrintPicture(form, QString());
  }
}

// In the middle of a page, lying when the form is wide, never larger than it is on the screen.
void QtDesktop::PrintPicture(const Form& form, const QString& pdf) {
  FormWindow* window = WindowOf(form);
  if (window == nullptr) return;
  const QPixmap picture = window->grab();
  QPrinter printer(QPrinter::HighResolution);
  if (!pdf.isEmpty()) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(pdf);
  }
  const QSizeF size = picture.deviceIndependentSize();
  printer.setPageOrientation(size.width() > size.height() ? QPageLayout::Landscape : QPageLayout::Portrait);
  QPainter painter(&printer);
  const QRectF page = painter.viewport();
  const double natural = static_cast<double>(printer.resolution()) / window->logicalDpiX();
  const double scale =
      std::min({natural, kPictureShare * page.width() / size.width(), kPictureShare * page.height() / size.height()});
  QRectF place(QPointF(), size * scale);
  place.moveCenter(page.center());
  painter.drawPixmap(place, picture, QRectF(picture.rect()));
}

}  // namespace lantos::ui
