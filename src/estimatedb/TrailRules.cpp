#include "estimatedb/TrailRules.h"

namespace lantos {

namespace {

constexpr int kNone = TrailRule::kOfNoEstimate;
constexpr auto kAdds = TrailRule::Effect::Adds;
constexpr auto kRemoves = TrailRule::Effect::Removes;
constexpr auto kChanges = TrailRule::Effect::Changes;
constexpr std::string_view kSublet = "SubletNumber,VendorName,VendorInvoice,Cost,Price,Desc1,Desc2,Desc3,Desc4,Taxable";
constexpr std::string_view kWaste = "WasteNumber,VendorName,VendorInvoice,Cost,Price,Desc1,Desc2,Desc3,Desc4,Taxable";

// clang-format off
constexpr TrailRule kRules[] = {
    {"NewEstimate", kAdds, 0, "SchedDate"},
    {"AddEstimateRow", kAdds, 0, "SchedDate,Status"},
    {"SetCustomer", kChanges, 1, "EstimateByNumber", {1}, "SchedDate"},
    {"SetVehicle", kChanges, 1, "EstimateByNumber", {1}, "SchedDate"},
    {"SetVehicleNew", kChanges, 10, "EstimateByNumber", {10}, "SchedDate"},
    {"SetComments", kChanges, 1, "EstimateByNumber", {1}, "SchedDate"},
    {"SetStatus", kChanges, 1, "EstimateByNumber", {1}, "SchedDate"},
    {"CloneEstimate", kChanges, 1, "EstimateByNumber", {1}, "SchedDate", 0},
    {"UpdateQuery", kChanges, kNone, "UndatedEstimates"},

    {"AddLabor", kAdds, 0, "LaborNumber,Description,LaborHours,LaborRate,LaborTotal,Mechanic"},
    {"DeleteLabor", kRemoves, 0, "GetLabor", {0, 1}},
    {"CloneLabors", kChanges, 0, "LaborForEstimate", {0}, "LaborNumber"},

    {"AddPartRow", kAdds, 0, "PartNumber,PartDesc,Quantity,PartPrice,PartTotal,PartCost,PartList"},
    {"UpdatePartRow", kChanges, 6, "GetPart", {6, 7}, "PartNumber"},
    {"DeletePart", kRemoves, 0, "GetPart", {0, 1}},
    {"CloneParts", kChanges, 0, "PartsTable", {0}, "PartNumber"},

    {"AddSublet", kAdds, 0, kSublet},
    {"DeleteSublet", kRemoves, 0, "GetSublet", {0, 1}},
    {"CloneSublets", kChanges, 0, "SubletsForEstimate", {0}, "SubletNumber"},
    {"SetSubletSurcharge", kChanges, 2, "GetSublet", {2, 3}, "SubletNumber"},
    {"AddSubletSurcharge", kChanges, 0, "GetSubletSurcharge", {0}, "SubletNumber"},

    {"AddWaste", kAdds, 0, kWaste},
    {"DeleteWaste", kRemoves, 0, "GetWaste", {0, 1}},
    {"CloneWaste", kChanges, 0, "WasteForEstimate", {0}, "WasteNumber"},
    {"SetWasteSurcharge", kChanges, 2, "GetWaste", {2, 3}, "WasteNumber"},
    {"AddWasteSurcharge", kChanges, 0, "GetWasteSurcharge", {0}, "WasteNumber"},

    {"AddNote", kAdds, 0, "NoteNumber,Desc1,Desc2,Desc3,Desc4,Desc5,Desc6,Desc7,Desc8"},
    {"DeleteNote", kRemoves, 0, "GetNote", {0, 1}},
    {"CloneNotes", kChanges, 0, "NotesForEstimate", {0}, "NoteNumber"},

    {"AddChecklistRow", kAdds, 0, "ChecklistData"},
    {"DeleteChecklist", kRemoves, 0, "ChecklistForEstimate", {0}},

    {"UpdateStdHours", kChanges, kNone, "GetStdHours"},
    {"SaveSpecialDay", kChanges, kNone, "SpecialDaysByDate", {0}, "SpecialDate"},
    {"DeleteSpecialDay", kChanges, kNone, "SpecialDaysByDate", {0}, "SpecialDate"},
};
// clang-format on

}  // namespace

const TrailRule* FindTrailRule(std::string_view command) {
  for (const TrailRule& rule : kRules) {
    if (rule.command == command) return &rule;
  }
  return nullptr;
}

}  // namespace lantos
