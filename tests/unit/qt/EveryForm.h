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
class EveryForm : public TestShop {
 public:
  EveryForm() {
    Make<frmMain>(shop, database, masters, StartAndStop{});
    Make<frmSplash>(desktop);
    Make<frmEnterDir>(desktop, environment);
    Make<frmEnterPwd>(shop, "System");
    Make<frmPrintOptions>(shop);
    Make<frmStdHours>(shop, database.lantosData);
    Make<frmSpecialDays>(shop, database.lantosData);
    Make<frmEstStatus>(shop, database);
    Make<frmStatusOptions>(shop);
    Make<frmCustSearch>(shop);
    Make<frmCustEdit>(shop);
    Make<frmVehList>(shop);
    Make<frmVehEdit>(shop, "Edit Vehicle");
    Make<frmMakeModel>(shop);
  }
  std::vector<std::unique_ptr<ui::Form>> forms;

 private:
  template <class Kind, class... Arguments>
  void Make(Arguments&&... arguments) {
    forms.push_back(std::make_unique<Kind>(std::forward<Arguments>(arguments)...));
  }

  EstimateDatabase database{environment, records};
  MasterScreens masters{shop};
};

}  // namespace lantos::test
