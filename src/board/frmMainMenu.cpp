#include "admin/frmDisclaimer.h"
#include "admin/frmPrintOptions.h"
#include "board/StatusChange.h"
#include "board/frmMain.h"
#include "board/frmSpecialDays.h"
#include "board/frmStatusOptions.h"
#include "board/frmStdHours.h"
#include "records/Customers.h"
#include "records/inventory/Inventory.h"
#include "screens/CheckPassword.h"
#include "ui/Shell.h"

namespace lantos {

namespace {

constexpr const char* kHomePage = "https://www.korvel.example/";
constexpr const char* kQuickStartGuide = "Lantos Quick Start Guide.pdf";

struct CommandEntry {
  const char* name;
  const char* caption;
  ui::Button frmMain::*button;  // whose click it is
};
constexpr CommandEntry kCommands[] = {
    {"mnuNewEstimate", "&New Estimate", &frmMain::cmdNewEstimate},
    {"mnuPrintEstimate", "&Print Estimate", &frmMain::cmdPrintEstimate},
    {"mnuPrintWorksheet", "Print &Worksheet", &frmMain::cmdPrintWorksheet},
    {"mnuConvertToWO", "&Convert to WO", &frmMain::cmdConvert},
    {"mnuReschedule", "&Reschedule", &frmMain::cmdReschedule},
    {"mnuChangeStatus", "Change &Status", &frmMain::cmdChangeStatus},
    {"mnuFind", "&Find", &frmMain::cmdFind},
    {"mnuWOHistory", "WO &History", &frmMain::cmdWOHistory},
    {"mnuTechHours", "&Tech Hours", &frmMain::cmdTechHours},
    {"mnuEstimateNotes", "Estimate N&otes", &frmMain::cmdEstimateNotes},
    {"mnuEstimateSublets", "Estimate S&ublets", &frmMain::cmdEstimateSublets},
    {"mnuEstimateWaste", "Estimate W&aste", &frmMain::cmdEstimateWaste},
    {"mnuEstimateChecklist", "Estimate Check&list", &frmMain::cmdEstimateChecklist},
};

constexpr const char* kShowStatusCaptions[kStatusCount] = {
    "&0 Scheduled", "&1 Arrived",   "&2 In Progress", "&3 Completed", "&4 Departed",
    "&5 Continued", "&6 Cancelled", "&7 Rescheduled", "&8 No-show",   "&9 Estimate Only"};

void Use(ui::Form& form) {
  form.ShowModal();
  form.Unload();
}

}  // namespace

void frmMain::BuildMenus() {
  ui::MenuItem& file = AddMenu("mnuFile", "&File");
  file.Add("mnuKorvelcom", "&Korvel Home Page", [this] { ui::ShellOpen(shop_.desktop, kHomePage); });
  // Ends on the spot, with nothing stored and nothing closed in order.
  file.Add("mnuFileExit", "E&xit", [this] { shop_.desktop.EndProcess(0); });

  ui::MenuItem& commands = AddMenu("mnuCommand", "&Commands");
  for (const CommandEntry& entry : kCommands) {
    ui::Button& button = this->*entry.button;
    commands.Add(entry.name, entry.caption, [&button] { button.OnClick(); }).SetEnabled(button.Enabled());
  }

  BuildMaintenanceMenu();
  BuildStatusMenus();
  AddMenu("mnuHelp", "&Help").Add("mnuHQuickStartGuide", "&Quick Start Guide", [this] {
    ui::ShowHelpFile(shop_.desktop, shop_.environment.files, "", kQuickStartGuide);
  });

  popupMenu_ = &AddMenu("mnuPopup", "Popup");
  popupMenu_->SetVisible(false);
  popupMenu_->Add("mnuPopupRefreshCustomers", "Refresh Customers", [this] { RefreshCustomerIndex(); });
}

void frmMain::BuildMaintenanceMenu() {
  ui::MenuItem& maintenance = AddMenu("mnuMaint", "&Maintenance");
  maintenance.Add("mnuCustomer", "&Customers", [this] {
    if (MayEnter(shop_, Section::Customer)) masters_.CustomerMaintenance(MasterScreens::Purpose::Maintain);
  });
  maintenance.Add("mnuMaintEmployees", "&Employees").SetEnabled(false);
  maintenance.Add("mnuMaintInventory", "&Inventory").SetEnabled(false);
  maintenance.Add("mnuMaintVendors", "&Vendors").SetEnabled(false);
  ui::MenuItem& refresh = maintenance.Add("mnuRefresh", "&Refresh");
  refresh.Add("mnuRefreshCustomer", "&Customers", [this] { RefreshCustomerIndex(); });
  refresh.Add("mnuRefreshTotals", "&Totals", [this] { RefreshTotals(); });
  BuildSystemMenu(maintenance.Add("mnuMaintSystemInfo", "&System"));
}

void frmMain::BuildSystemMenu(ui::MenuItem& system) {
  system.Add("mnuSystemCompanyInfo", "&Company Info").SetEnabled(false);
  system.Add("mnuDisclaimer", "&Estimate Disclaimer", [this] {
    if (!MayEnter(shop_, Section::EditMenu)) return;
    frmDisclaimer form(shop_);
    Use(form);
  });
  system.Add("mnuSystemParameters", "&Parameters").SetEnabled(false);
  system.Add("mnuPrintOptions", "Print &Options", [this] {
    ProfileFile profile = shop_.environment.Profile();
    shop_.environment.printOptions = LoadPrintOptions(profile);
    frmPrintOptions form(shop_);
    Use(form);
    if (form.ok) SavePrintOptions(profile, shop_.environment.printOptions);
  });
  system.Add("mnuSpecialDays", "Special &Days", [this] {
    if (!MayEnter(shop_, Section::System)) return;
    frmSpecialDays form(shop_, Data());
    Use(form);
  });
  system.Add("mnuStandardHours", "Standard &Hours", [this] {
    if (!MayEnter(shop_, Section::System)) return;
    frmStdHours form(shop_, Data());
    Use(form);
  });
  system.Add("mnuStatusOptions", "&Status Options", [this] {
    if (!MayEnter(shop_, Section::System)) return;
    ProfileFile profile = shop_.environment.Profile();
    shop_.environment.statusOptions = LoadStatusOptions(profile);
    frmStatusOptions form(shop_);
    Use(form);
    if (form.ok) SaveStatusOptions(profile, shop_.environment.statusOptions);
  });
}

void frmMain::BuildStatusMenus() {
  ui::MenuItem& show = AddMenu("mnuShowStatus", "&Show Status");
  for (std::size_t i = 0; i < kStatusCount; ++i) {
    ui::MenuItem& item = show.Add("mnuShowStat", kShowStatusCaptions[i], nullptr, static_cast<int>(i));
    item.SetChecked(true);
    // The filter takes effect at the next LoadWeek.
    item.OnClick = [&item] { item.SetChecked(!item.Checked()); };
    showStatus_[i] = &item;
  }
  statusPopup_ = &AddMenu("mnuPopupStatusMenu", "Status");
  statusPopup_->SetVisible(false);
  for (std::size_t i = 0; i < kStatusCount; ++i) {
    const auto status = static_cast<std::int16_t>(i);
    popupStatus_[i] = &statusPopup_->Add(
        "mnuPopupStatus", std::string(kStatusDescriptions[i].popupCaption),
        [this, status] { ChangeStatusByHand(shop_, database_, Continuing(), status); }, static_cast<int>(i));
  }
}

}  // namespace lantos
