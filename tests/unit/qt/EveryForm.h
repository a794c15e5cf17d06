#pragma once

#include <functional>

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
#include "masters/vehicles/frmMakeModel.h"
#include "masters/vehicles/frmVehEdit.h"
#include "masters/vehicles/frmVehList.h"
#include "records/CannedLabor.h"
#include "records/Vehicles.h"
#include "screens/frmEnterPwd.h"
#include "start/frmEnterDir.h"
#include "start/frmSplash.h"

namespace lantos::test {

// One of each form of the program, made but not loaded.
inline std::vector<std::unique_ptr<ui::Form>> EveryForm(Shop& shop, EstimateDatabase& database, MasterScreens& masters,
                                                        Contents& contents) {
  Workbench& bench = contents.bench;
  std::vector<std::unique_ptr<ui::Form>> forms;
  forms.push_back(std::make_unique<frmMain>(shop, database, masters, bench.inventoryList, contents.workorders,
                                            StartAndStop{[] {}, [] { return true; }, [] {}}));
  forms.push_back(std::make_unique<frmSplash>(shop.desktop));
  forms.push_back(std::make_unique<frmEnterDir>(shop.desktop, shop.environment));
  forms.push_back(std::make_unique<frmEnterPwd>(shop, "System"));
  forms.push_back(std::make_unique<frmPrintOptions>(shop));
  forms.push_back(std::make_unique<frmStdHours>(shop, database.lantosData));
  forms.push_back(std::make_unique<frmSpecialDays>(shop, database.lantosData));
  forms.push_back(std::make_unique<frmEstStatus>(shop, database, [] { return kNotContinued; }));
  forms.push_back(std::make_unique<frmStatusOptions>(shop));
  forms.push_back(std::make_unique<frmCustSearch>(shop));
  forms.push_back(std::make_unique<frmCustEdit>(shop));
  forms.push_back(std::make_unique<frmVehList>(shop));
  forms.push_back(std::make_unique<frmVehEdit>(shop, shop.records.vehicles.CurrentVehicle, "Edit Vehicle"));
  forms.push_back(std::make_unique<frmMakeModel>(shop));
  forms.push_back(std::make_unique<frmInvList>(shop));
  forms.push_back(std::make_unique<frmLabor>(bench, WoLaborLine{}));
  forms.push_back(std::make_unique<frmRepairCode>(shop, database.korvelData));
  forms.push_back(std::make_unique<frmEstFollowup>(bench, contents.labor));
  forms.push_back(std::make_unique<frmCanLaborList>(bench));
  forms.push_back(std::make_unique<frmCanLabor>(bench, frmCanLabor::Mode::Add, CannedLabor()));
  forms.push_back(
      std::make_unique<frmWOPart>(bench, "Add Non-Stocked Part", frmWOPart::Task::Add, frmWOPart::Kind::NonStock));
  forms.push_back(std::make_unique<frmWOKit>(bench, "Add Kit to Estimate"));
  forms.push_back(std::make_unique<frmEstExtras>(bench, kSubletExtras));
  forms.push_back(std::make_unique<frmEstExtras>(bench, kWasteExtras));
  forms.push_back(std::make_unique<frmSubList>(bench));
  forms.push_back(std::make_unique<frmWOExtra>(shop, "Estimate Sublet", ExtraLine(), "Yes"));
  forms.push_back(std::make_unique<frmEstNotes>(bench));
  forms.push_back(std::make_unique<frmNotes>(shop, NoteMode::EstimateNote, Note()));
  forms.push_back(std::make_unique<frmCanNoteList>(shop));
  forms.push_back(std::make_unique<frmWOChklst>(shop));
  forms.push_back(std::make_unique<frmDisclaimer>(shop));
  forms.push_back(std::make_unique<frmReschedule>(shop, database, 37894));
  forms.push_back(std::make_unique<frmContinue>(shop));
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
  std::vector<std::unique_ptr<ui::Form>> forms = EveryForm(shop, database, masters, contents);
};

}  // namespace lantos::test
