#include "ui/qt/MenuActions.h"

#include "ui/qt/Text.h"

namespace lantos::ui {

void ShowState(QAction& action, const MenuItem& item) {
  // An entry shows a box for its mark from its first mark on.
  if (item.Checked()) action.setCheckable(true);
  action.setChecked(item.Checked());
  action.setEnabled(item.Enabled());
  action.setVisible(item.Visible());
}

MenuActions::~MenuActions() { Detach(); }

void MenuActions::FillBar(QMenuBar& bar, const std::vector<std::unique_ptr<MenuItem>>& menus) {
  for (const auto& menu : menus) {
    if (!menu->Visible()) continue;
    QMenu& shown = *bar.addMenu(ToQt(menu->Caption()));
    Follow(*shown.menuAction(), *menu);
    Fill(shown, *menu);
  }
}

void MenuActions::Fill(QMenu& menu, MenuItem& parent) {
  for (const auto& item : parent.Items()) {
    if (item->Caption() == "-") {
      menu.addSeparator();
    } else if (item->Items().empty()) {
      QAction& action = *menu.addAction(ToQt(item->Caption()));
      Follow(action, *item);
      QObject::connect(&action, &QAction::triggered, &action, [this, &action, entry = item.get()] {
        if (!actions_.contains(entry)) return;
        entry->DoClick();
        // The action has turned its mark by itself; what holds is the entry's.
        if (actions_.contains(entry)) ShowState(action, *entry);
      });
    } else {
      QMenu& inner = *menu.addMenu(ToQt(item->Caption()));
      Follow(*inner.menuAction(), *item);
      Fill(inner, *item);
    }
  }
}

void MenuActions::Follow(QAction& action, MenuItem& item) {
  actions_.insert(&item, &action);
  followed_.push_back(&item);
  item.OnChanged = [&action, &item] { ShowState(action, item); };
  ShowState(action, item);
}

QAction* MenuActions::ActionOf(const MenuItem& item) const { return actions_.value(&item, nullptr); }

void MenuActions::Detach() {
  for (MenuItem* item : followed_) item->OnChanged = nullptr;
  followed_.clear();
  actions_.clear();
}

}  // namespace lantos::ui
