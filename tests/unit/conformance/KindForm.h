#pragma once

#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QVBoxLayout>
#include <memory>
#include <string>
#include <vector>

#include "frame/Dates.h"
#include "ui/Form.h"
#include "ui/qt/Binding.h"

// One control of a kind in a condition, between two buttons. The same form serves plain controls and real widgets.
namespace lantos::test {

enum class Condition { Empty, One, Many, Chosen, Disabled, Locked };
inline constexpr Condition kConditions[] = {Condition::Empty,  Condition::One,      Condition::Many,
                                            Condition::Chosen, Condition::Disabled, Condition::Locked};
inline const char* NameOf(Condition condition) {
  constexpr const char* names[] = {"empty", "one", "many", "chosen", "disabled", "locked"};
  return names[static_cast<std::size_t>(condition)];
}

inline constexpr const char* kKinds[] = {"Button", "CheckBox",  "OptionButton", "line",    "capitals", "secret",
                                         "page",   "drop-down", "editable",     "list",    "multi",    "boxes",
                                         "Grid",   "ListView",  "MonthView",    "DTPicker"};

class KindForm : public ui::Form {
 public:
  KindForm(ui::Desktop& desktop, const std::string& kind, Condition condition) : Form(desktop, "frmKind", "Kind") {
    Make(kind);
    after_ = std::make_unique<ui::Button>(*this, "cmdAfter", "&After");
    cancel_ = std::make_unique<ui::Button>(*this, "cmdCancel", "&Cancel");
    SetCancelButton(*cancel_);
    Listen(before_);
    Listen(*after_);
    Listen(*cancel_);
    for (const auto& subject : subjects_) Listen(*subject);
    Bring(condition);
  }

  ui::Control& Subject() { return *subjects_.front(); }
  // What the form was told, in order.
  std::vector<std::string> happened;

 private:
  // The keys of a screen that saves and closes.
  void OnKeyDown(ui::KeyPress& key) override {
    if (key.Is("F10") || key.Is("Esc")) happened.push_back("form " + key.key);
  }

  template <class Kind, class... More>
  Kind& Add(const char* name, More... more) {
    subjects_.push_back(std::make_unique<Kind>(*this, name, more...));
    return dynamic_cast<Kind&>(*subjects_.back());
  }

  void Make(const std::string& kind) {
    if (kind == "Button") Add<ui::Button>("subject", "&Subject");
    if (kind == "CheckBox") Add<ui::CheckBox>("subject", "&Subject");
    if (kind == "OptionButton") {
      for (const char* name : {"subject", "second", "third"}) Add<ui::OptionButton>(name, name);
    }
    if (kind == "line") Add<ui::TextBox>("subject");
    if (kind == "capitals") {
      auto& box = Add<ui::TextBox>("subject");
      box.SetUpperCase(true);
      box.SetMaxLength(18);
    }
    if (kind == "secret") Add<ui::TextBox>("subject").SetPassword(true);
    if (kind == "page") {
      auto& page = Add<ui::TextBox>("subject");
      page.SetMultiLine(true);
      page.SetMaxLength(40);
    }
    if (kind == "drop-down") Add<ui::ComboBox>("subject");
    if (kind == "editable") Add<ui::ComboBox>("subject").SetEditable(true);
    if (kind == "list") Add<ui::ListBox>("subject");
    if (kind == "multi") Add<ui::ListBox>("subject").SetMultiSelect(true);
    if (kind == "boxes") Add<ui::ListBox>("subject").SetCheckBoxes(true);
    if (kind == "Grid") Add<ui::Grid>("subject").SetColumns({{"Name", "Name"}, {"Year", "Year", true}});
    if (kind == "ListView") {
      Add<ui::ListView>("subject").SetColumns({{"Hidden", "", false, true}, {"Name", "Name"}});
    }
    if (kind == "MonthView") Add<ui::MonthView>("subject").SetValue(ToSerial({2003, 1, 31}));
    if (kind == "DTPicker") Add<ui::DTPicker>("subject").SetValue(ToSerial({2003, 1, 31}));
  }

  void Bring(Condition condition) {
    const int rows = condition == Condition::Empty ? 0 : condition == Condition::One ? 1 : 9;
    ui::Control& subject = Subject();
    if (auto* list = dynamic_cast<ui::RowControl*>(&subject)) {
      for (int row = 0; row < rows; ++row) list->AddItem(RowText(row), row);
      if (condition == Condition::Chosen) Choose(*list);
    }
    if (auto* grid = dynamic_cast<ui::Grid*>(&subject)) {
      std::vector<ui::GridRow> cells;
      for (int row = 0; row < rows; ++row) cells.push_back({{RowText(row), RowText(row)}, row});
      grid->SetRows(std::move(cells));
      if (condition == Condition::Chosen) grid->SetRow(3);
    }
    if (auto* box = dynamic_cast<ui::TextBox*>(&subject)) {
      const char* longest =
          box->MultiLine() ? "1111 222\r\n33333\r\n4444" : "ONE TWO THREE";  // digits are of one width
      box->SetText(rows == 0 ? "" : rows == 1 ? "A" : longest);
      box->SetLocked(condition == Condition::Locked);
    }
    if (auto* check = dynamic_cast<ui::CheckBox*>(&subject)) check->SetValue(condition == Condition::Chosen);
    if (auto* option = dynamic_cast<ui::OptionButton*>(&subject)) option->SetValue(condition == Condition::Chosen);
    subject.SetEnabled(condition != Condition::Disabled);
    happened.clear();
  }

  static void Choose(ui::RowControl& rows) {
    auto* list = dynamic_cast<ui::ListBox*>(&rows);
    list != nullptr ? list->SelectRow(3) : rows.SetListIndex(3);
  }

  // Names that begin alike and otherwise, none of them in the order of the alphabet.
  static std::string RowText(int row) {
    static constexpr const char* kNames[] = {"alpha", "beta",    "brake", "brine", "charge",
                                             "disc",  "exhaust", "belt",  "zinc"};
    return kNames[row];
  }

  void Listen(ui::Control& control) {
    const auto tell = [this, &control](const char* what) { happened.push_back(control.Name() + " " + what); };
    control.OnClick = [tell] { tell("click"); };
    control.OnDoubleClick = [tell] { tell("double"); };
    control.OnGotFocus = [tell] { tell("got"); };
    control.OnLostFocus = [tell] { tell("lost"); };
    control.OnMouseUp = [tell](ui::MouseButton button) { tell(button == ui::MouseButton::Right ? "right" : "left"); };
    if (auto* box = dynamic_cast<ui::TextBox*>(&control)) box->OnChange = [tell] { tell("change"); };
    if (auto* combo = dynamic_cast<ui::ComboBox*>(&control)) combo->OnChange = [tell] { tell("change"); };
    if (auto* list = dynamic_cast<ui::ListBox*>(&control)) list->OnItemCheck = [tell](int) { tell("check"); };
    if (auto* grid = dynamic_cast<ui::Grid*>(&control)) grid->OnRowChange = [tell] { tell("row"); };
    if (auto* picker = dynamic_cast<ui::DTPicker*>(&control)) picker->OnChange = [tell] { tell("change"); };
    if (auto* month = dynamic_cast<ui::MonthView*>(&control)) {
      month->OnDateClick = [tell](DaySerial) { tell("date"); };
      month->OnMarkMoved = [tell] { tell("mark"); };
    }
  }

  ui::Button before_{*this, "cmdBefore", "&Before"};
  std::vector<std::unique_ptr<ui::Control>> subjects_;
  std::unique_ptr<ui::Button> after_;
  std::unique_ptr<ui::Button> cancel_;
};

inline QWidget* MakeWidget(const ui::Control& control) {
  if (dynamic_cast<const ui::Button*>(&control) != nullptr) return new QPushButton;
  if (dynamic_cast<const ui::CheckBox*>(&control) != nullptr) return new QCheckBox;
  if (dynamic_cast<const ui::OptionButton*>(&control) != nullptr) return new QRadioButton;
  if (dynamic_cast<const ui::ComboBox*>(&control) != nullptr) return new QComboBox;
  if (dynamic_cast<const ui::ListBox*>(&control) != nullptr) return new QListWidget;
  if (dynamic_cast<const ui::Grid*>(&control) != nullptr) return new QTableView;
  if (dynamic_cast<const ui::MonthView*>(&control) != nullptr) return new QCalendarWidget;
  if (dynamic_cast<const ui::DTPicker*>(&control) != nullptr) return new QDateEdit;
  const auto& box = dynamic_cast<const ui::TextBox&>(control);
  return box.MultiLine() ? static_cast<QWidget*>(new QPlainTextEdit) : new QLineEdit;
}

// Widgets for a form's controls, one below the other, with room for a dozen rows.
inline std::unique_ptr<QWidget> DesignFor(const ui::Form& form) {
  constexpr int kRoom = 480;  // pixels
  auto root = std::make_unique<QWidget>();
  auto* layout = new QVBoxLayout(root.get());
  for (const ui::Control* control : form.Controls()) {
    QWidget* widget = MakeWidget(*control);
    widget->setObjectName(ui::ObjectNameOf(*control));
    widget->setMinimumWidth(kRoom);  // the middle of a field is behind its text
    if (qobject_cast<QAbstractItemView*>(widget) != nullptr) widget->setMinimumHeight(kRoom);
    layout->addWidget(widget);
  }
  return root;
}

}  // namespace lantos::test
