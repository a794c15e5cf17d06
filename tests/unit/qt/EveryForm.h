#pragma once

#include <functional>

#include "admin/TestShop.h"
#include "admin/frmEnterPwd.h"
#include "admin/frmPrintOptions.h"
#include "board/frmEstStatus.h"
#include "board/frmMain.h"
#include "board/frmSpecialDays.h"
#include "board/frmStatusOptions.h"
#include "board/frmStdHours.h"
#include "estimatedb/EstimateDatabase.h"
#include "frame/start/frmEnterDir.h"
#include "frame/start/frmSplash.h"
#include "masters/MasterScreens.h"
#include "masters/frmCustEdit.h"
#include "masters/frmCustSearch.h"
#include "masters/frmMakeModel.h"
#include "masters/frmVehEdit.h"
#include "masters/frmVehList.h"

namespace lantos::test {

// One of each form of the program, made but not loaded.
inline std::vector<std::unique_ptr<ui::Form>> EveryForm(Shop& shop, EstimateDatabase& database,
                                                        MasterScreens& masters) {
  std::vector<std::unique_ptr<ui::Form>> forms;
  forms.push_back(std::make_unique<frmMain>(shop, database, masters, StartAndStop{[] {}, [] { return true; }, [] {}}));
  forms.push_back(std::make_unique<frmSplash>(shop.desktop));
  forms.push_back(std::make_unique<frmEnterDir>(shop.desktop, shop.environment));
  forms.push_back(std::make_unique<frmEnterPwd>(shop, "System"));
  forms.push_back(std::make_unique<frmPrintOptions>(shop));
  forms.push_back(std::make_unique<frmStdHours>(shop, database.lantosData));
  forms.push_back(std::make_unique<frmSpecialDays>(shop, database.lantosData));
  forms.push_back(std::make_unique<frmEstStatus>(shop, database));
  forms.push_back(std::make_unique<frmStatusOptions>(shop));
  forms.push_back(std::make_unique<frmCustSearch>(shop));
  forms.push_back(std::make_unique<frmCustEdit>(shop));
  forms.push_back(std::make_unique<frmVehList>(shop));
  forms.push_back(std::make_unique<frmVehEdit>(shop, "Edit Vehicle"));
  forms.push_back(std::make_unique<frmMakeModel>(shop));
  return forms;
}

// With nothing but paper behind them.
struct PaperShop : TestShop {
  EstimateDatabase database{environment, records};
  MasterScreens masters{shop};
  std::vector<std::unique_ptr<ui::Form>> forms = EveryForm(shop, database, masters);
};

}  // namespace lantos::test
