#include "estimatedb/CommandTable.h"
#include "estimatedb/Schema.h"

namespace lantos {

namespace {

constexpr ParameterKind kLong = ParameterKind::Long;
constexpr ParameterKind kText = ParameterKind::Text;

// What makes the trail's table, adds to it, reads it and shortens it; and the rows that its rules look at where none of
// de's commands reads them.
// clang-format off
constexpr Command kTable[] = {
    {"ProbeTrail",
     "select TrailNumber, ChangedAt, Workstation, UserName, Command, EstimateNumber, RowsBefore, RowsAfter, Undoes from "
     "Trail where TrailNumber = 0",
     {}},
    {"CreateTrail",
     kCreateTrail,
     {}},
    {"IndexTrail",
     "CREATE INDEX TrailByEstimate ON Trail (EstimateNumber)",
     {}},
    {"IndexTrailByTime",
     "CREATE INDEX TrailByTime ON Trail (ChangedAt)",
     {}},
    {"AddTrail",
     "insert into Trail (ChangedAt, Workstation, UserName, Command, EstimateNumber, RowsBefore, RowsAfter, Undoes) "
     "values (?, ?, ?, ?, ?, ?, ?, ?)",
     {kText, kText, kText, kText, kLong, kText, kText, kLong}},
    {"TrailOfEstimate",
     "select * from Trail where EstimateNumber = ? order by TrailNumber desc",
     {kLong}},
    {"TrailOfDay",
     "select * from Trail where ChangedAt >= ? and ChangedAt < ? order by TrailNumber desc",
     {kText, kText}},
    {"CountTrail",
     "select COUNT(*) AS Changes from Trail where ChangedAt < ?",
     {kText}},
    {"PruneTrail",
     "delete from Trail where ChangedAt < ?",
     {kText}},
    {"GetLabor",
     "select * from Labors where EstimateNumber = ? and LaborNumber = ?",
     {kLong, kLong}},
    {"GetPart",
     "select * from Parts where EstimateNumber = ? and PartNumber = ?",
     {kLong, kText}},
    {"GetNote",
     "select * from Notes where EstimateNumber = ? and NoteNumber = ?",
     {kLong, kLong}},
    {"UndatedEstimates",
     "select * from Estimates where SchedDate is NULL",
     {}},
};
// clang-format on

}  // namespace

const std::span<const Command> kTrailCommands = kTable;

}  // namespace lantos
