#include "ui/qt/RowsPeer.h"

#include <QApplication>
#include <QScrollBar>
#include <algorithm>

#include "ui/qt/FocusFrame.h"
#include "ui/qt/FormWindow.h"

namespace lantos::ui {

RowsPeer::RowsPeer(FormWindow& window, Control& control, QAbstractItemView& view)
    : WidgetPeer(window, control, view), view_(view) {
  view_.setContextMenuPolicy(Qt::NoContextMenu);
  QObject::connect(view_.selectionModel(), &QItemSelectionModel::selectionChanged, &view_,
                   [this] { SelectionChanged(); });
  new FocusFrame(view_);
  QObject::connect(qApp, &QApplication::focusChanged, &view_, [this](QWidget*, QWidget* now) { FocusCame(now); });
}

// A view of the window system marks its first row when the focus comes, though nothing is selected.
void RowsPeer::FocusCame(const QWidget* now) {
  if (now == &view_ && Window().IsAttached() && CurrentRow() < 0) view_.selectionModel()->clearCurrentIndex();
}

int RowsPeer::RowsAPage() const {
  const int height = view_.visualRect(view_.model()->index(0, LeadingColumn())).height();
  return std::max(1, view_.viewport()->height() / std::max(1, height));
}

void RowsPeer::Read(ControlState& state) const {
  WidgetPeer::Read(state);
  state.selected = SelectedRow();
}

std::optional<QPoint> RowsPeer::PlaceOfRow(int row) {
  const QModelIndex index = view_.model()->index(row, LeadingColumn());
  if (!index.isValid()) return std::nullopt;
  view_.scrollTo(index);
  const QRect place = view_.visualRect(index).intersected(view_.viewport()->rect());
  return place.center();
}

bool RowsPeer::HandleMouse(QMouseEvent& event) {
  if (passingOn_) return false;
  const bool onRow = view_.indexAt(event.position().toPoint()).isValid();
  switch (event.type()) {
    case QEvent::MouseButtonPress:
      buttonDown_ = true;
      pressedRow_ = onRow;
      doubleClicked_ = false;
      return false;
    case QEvent::MouseButtonDblClick:
      buttonDown_ = false;
      doubleClicked_ = true;
      if (event.button() == Qt::LeftButton) GetControl().DoDoubleClick();  // beside the rows as well
      return true;
    case QEvent::MouseButtonRelease:
      Release(event);
      return true;
    default:
      return false;
  }
}

// The view has its turn first, so that its selection stands when the program is told of the click.
void RowsPeer::Release(QMouseEvent& event) {
  passingOn_ = true;
  QApplication::sendEvent(view_.viewport(), &event);
  passingOn_ = false;
  buttonDown_ = false;
  if (!IsPersonsDoing() || doubleClicked_) return;
  const int row = pressedRow_ ? SelectedRow() : -1;
  const bool right = event.button() == Qt::RightButton;
  // The left button clicks the current row again; the right one only goes to a row.
  if (row >= 0 ? !right || row != CurrentRow() : pressedRow_ && CanPickNone()) {
    Pick(row);
  } else if (row < 0) {
    Refresh(Aspect::Selection);  // beside the rows, or with Ctrl on the one that is selected: it stays
  }
  if (Window().IsAttached()) GetControl().DoMouseUp(right ? MouseButton::Right : MouseButton::Left);
}

// By keyboard. What the mouse selects counts when its button comes up.
void RowsPeer::SelectionChanged() {
  if (!IsPersonsDoing() || buttonDown_) return;
  const int row = SelectedRow();
  if (row >= 0 && row != CurrentRow()) Pick(row);
}

void RowsPeer::ScrollSideways(int steps) {
  QScrollBar& bar = *view_.horizontalScrollBar();
  bar.setValue(bar.value() + steps * bar.singleStep());
}

std::vector<int> RowsPeer::SelectedRows() const {
  std::vector<int> rows;
  for (const QModelIndex& index : view_.selectionModel()->selectedRows()) rows.push_back(index.row());
  std::sort(rows.begin(), rows.end());
  // The row that the hand is on comes last.
  const auto current = std::find(rows.begin(), rows.end(), view_.currentIndex().row());
  if (current != rows.end()) std::rotate(current, current + 1, rows.end());
  return rows;
}

int RowsPeer::SelectedRow() const {
  const std::vector<int> rows = SelectedRows();
  return rows.empty() ? -1 : rows.back();
}

void RowsPeer::ShowSelected(int row) {
  QItemSelectionModel& selection = *view_.selectionModel();
  const QModelIndex index = view_.model()->index(row, LeadingColumn());
  if (!index.isValid()) {
    selection.clear();
    return;
  }
  // A list that the person has scrolled away from the row stays where it is when other rows change.
  if (index == view_.currentIndex() && selection.isRowSelected(row)) return;
  selection.setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  view_.scrollTo(index);
}

}  // namespace lantos::ui
