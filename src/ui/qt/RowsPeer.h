#pragma once

#include <QAbstractItemView>
#include <vector>

#include "ui/qt/WidgetPeer.h"

namespace lantos::ui {

// What lists and grids have in common: the person picks rows by mouse and keyboard.
class RowsPeer : public WidgetPeer {
 public:
  RowsPeer(FormWindow& window, Control& control, QAbstractItemView& view);

  void Read(ControlState& state) const override;
  QWidget& MouseTarget() const override { return *view_.viewport(); }
  bool HandleMouse(QMouseEvent& event) override;
  std::optional<QPoint> PlaceOfRow(int row) override;
  int RowsAPage() const override;
  void ScrollSideways(int steps) override;

 protected:
  virtual int CurrentRow() const = 0;  // the control's
  virtual void Pick(int row) = 0;      // by the person; -1: none, where that can be
  virtual bool CanPickNone() const { return false; }
  virtual int LeadingColumn() const { return 0; }  // the first that can be seen
  std::vector<int> SelectedRows() const;           // in order, but the current one last
  int SelectedRow() const;                         // -1 when there is none
  // Makes this the one row that is selected.
  void ShowSelected(int row);

 private:
  void Release(QMouseEvent& event);
  void FocusCame(const QWidget* now);
  void SelectionChanged();

  QAbstractItemView& view_;
  bool buttonDown_ = false;
  bool pressedRow_ = false;
  bool doubleClicked_ = false;
  bool passingOn_ = false;
};

}  // namespace lantos::ui
