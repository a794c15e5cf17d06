#include "board/BoardMenus.h"

#include "admin/frmCompanyInfo.h"
#include "admin/frmDisclaimer.h"
#include "admin/frmPrintOptions.h"
#include "admin/frmSystemParameters.h"
#include "board/frmSpecialDays.h"
#include "board/frmStatusOptions.h"
#include "board/frmStdHours.h"
#include "frame/Text.h"
#include "help/frmAbout.h"
#include "masters/employees/EmployeeScreens.h"
#include "masters/inventory/InventoryMaintenance.h"
#include "masters/vendors/VendorScreens.h"
#include "records/Customers.h"
#include "records/Passwords.h"
#include "screens/CheckPassword.h"
#include "screens/SaveOptions.h"
#include "ui/HelpDesk.h"
#include "ui/Shell.h"

namespace lantos {

namespace {

constexpr const char* kHomePage = "https://www.korvel.example/";
constexpr const char* kQuickStartGuide = "Lantos Quick Start Guide.pdf";

constexpr const char* kShowStatusCaptions[kStatusCount] = {
    "&0 Scheduled", "&1 Arrived",   "&2 In Progress", "&3 Completed", "&4 Departed",
    "&5 Continued", "&6 Cancelled", "&7 Rescheduled", "&8 No-show",   "&9 Estimate Only"};

void Use(ui::Form& form) {
  form.ShowModal();
  form.Unload();
}

}  // namespace

void BoardMenus::Build(const std::vector<BoardCommand>& commands, Actions actions) {
  actions_ = std::move(actions);
  BuildFileMenu();
  BuildCommandMenu(commands);
  BuildMaintenanceMenu();
  BuildFilterMenu();
  BuildStatusPopup();
  BuildHelpMenu();
  BuildRefreshPopup();
}

void BoardMenus::BuildFileMenu() {
  ui::MenuItem& file = form_.AddMenu("mnuFile", "&File");
  file.Add("mnuKorvelcom", "&Korvel Home Page", [this] { ui::ShellOpen(shop_.desktop, kHomePage); });
  // Ends on the spot, with nothing stored and nothing closed in order.
  file.Add("mnuFileExit", "E&xit", [this] { shop_.desktop.EndProcess(0); });
}

void BoardMenus::BuildCommandMenu(const std::vector<BoardCommand>& commands) {
  ui::MenuItem& menu = form_.AddMenu("mnuCommand", "&Commands");
  for (const BoardCommand& command : commands) {
    if (command.menu.name == nullptr) continue;
    ui::Button& button = *command.button;
    menu.Add(command.menu.name, command.menu.caption, [&button] { button.OnClick(); }).SetEnabled(button.Enabled());
  }
  menu.Add("mnuShowTrail", "Show Tra&il", [this] { actions_.showTrail(); });
  follow_ = &menu.Add("mnuFollow", "Follow Other Wor&kstations", [this] { actions_.follow(); });
}

void BoardMenus::BuildMaintenanceMenu() {
  ui::MenuItem& maintenance = form_.AddMenu("mnuMaint", "&Maintenance");
  maintenance.Add("mnuCustomer", "&Customers", [this] {
    if (!MayEnter(shop_, Section::Customer)) return;
    const Customers& customers = shop_.records.customers;
    const std::size_t before = customers.Writings();
    masters_.CustomerMaintenance(MasterScreens::Purpose::Maintain);
    if (customers.Writings() != before) actions_.customersEdited();
  });
  maintenance.Add("mnuMaintEmployees", "&Employees", [this] {
    if (MayEnter(shop_, Section::Employee)) EmployeeMaintenance(shop_, database_.korvelData);
  });
  maintenance.Add("mnuMaintInventory", "&Inventory", [this] {
    if (MayEnter(shop_, Section::Inventory)) InventoryMaintenance(shop_, inventoryList_);
  });
  maintenance.Add("mnuMaintVendors", "&Vendors", [this] {
    if (MayEnter(shop_, Section::Vendor)) VendorMaintenance(shop_);
  });
  ui::MenuItem& refresh = maintenance.Add("mnuRefresh", "&Refresh");
  refresh.Add("mnuRefreshCustomer", "&Customers", [this] { RefreshCustomerIndex(); });
  refresh.Add("mnuRefreshTotals", "&Totals", [this] { actions_.refreshTotals(); });
  BuildSystemMenu(maintenance.Add("mnuMaintSystemInfo", "&System"));
}

void BoardMenus::BuildSystemMenu(ui::MenuItem& system) {
  const auto behind = [this](Section section, std::function<void()> use) {
    return [this, section, use = std::move(use)] {
      if (MayEnter(shop_, section)) use();
    };
  };
  system.Add("mnuSystemCompanyInfo", "&Company Info", behind(Section::System, [this] {
               frmCompanyInfo form(shop_);
               Use(form);
               if (form.Saved()) actions_.systemChanged();
             }));
  system.Add("mnuDisclaimer", "&Estimate Disclaimer", behind(Section::EditMenu, [this] {
               frmDisclaimer form(shop_);
               Use(form);
             }));
  system.Add("mnuSystemParameters", "&Parameters", behind(Section::System, [this] {
               frmSystemParameters form(shop_);
               Use(form);
               if (form.Saved()) actions_.systemChanged();
             }));
  system.Add("mnuPrintOptions", "Print &Options", [this] { EditPrintOptions(); });
  system.Add("mnuSpecialDays", "Special &Days", behind(Section::System, [this] {
               frmSpecialDays form(shop_, database_.lantosData);
               Use(form);
             }));
  system.Add("mnuStandardHours", "Standard &Hours", behind(Section::System, [this] {
               frmStdHours form(shop_, database_.lantosData);
               Use(form);
             }));
  system.Add("mnuStatusOptions", "&Status Options", behind(Section::System, [this] { EditStatusOptions(); }));
}

void BoardMenus::EditPrintOptions() {
  ProfileFile profile = shop_.environment.Profile();
  shop_.environment.printOptions = LoadPrintOptions(profile);
  frmPrintOptions form(shop_);
  Use(form);
  PrintOptions& options = shop_.environment.printOptions;
  const auto save = [&] { return SavePrintOptions(profile, options); };
  if (!form.ok || SaveOptions(shop_.desktop, profile, "the print options", save)) return;
  options = LoadPrintOptions(profile);
}

void BoardMenus::EditStatusOptions() {
  ProfileFile profile = shop_.environment.Profile();
  shop_.environment.statusOptions = LoadStatusOptions(profile);
  frmStatusOptions form(shop_);
  Use(form);
  StatusOptions& options = shop_.environment.statusOptions;
  const auto save = [&] { return SaveStatusOptions(profile, options); };
  if (!form.ok || SaveOptions(shop_.desktop, profile, "the status options", save)) return;
  options = LoadStatusOptions(profile);
}

void BoardMenus::BuildFilterMenu() {
  ui::MenuItem& show = form_.AddMenu("mnuShowStatus", "&Show Status");
  for (std::size_t i = 0; i < kStatusCount; ++i) {
    ui::MenuItem& item = show.Add("mnuShowStat", kShowStatusCaptions[i], nullptr, static_cast<int>(i));
    item.SetChecked(true);
    // The filter takes effect at the next load of the week.
    item.OnClick = [&item] { item.SetChecked(!item.Checked()); };
    showStatus_[i] = &item;
  }
}

void BoardMenus::BuildStatusPopup() {
  statusPopup_ = &form_.AddMenu("mnuPopupStatusMenu", "Status");
  statusPopup_->SetVisible(false);
  for (std::size_t i = 0; i < kStatusCount; ++i) {
    const auto status = static_cast<std::int16_t>(i);
    popupStatus_[i] = &statusPopup_->Add(
        "mnuPopupStatus", std::string(kStatusDescriptions[i].popupCaption),
        [this, status] { actions_.changeStatus(status); }, static_cast<int>(i));
  }
}

void BoardMenus::BuildHelpMenu() {
  ui::MenuItem& help = form_.AddMenu("mnuHelp", "&Help");
  help.Add("mnuHQuickStartGuide", "&Quick Start Guide",
           [this] { ui::ShowHelpFile(shop_.desktop, shop_.environment.files, "", kQuickStartGuide); });
  help.Add("mnuHScreen", "&Help on This Screen <F1>", [this] { ui::ShowHelp(form_); });
  help.Add("mnuHAbout", "&About Lantos", [this] {
    frmAbout form(shop_, database_);
    Use(form);
  });
}

void BoardMenus::BuildRefreshPopup() {
  popupMenu_ = &form_.AddMenu("mnuPopup", "Popup");
  popupMenu_->SetVisible(false);
  popupMenu_->Add("mnuPopupRefreshCustomers", "Refresh Customers", [this] { RefreshCustomerIndex(); });
}

void BoardMenus::RefreshCustomerIndex() {
  {
    const ui::Hourglass hourglass(shop_.desktop);
    if (!shop_.records.customers.RefreshCustomers()) return;
  }
  shop_.desktop.Tell("Customer information refreshed.", "Refresh Complete.");
}

bool BoardMenus::IsShown(std::int16_t status) const {
  return status >= 0 && status < static_cast<int>(kStatusCount) &&
         showStatus_[static_cast<std::size_t>(status)]->Checked();
}

std::string BoardMenus::ShownStatuses() const {
  std::string shown;
  for (const ui::MenuItem* item : showStatus_) shown += item->Checked() ? '1' : '0';
  return shown;
}

void BoardMenus::ShowStatuses(std::string_view shown) {
  for (std::size_t i = 0; i < showStatus_.size(); ++i) {
    showStatus_[i]->SetChecked(Val(Mid(shown, i + 1, 1)) != 0);
  }
}

void BoardMenus::PopupRefresh() { shop_.desktop.PopupMenu(form_, *popupMenu_); }

void BoardMenus::PopupStatus(std::int16_t current) {
  const StatusOptions& options = shop_.environment.statusOptions;
  for (std::size_t i = 0; i < kStatusCount; ++i) {
    const auto entry = static_cast<std::int16_t>(i);
    popupStatus_[i]->SetVisible(PopupOffers(options, current, entry));
    popupStatus_[i]->SetChecked(entry == current);
  }
  shop_.desktop.PopupMenu(form_, *statusPopup_);
}

}  // namespace lantos
