#pragma once

#include <QAction>
#include <QHash>
#include <QMenu>
#include <QMenuBar>

#include "ui/Menu.h"

namespace lantos::ui {

// The menu entries of one form as actions. An action does what its entry does, and follows its mark, its being enabled
// and its being visible.
class MenuActions {
 public:
  ~MenuActions();
  // The menus of the bar: those whose own entry is visible.
  void FillBar(QMenuBar& bar, const std::vector<std::unique_ptr<MenuItem>>& menus);
  // Null when the entry isn't on the bar.
  QAction* ActionOf(const MenuItem& item) const;
  // The form is gone: no action leads anywhere any more.
  void Detach();

 private:
  void Fill(QMenu& menu, MenuItem& parent);
  void Follow(QAction& action, MenuItem& item);

  QHash<const MenuItem*, QAction*> actions_;
  std::vector<MenuItem*> followed_;
};

// Takes an entry's state over to its action.
void ShowState(QAction& action, const MenuItem& item);

}  // namespace lantos::ui
