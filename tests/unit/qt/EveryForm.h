#pragma once

#include "admin/TestShop.h"
#include "admin/frmDisclaimer.h"
#include "admin/frmPrintOptions.h"
#include "board/frmContinue.h"
#include "board/frmEstStatus.h"
#include "board/frmMain.h"
#include "board/frmReschedule.h"
#include "board/frmSpecialDays.h"
#include "board/frmStatusOptions.h"
#include "board/frmStdHours.h"
#include "contents/ContentsBench.h"
#include "contents/extras/frmEstExtras.h"
#include "contents/extras/frmSubList.h"
#include "contents/extras/frmWOExtra.h"
#include "contents/frmSpelling.h"
#include "contents/labor/frmCanLabor.h"
#include "contents/labor/frmCanLaborList.h"
#include "contents/labor/frmEstFollowup.h"
#include "contents/labor/frmLabor.h"
#include "contents/labor/frmRepairCode.h"
#include "contents/notes/frmCanNoteList.h"
#include "contents/notes/frmEstNotes.h"
#include "contents/notes/frmNotes.h"
#include "contents/notes/frmWOChklst.h"
#include "contents/parts/frmWOKit.h"
#include "contents/parts/frmWOPart.h"
#include "estimatedb/EstimateDatabase.h"
#include "masters/customers/MasterScreens.h"
#include "masters/customers/frmCustEdit.h"
#include "masters/customers/frmCustSearch.h"
#include "masters/inventory/frmInvEdit.h"
#include "masters/inventory/frmInvList.h"
#include "masters/inventory/frmRecvList.h"
#include "masters/inventory/frmUsageList.h"
#include "masters/vehicles/frmMakeModel.h"
#include "masters/vehicles/frmVehEdit.h"
#include "masters/vehicles/frmVehList.h"
#include "masters/vendors/frmVendorAdd.h"
#include "masters/vendors/frmVendorEdit.h"
#include "masters/vendors/frmVendorList.h"
#include "records/CannedLabor.h"
#include "records/Vehicles.h"
#include "screens/frmEnterPwd.h"
#include "start/EveryForm.h"
#include "start/frmEnterDir.h"
#include "start/frmSplash.h"

namespace lantos::test {

// One of each form of the program, made but not loaded.
inline std::vector<std::unique_ptr<ui::Form>> MakeEveryForm(FormGround ground) {
  std::vector<std::unique_ptr<ui::Form>> forms;
  for (const MakeForm& make : EveryForm()) forms.push_back(make(ground));
  return forms;
}

// With nothing but paper behind them.
struct PaperShop : TestShop {
  EstimateDatabase database{environment, records};
  MasterScreens masters{shop};
  frmInvList inventoryList{shop};
  Workorders workorders{environment, shop.desktop, records};
  PaperBoard board{shop.desktop};
  Contents contents{Workbench{shop, database, inventoryList, workorders.Current, board}, workorders};
  std::vector<std::unique_ptr<ui::Form>> forms =
      MakeEveryForm({shop, database, masters, inventoryList, workorders, contents});
};

}  // namespace lantos::test
