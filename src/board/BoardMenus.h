#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "board/BoardCommands.h"
#include "board/StatusChange.h"
#include "masters/customers/MasterScreens.h"
#include "masters/inventory/frmInvList.h"
#include "ui/Form.h"

namespace lantos {

// The menu bar, the status filter on it, and the two menus that pop up.
class BoardMenus {
 public:
  // What the entries do that are no commands of the board.
  struct Actions {
    std::function<void()> refreshTotals;
    std::function<void()> customersEdited;
    std::function<void()> systemChanged;
    std::function<void()> follow;
    std::function<void()> showTrail;
    std::function<void(std::int16_t)> changeStatus;
  };

  BoardMenus(ui::Form& form, Shop& shop, EstimateDatabase& database, MasterScreens& masters, frmInvList& inventoryList)
      : form_(form), shop_(shop), database_(database), masters_(masters), inventoryList_(inventoryList) {}
  // All menus, in their order on the bar.
  void Build(const std::vector<BoardCommand>& commands, Actions actions);

  // The status filter: a digit a status, "1" where it is shown.
  bool IsShown(std::int16_t status) const;
  std::string ShownStatuses() const;
  void ShowStatuses(std::string_view shown);

  // Whether what others change is followed, as the menu says it.
  void ShowFollowing(bool isOn) { follow_->SetChecked(isOn); }

  void PopupRefresh();
  // The entries that an estimate of the current status may go to.
  void PopupStatus(std::int16_t current);

 private:
  void BuildFileMenu();
  void BuildCommandMenu(const std::vector<BoardCommand>& commands);
  void BuildMaintenanceMenu();
  void BuildSystemMenu(ui::MenuItem& system);
  void BuildFilterMenu();
  void BuildStatusPopup();
  void BuildHelpMenu();
  void BuildRefreshPopup();
  void RefreshCustomerIndex();
  void EditPrintOptions();
  void EditStatusOptions();

  ui::Form& form_;
  Shop& shop_;
  EstimateDatabase& database_;
  MasterScreens& masters_;
  frmInvList& inventoryList_;
  Actions actions_;
  ui::MenuItem* follow_ = nullptr;
  ui::MenuItem* popupMenu_ = nullptr;
  ui::MenuItem* statusPopup_ = nullptr;
  std::array<ui::MenuItem*, kStatusCount> showStatus_{};
  std::array<ui::MenuItem*, kStatusCount> popupStatus_{};
};

}  // namespace lantos
