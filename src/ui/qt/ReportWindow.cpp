#include "ui/qt/ReportWindow.h"

#include <QBoxLayout>
#include <QGraphicsView>
#include <QGuiApplication>
#include <QLabel>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QStyle>
#include <QToolButton>
#include <algorithm>
#include <utility>

#include "ui/qt/ReportPainter.h"
#include "ui/qt/Text.h"

namespace lantos::ui {

namespace {

constexpr QSize kUsualSize{800, 700};
constexpr int kMaximized = 2;
constexpr int kButtonSpacing = 4;
constexpr int kRowSpacing = 24;
constexpr int kGroupSpacing = 12;

int ToPixels(Twips twips) { return static_cast<int>(twips / kTwipsPerPixel); }
Twips ToTwips(int pixels) { return static_cast<Twips>(pixels) * kTwipsPerPixel; }

}  // namespace

ReportWindow::ReportWindow(const Report& report, std::unique_ptr<QPrinter> printer, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMaximizeButtonHint |
                          Qt::WindowCloseButtonHint),
      report_(report),
      printer_(std::move(printer)),
      preview_(new QPrintPreviewWidget(printer_.get(), this)),
      rows_(new QBoxLayout(QBoxLayout::LeftToRight)) {
  setWindowModality(Qt::ApplicationModal);
  setWindowTitle(ToQt(report.title));
  SetSheet(*printer_, report);
  MakeButtons();
  MakeKeys();
  auto* whole = new QVBoxLayout(this);
  whole->addLayout(rows_);
  whole->addWidget(preview_, 1);
  QObject::connect(preview_, &QPrintPreviewWidget::paintRequested, this,
                   [this](QPrinter* device) { PaintReport(report_, *device); });
  QObject::connect(preview_, &QPrintPreviewWidget::previewChanged, this, [this] { ShowPage(); });
  preview_->setViewMode(QPrintPreviewWidget::SinglePageView);
  preview_->setZoomMode(QPrintPreviewWidget::FitToWidth);
  preview_->setFocus();
}

ReportWindow::~ReportWindow() = default;

void ReportWindow::Refresh() {
  SetSheet(*printer_, report_);
  preview_->updatePreview();
}

QAbstractButton* ReportWindow::AddButton(QBoxLayout& row, const QString& text, const QString& tip,
                                         std::function<void()> deed) {
  auto* button = new QToolButton(this);
  button->setText(text);
  button->setToolTip(tip);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  row.addWidget(button);
  QObject::connect(button, &QToolButton::clicked, this, std::move(deed));
  return button;
}

// In two rows: one beside the other where the window is wide enough for both.
void ReportWindow::MakeButtons() {
  auto* first = new QHBoxLayout;
  print_ = AddButton(*first, QStringLiteral("&Print…"), QStringLiteral("Print the report (Ctrl+P)"), [this] {
    if (onPrint) onPrint();
  });
  AddButton(*first, QStringLiteral("&Close"), QStringLiteral("Close the preview (Esc)"), [this] { close(); });
  first->addSpacing(kGroupSpacing);
  back_ = AddButton(*first, QStringLiteral("Pre&vious"), QStringLiteral("Previous page (PgUp)"),
                    [this] { GoTo(Page() - 1); });
  forth_ = AddButton(*first, QStringLiteral("&Next"), QStringLiteral("Next page (PgDn)"), [this] { GoTo(Page() + 1); });
  page_ = new QLabel(this);
  page_->setObjectName(QStringLiteral("page"));
  first->addWidget(page_);
  first->addStretch(1);
  auto* second = new QHBoxLayout;
  AddButton(*second, QStringLiteral("Zoom &In"), QStringLiteral("Larger (Ctrl++)"), [this] { preview_->zoomIn(); });
  AddButton(*second, QStringLiteral("Zoom &Out"), QStringLiteral("Smaller (Ctrl+-)"), [this] { preview_->zoomOut(); });
  AddButton(*second, QStringLiteral("Fit &Width"), QStringLiteral("As wide as the window"),
            [this] { preview_->fitToWidth(); });
  AddButton(*second, QStringLiteral("Fit Pa&ge"), QStringLiteral("The whole page in the window"),
            [this] { preview_->fitInView(); });
  second->addStretch(1);
  for (QBoxLayout* row : {first, second}) row->setSpacing(kButtonSpacing);
  rows_->addLayout(first);
  rows_->addLayout(second);
  rows_->addStretch(1);
}

void ReportWindow::AddKey(const QKeySequence& key, std::function<void()> deed) {
  QObject::connect(new QShortcut(key, this), &QShortcut::activated, this, std::move(deed));
}

void ReportWindow::MakeKeys() {
  AddKey(QKeySequence::Print, [this] { print_->click(); });
  AddKey(QKeySequence::ZoomIn, [this] { preview_->zoomIn(); });
  AddKey(QKeySequence::ZoomOut, [this] { preview_->zoomOut(); });
  AddKey(Qt::Key_PageUp, [this] { Leaf(-1); });
  AddKey(Qt::Key_PageDown, [this] { Leaf(1); });
  for (const Qt::KeyboardModifiers with : {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ControlModifier)}) {
    AddKey(QKeyCombination(with, Qt::Key_Home), [this] { GoTo(1); });
    AddKey(QKeyCombination(with, Qt::Key_End), [this] { GoTo(PageCount()); });
  }
}

int ReportWindow::Page() const { return preview_->currentPage(); }
int ReportWindow::PageCount() const { return preview_->pageCount(); }

void ReportWindow::GoTo(int page) {
  preview_->setCurrentPage(std::clamp(page, 1, std::max(1, PageCount())));
  ShowPage();
}

// The pages hang together as one long strip.
void ReportWindow::Leaf(int direction) {
  const auto* view = preview_->findChild<QGraphicsView*>();
  if (view == nullptr || preview_->zoomMode() == QPrintPreviewWidget::FitInView) return GoTo(Page() + direction);
  QScrollBar* bar = view->verticalScrollBar();
  bar->setValue(bar->value() + direction * bar->pageStep());
  ShowPage();
}

void ReportWindow::ShowPage() {
  const auto page = static_cast<std::size_t>(Page());
  const auto pages = static_cast<std::size_t>(PageCount());
  page_->setText(ToQt(PageText(page, pages)));
  back_->setEnabled(page > 1);
  forth_->setEnabled(page < pages);
}

void ReportWindow::ArrangeRows() {
  int wanted = kRowSpacing + layout()->contentsMargins().left() + layout()->contentsMargins().right();
  for (const int row : {0, 1}) wanted += rows_->itemAt(row)->sizeHint().width();
  const bool fits = width() >= wanted;
  rows_->setDirection(fits ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  rows_->setSpacing(fits ? kRowSpacing : kButtonSpacing);
}

void ReportWindow::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  ArrangeRows();
}

// Within the screen, whatever it was when the place was noted. The position is the frame's.
void ReportWindow::ShowAt(const ControlPlace& place) {
  const bool known = place.width > 0 && place.height > 0;
  const QPoint corner(ToPixels(place.left), ToPixels(place.top));
  const QScreen* at = known ? QGuiApplication::screenAt(corner) : nullptr;
  if (at == nullptr) at = screen();
  const int edge = style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
  const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight);
  const QRect room = at->availableGeometry().adjusted(0, 0, -2 * edge, -edge - title);
  resize((known ? QSize(ToPixels(place.width), ToPixels(place.height)) : kUsualSize).boundedTo(room.size()));
  QRect shown(corner, size());
  if (!known) shown.moveCenter(room.center());
  shown.moveLeft(std::max(room.left(), std::min(shown.left(), room.right() + 1 - shown.width())));
  shown.moveTop(std::max(room.top(), std::min(shown.top(), room.bottom() + 1 - shown.height())));
  move(shown.topLeft());
  if (place.state == kMaximized) setWindowState(windowState() | Qt::WindowMaximized);
  ArrangeRows();
  show();
  raise();
  activateWindow();
  ShowPage();
}

ControlPlace ReportWindow::Place() const {
  if (!isVisible()) return closedAt_;
  const QRect inside = isMaximized() ? normalGeometry() : geometry();
  const QPoint frame = isMaximized() ? inside.topLeft() : pos();
  return {ToTwips(frame.y()), ToTwips(frame.x()), ToTwips(inside.width()), ToTwips(inside.height()),
          isMaximized() ? kMaximized : 0};
}

void ReportWindow::done(int result) {
  if (isVisible()) closedAt_ = Place();
  QDialog::done(result);
}

}  // namespace lantos::ui
