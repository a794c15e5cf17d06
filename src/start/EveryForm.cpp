#include "start/EveryForm.h"

#include "admin/frmCompanyInfo.h"
#include "admin/frmDisclaimer.h"
#include "admin/frmPrintOptions.h"
#include "admin/frmSystemParameters.h"
#include "board/frmContinue.h"
#include "board/frmEstStatus.h"
#include "board/frmFind.h"
#include "board/frmMain.h"
#include "board/frmReschedule.h"
#include "board/frmSpecialDays.h"
#include "board/frmStatusOptions.h"
#include "board/frmStdHours.h"
#include "contents/extras/frmEstExtras.h"
#include "contents/extras/frmSubList.h"
#include "contents/extras/frmWOExtra.h"
#include "contents/frmSpelling.h"
#include "contents/labor/frmCanLabor.h"
#include "contents/labor/frmCanLaborList.h"
#include "contents/labor/frmEstFollowup.h"
#include "contents/labor/frmLabor.h"
#include "contents/labor/frmRepairCode.h"
#include "contents/labor/frmTechHours.h"
#include "contents/notes/frmCanNoteList.h"
#include "contents/notes/frmEstNotes.h"
#include "contents/notes/frmNotes.h"
#include "contents/notes/frmWOChklst.h"
#include "contents/parts/frmWOKit.h"
#include "contents/parts/frmWOPart.h"
#include "help/frmAbout.h"
#include "help/frmGuide.h"
#include "history/frmWOHist.h"
#include "masters/customers/frmCustEdit.h"
#include "masters/customers/frmCustSearch.h"
#include "masters/employees/frmEmpMaint.h"
#include "masters/employees/frmEmpNew.h"
#include "masters/employees/frmEmpPRHist.h"
#include "masters/employees/frmEmpPRInfo.h"
#include "masters/inventory/frmDept.h"
#include "masters/inventory/frmInvAdd.h"
#include "masters/inventory/frmInvEdit.h"
#include "masters/inventory/frmInvKit.h"
#include "masters/inventory/frmInvKitAdd.h"
#include "masters/inventory/frmInvPartChange.h"
#include "masters/inventory/frmInvPartDelete.h"
#include "masters/inventory/frmInvView.h"
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
#include "start/frmEnterDir.h"
#include "start/frmSplash.h"
#include "trail/frmTrail.h"
#include "trail/frmTrailExport.h"

namespace lantos {

namespace {

template <class Screen, class... Arguments>
std::unique_ptr<ui::Form> Make(Arguments&&... arguments) {
  return std::make_unique<Screen>(std::forward<Arguments>(arguments)...);
}

// The only vendor of its list.
std::unique_ptr<ui::Form> MakeVendorEdit(Shop& shop, frmVendorEdit::Purpose purpose) {
  return Make<frmVendorEdit>(shop, purpose, std::vector<std::size_t>{0}, std::size_t{0});
}

// Behind a text that has nothing to ask about.
class NoSpeller : public Speller {
 public:
  bool Knows(const std::string& /*word*/) override { return true; }
  std::vector<std::string> Suggestions(const std::string& /*word*/) override { return {}; }
};

std::unique_ptr<ui::Form> MakeSpelling(Shop& shop) {
  static NoSpeller speller;
  return Make<frmSpelling>(shop, Proofreading("", speller, nullptr));
}

constexpr DaySerial kSomeDay = 37894;

const std::vector<MakeForm> kForms = {
    [](FormGround& ground) {
      return Make<frmMain>(ground.shop, ground.database, ground.masters, ground.inventoryList, ground.workorders,
                           StartAndStop{[] {}, [] { return true; }, [] {}, [] {}});
    },
    [](FormGround& ground) { return Make<frmSplash>(ground.shop.desktop, ground.shop.environment.clock); },
    [](FormGround& ground) { return Make<frmEnterDir>(ground.shop.desktop, ground.shop.environment); },
    [](FormGround& ground) { return Make<frmEnterPwd>(ground.shop, "System"); },
    [](FormGround& ground) { return Make<frmPrintOptions>(ground.shop); },
    [](FormGround& ground) { return Make<frmStdHours>(ground.shop, ground.database.lantosData); },
    [](FormGround& ground) { return Make<frmSpecialDays>(ground.shop, ground.database.lantosData); },
    [](FormGround& ground) { return Make<frmEstStatus>(ground.shop, ground.database, [] { return kNotContinued; }); },
    [](FormGround& ground) { return Make<frmStatusOptions>(ground.shop); },
    [](FormGround& ground) { return Make<frmFind>(ground.shop, ground.database, ground.masters); },
    [](FormGround& ground) { return Make<frmCustSearch>(ground.shop); },
    [](FormGround& ground) { return Make<frmCustEdit>(ground.shop); },
    [](FormGround& ground) { return Make<frmVehList>(ground.shop, ground.masters.vehicleHistory); },
    [](FormGround& ground) {
      return Make<frmVehEdit>(ground.shop, ground.shop.records.vehicles.CurrentVehicle, "Edit Vehicle");
    },
    [](FormGround& ground) { return Make<frmMakeModel>(ground.shop); },
    [](FormGround& ground) { return Make<frmInvList>(ground.shop); },
    [](FormGround& ground) { return Make<frmInvView>(ground.shop); },
    [](FormGround& ground) { return Make<frmInvAdd>(ground.shop, ground.inventoryList); },
    [](FormGround& ground) { return Make<frmInvPartChange>(ground.shop, Inventory::kNoPart); },
    [](FormGround& ground) { return Make<frmInvPartDelete>(ground.shop, Inventory::kNoPart); },
    [](FormGround& ground) { return Make<frmInvEdit>(ground.shop, ground.inventoryList, PartAt()); },
    [](FormGround& ground) { return Make<frmUsageList>(ground.shop, "BRAKEPAD"); },
    [](FormGround& ground) { return Make<frmRecvList>(ground.shop, "BRAKEPAD"); },
    [](FormGround& ground) { return Make<frmInvKit>(ground.shop, "TUNEUP"); },
    [](FormGround& ground) {
      return Make<frmInvKitAdd>(ground.shop, kChoosePartForKit, KitLineTexts{"", "1"});
    },
    [](FormGround& ground) { return Make<frmDept>(ground.shop, ground.shop.records.departments); },
    [](FormGround& ground) { return Make<frmEmpMaint>(ground.shop, ground.database.korvelData); },
    [](FormGround& ground) { return Make<frmEmpNew>(ground.shop, "", frmEmpNew::Store()); },
    [](FormGround& ground) { return Make<frmEmpNew>(ground.shop, "Zoe Young", frmEmpNew::Store()); },
    [](FormGround& ground) { return Make<frmEmpPRInfo>(ground.shop, ground.database.korvelData, kNoEmployeeNumber); },
    [](FormGround& ground) { return Make<frmVendorList>(ground.shop, frmVendorList::Purpose::Maintain); },
    [](FormGround& ground) { return Make<frmVendorList>(ground.shop, frmVendorList::Purpose::View); },
    [](FormGround& ground) { return MakeVendorEdit(ground.shop, frmVendorEdit::Purpose::Edit); },
    [](FormGround& ground) { return MakeVendorEdit(ground.shop, frmVendorEdit::Purpose::View); },
    [](FormGround& ground) { return Make<frmVendorAdd>(ground.shop); },
    [](FormGround& ground) { return Make<frmEmpPRHist>(ground.shop, ground.database.korvelData, 1); },
    [](FormGround& ground) { return Make<frmLabor>(ground.contents.bench, WoLaborLine{}); },
    [](FormGround& ground) { return Make<frmRepairCode>(ground.shop, ground.database.korvelData); },
    [](FormGround& ground) {
      return Make<frmTechHours>(ground.shop, ground.database.lantosData, frmTechHours::Purpose::Look, kSomeDay);
    },
    [](FormGround& ground) { return Make<frmEstFollowup>(ground.contents.bench, ground.contents.labor); },
    [](FormGround& ground) { return Make<frmCanLaborList>(ground.contents.bench); },
    [](FormGround& ground) { return Make<frmCanLabor>(ground.contents.bench, frmCanLabor::Mode::Add, CannedLabor()); },
    [](FormGround& ground) {
      return Make<frmWOPart>(ground.contents.bench, "Add Non-Stocked Part", frmWOPart::Task::Add,
                             frmWOPart::Kind::NonStock);
    },
    [](FormGround& ground) { return Make<frmWOKit>(ground.contents.bench, "Add Kit to Estimate"); },
    [](FormGround& ground) { return Make<frmEstExtras>(ground.contents.bench, kSubletExtras); },
    [](FormGround& ground) { return Make<frmEstExtras>(ground.contents.bench, kWasteExtras); },
    [](FormGround& ground) { return Make<frmSubList>(ground.contents.bench); },
    [](FormGround& ground) { return Make<frmWOExtra>(ground.shop, "Estimate Sublet", ExtraLine(), "Yes"); },
    [](FormGround& ground) { return Make<frmEstNotes>(ground.contents.bench); },
    [](FormGround& ground) { return Make<frmNotes>(ground.shop, NoteMode::EstimateNote, Note()); },
    [](FormGround& ground) { return Make<frmCanNoteList>(ground.shop); },
    [](FormGround& ground) { return Make<frmWOChklst>(ground.shop); },
    [](FormGround& ground) { return MakeSpelling(ground.shop); },
    [](FormGround& ground) { return Make<frmWOHist>(ground.shop, [](const Workorders&) {}); },
    [](FormGround& ground) { return Make<frmDisclaimer>(ground.shop); },
    [](FormGround& ground) { return Make<frmCompanyInfo>(ground.shop); },
    [](FormGround& ground) { return Make<frmSystemParameters>(ground.shop); },
    [](FormGround& ground) { return Make<frmReschedule>(ground.shop, ground.database, kSomeDay); },
    [](FormGround& ground) { return Make<frmContinue>(ground.shop); },
    [](FormGround& ground) { return Make<frmTrail>(ground.shop, ground.database.lantosData, 0, nullptr); },
    [](FormGround& ground) {
      return Make<frmGuide>(ground.shop.desktop, ground.shop.keys, ground.shop.environment.settings, "frmGuide");
    },
    [](FormGround& ground) { return Make<frmAbout>(ground.shop, ground.database); },
    [](FormGround& ground) { return Make<frmTrailExport>(ground.shop, "", "Lantos trail.csv"); },
};

}  // namespace

const std::vector<MakeForm>& EveryForm() { return kForms; }

}  // namespace lantos
