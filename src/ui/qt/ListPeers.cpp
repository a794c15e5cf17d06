#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QStyledItemDelegate>

#include "ui/qt/FormWindow.h"
#include "ui/qt/RowsPeer.h"
#include "ui/qt/Text.h"

namespace lantos::ui {

namespace {

// The room that the program leaves behind the longest text. A row has margins of its own.
constexpr QLatin1String kRoomBehindText("  ");

// All rows are as wide as the program asked for, so that the longest can be scrolled to.
class RowDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  int extent = 0;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    if (extent > 0) {
      const int margins = 2 * (option.widget->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, &option) + 1);
      size.setWidth(extent - option.fontMetrics.horizontalAdvance(kRoomBehindText) + margins);
    }
    return size;
  }
};

class ListPeer : public RowsPeer {
 public:
  ListPeer(FormWindow& window, ListBox& control, QListWidget& list)
      : RowsPeer(window, control, list), box_(control), list_(list), delegate_(new RowDelegate(&list)) {
    list_.setItemDelegate(delegate_);
    list_.setUniformItemSizes(true);
    list_.setTextElideMode(Qt::ElideNone);
    list_.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    list_.setEditTriggers(QAbstractItemView::NoEditTriggers);
    QObject::connect(&list_, &QListWidget::itemChanged, &list_, [this](QListWidgetItem* item) {
      if (!IsPersonsDoing() || !box_.CheckBoxes()) return;
      const int row = list_.row(item);
      const bool checked = item->checkState() == Qt::Checked;
      if (box_.Checked(row) != checked) box_.DoCheck(row, checked);
    });
  }

  void Read(ControlState& state) const override {
    RowsPeer::Read(state);
    state.rows->resize(static_cast<std::size_t>(list_.count()));
    for (int row = 0; row < list_.count(); ++row) {
      const QListWidgetItem& item = *list_.item(row);
      ListRow& shown = (*state.rows)[static_cast<std::size_t>(row)];
      shown.text = ShownText(item.text());
      shown.selected = item.isSelected();
      if (box_.CheckBoxes()) shown.checked = item.checkState() == Qt::Checked;
    }
  }

 private:
  int CurrentRow() const override { return box_.ListIndex(); }

  void Pick(int row) override {
    if (box_.MultiSelect()) {
      box_.DoSelectRows(SelectedRows());
    } else {
      box_.DoSelect(row);
    }
  }

  void Apply(unsigned aspects) override {
    list_.setSelectionMode(box_.MultiSelect() ? QAbstractItemView::ExtendedSelection
                                              : QAbstractItemView::SingleSelection);
    if (delegate_->extent != box_.HorizontalExtent()) {
      delegate_->extent = box_.HorizontalExtent();
      list_.doItemsLayout();
    }
    if (Has(aspects, Aspect::Rows)) ShowRows();
    if (Has(aspects, Aspect::Rows) || Has(aspects, Aspect::Selection)) ShowSelection();
  }

  void ShowRows() {
    const auto& rows = box_.Rows();
    while (list_.count() > box_.ListCount()) delete list_.takeItem(list_.count() - 1);
    QStringList added;
    for (std::size_t row = static_cast<std::size_t>(list_.count()); row < rows.size(); ++row) {
      added.append(ToQt(rows[row].text));
    }
    const int kept = list_.count();
    list_.addItems(added);
    for (int row = 0; row < list_.count(); ++row) {
      QListWidgetItem& item = *list_.item(row);
      const ListRow& wanted = rows[static_cast<std::size_t>(row)];
      if (row < kept) item.setText(ToQt(wanted.text));
      if (box_.CheckBoxes()) item.setCheckState(wanted.checked ? Qt::Checked : Qt::Unchecked);
    }
  }

  void ShowSelection() {
    if (!box_.MultiSelect()) return ShowSelected(box_.ListIndex());
    for (int row = 0; row < list_.count(); ++row) list_.item(row)->setSelected(box_.Selected(row));
  }

  ListBox& box_;
  QListWidget& list_;
  RowDelegate* delegate_;
};

class ComboPeer : public WidgetPeer {
 public:
  ComboPeer(FormWindow& window, ComboBox& control, QComboBox& combo)
      : WidgetPeer(window, control, combo), box_(control), combo_(combo) {
    combo_.setEditable(box_.Editable());
    combo_.setInsertPolicy(QComboBox::NoInsert);
    if (box_.Editable()) combo_.setCompleter(nullptr);
    QObject::connect(&combo_, &QComboBox::activated, &combo_, [this](int row) {
      if (IsPersonsDoing()) box_.DoSelect(row);
      if (Window().IsAttached()) Refresh(Aspect::Selection);
    });
    if (!box_.Editable()) return;
    QObject::connect(combo_.lineEdit(), &QLineEdit::textEdited, &combo_, [this](const QString& text) {
      if (IsPersonsDoing()) box_.DoEdit(FromQt(text));
    });
  }

  void Read(ControlState& state) const override {
    WidgetPeer::Read(state);
    state.text = ShownText(combo_.currentText());
    state.selected = combo_.currentIndex();
    state.rows->resize(static_cast<std::size_t>(combo_.count()));
    for (int row = 0; row < combo_.count(); ++row) {
      (*state.rows)[static_cast<std::size_t>(row)].text = ShownText(combo_.itemText(row));
      (*state.rows)[static_cast<std::size_t>(row)].selected = row == combo_.currentIndex();
    }
  }

 private:
  void Apply(unsigned aspects) override {
    if (Has(aspects, Aspect::Rows)) ShowRows();
    if (combo_.currentIndex() != box_.ListIndex()) combo_.setCurrentIndex(box_.ListIndex());
    if (!box_.Editable()) return;
    if (box_.MaxLength() != 0) combo_.lineEdit()->setMaxLength(static_cast<int>(box_.MaxLength()));
    if (combo_.lineEdit()->text() != ToQt(box_.Text())) combo_.setEditText(ToQt(box_.Text()));
  }

  void ShowRows() {
    QStringList texts;
    for (const ListRow& row : box_.Rows()) texts.append(ToQt(row.text));
    combo_.clear();
    combo_.addItems(texts);
  }

  ComboBox& box_;
  QComboBox& combo_;
};

}  // namespace

std::unique_ptr<WidgetPeer> MakeListPeer(FormWindow& window, ListBox& control, QWidget& widget) {
  return std::make_unique<ListPeer>(window, control, dynamic_cast<QListWidget&>(widget));
}

std::unique_ptr<WidgetPeer> MakeComboPeer(FormWindow& window, ComboBox& control, QWidget& widget) {
  return std::make_unique<ComboPeer>(window, control, dynamic_cast<QComboBox&>(widget));
}

}  // namespace lantos::ui
