#include "estimatedb/CommandTable.h"

#include "estimatedb/Schema.h"
#include "estimatedb/engine/Engine.h"

namespace lantos {

namespace {

constexpr ParameterKind kLong = ParameterKind::Long;
constexpr ParameterKind kText = ParameterKind::Text;
constexpr ParameterKind kDate = ParameterKind::Date;
constexpr ParameterKind kDay = ParameterKind::Day;
constexpr ParameterKind kDateText = ParameterKind::DateText;

// clang-format off
constexpr Command kLantosTable[] = {
    {"NewEstimate",
     "insert into Estimates (EstimateNumber, SchedDate) values ( ?,? )",
     {kLong, kDay}},
    {"SetCustomer",
     "update Estimates set CustomerNumber = ? where EstimateNumber = ?",
     {kLong, kLong}},
    {"SetVehicle",
     "update Estimates set VehicleLink = ? where EstimateNumber = ?",
     {kLong, kLong}},
    {"GetEstimatesByDate",
     "SELECT Estimates.* FROM Estimates WHERE (SchedDate = ?)",
     {kDay}},
    {"EstimateByNumber",
     "select * from Estimates where EstimateNumber = ?",
     {kLong}},
    {"HighestEstimate",
     "select MAX(EstimateNumber) AS Highest from Estimates where EstimateNumber <= ?",
     {kLong}},
    {"LaborForEstimate",
     "select * from Labors where EstimateNumber = ? order by LaborNumber",
     {kLong}},
    {"AddLabor",
     "insert into Labors ( EstimateNumber, LaborNumber, Description, LaborHours, LaborRate, LaborTotal, "
     "Mechanic ) values ( ?, ?, ?, ?, ?, ?, ? )",
     {kLong, kLong, kText, kLong, kLong, kLong, kLong}},
    {"DeleteLabor",
     "delete from Labors where EstimateNumber = ? and LaborNumber = ?",
     {kLong, kLong}},
    {"SetComments",
     "update Estimates set Comments = ? where EstimateNumber = ?",
     {kText, kLong}},
    {"GetStdHours",
     "select * from StandardHours where RecNum = 1",
     {}},
    {"TotalsForEstimate",
     "SELECT SUM(LaborHours) AS TotalHours, SUM(LaborTotal) AS TotalLabor FROM Labors WHERE EstimateNumber = ?",
     {kLong}},
    {"EstimatesTable",
     "select * from Estimates where SchedDate = ?",
     {kDate}},
    {"PartsTable",
     "select * from Parts where EstimateNumber = ?",
     {kLong}},
    {"DeletePart",
     "delete from Parts where EstimateNumber = ? and PartNumber = ?",
     {kLong, kText}},
    {"SpecialDaysByDate",
     "select * from SpecialDays where SpecialDate = ?",
     {kDate}},
    {"SpecialDaysTable",
     "select * from SpecialDays where SpecialDate >= ? order by SpecialDate",
     {kDateText}},
    {"SetStatus",
     "update Estimates set Status = ? where EstimateNumber = ?",
     {kLong, kLong}},
    {"CloneEstimate",
     "UPDATE Estimates AS n, Estimates AS o SET n.CustomerNumber = o.CustomerNumber, n.VehicleLink = "
     "o.VehicleLink, n.Mechanic = o.Mechanic, n.TotalPrice = o.TotalPrice, n.Comments = o.Comments, n.VehYear "
     "= o.VehYear, n.VehMake = o.VehMake, n.VehModel = o.VehModel, n.VehVIN = o.VehVIN, n.VehLic = o.VehLic, "
     "n.VehDate = o.VehDate, n.VehMileage = o.VehMileage WHERE o.EstimateNumber = ? AND n.EstimateNumber = ?",
     {kLong, kLong}},
    {"CloneLabors",
     "INSERT INTO Labors ( EstimateNumber, LaborNumber, Description, LaborHours, LaborRate, LaborTotal, "
     "Mechanic ) SELECT ? , Labors.LaborNumber, Labors.Description, Labors.LaborHours, Labors.LaborRate, "
     "Labors.LaborTotal, Labors.Mechanic FROM Labors where Labors.EstimateNumber= ?",
     {kLong, kLong}},
    {"CloneParts",
     "INSERT INTO Parts ( EstimateNumber, PartNumber, PartDesc, Quantity, PartPrice, PartTotal ) SELECT ? , "
     "Parts.PartNumber, Parts.PartDesc, Parts.Quantity, Parts.PartPrice, Parts.PartTotal FROM Parts where "
     "Parts.EstimateNumber = ?",
     {kLong, kLong}},
    {"NotesForEstimate",
     "select * from Notes where EstimateNumber = ? order by NoteNumber",
     {kLong}},
    {"AddNote",
     "insert into Notes ( EstimateNumber, NoteNumber, Desc1, Desc2, Desc3, Desc4, Desc5, Desc6, Desc7, Desc8 "
     ") values ( ?, ?, ?, ?, ?, ?, ?, ?, ?, ? )",
     {kLong, kLong, kText, kText, kText, kText, kText, kText, kText, kText}},
    {"DeleteNote",
     "delete from Notes where EstimateNumber = ? and NoteNumber = ?",
     {kLong, kLong}},
    {"CloneNotes",
     "INSERT INTO Notes ( EstimateNumber, NoteNumber, Desc1, Desc2, Desc3, Desc4, Desc5, Desc6, Desc7, Desc8 "
     ") SELECT ? , Notes.NoteNumber, Notes.Desc1, Notes.Desc2, Notes.Desc3, Notes.Desc4, Notes.Desc5, "
     "Notes.Desc6, Notes.Desc7, Notes.Desc8 FROM Notes where Notes.EstimateNumber= ?",
     {kLong, kLong}},
    {"SubletsForEstimate",
     "select * from Sublets where EstimateNumber = ? order by SubletNumber",
     {kLong}},
    {"AddSublet",
     "insert into Sublets ( EstimateNumber, SubletNumber, VendorName, VendorInvoice, Cost, Price, Desc1, "
     "Desc2, Desc3, Desc4, Taxable ) values ( ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ? )",
     {kLong, kLong, kText, kText, kLong, kLong, kText, kText, kText, kText, kText}},
    {"DeleteSublet",
     "delete from Sublets where EstimateNumber = ? and SubletNumber = ?",
     {kLong, kLong}},
    {"CloneSublets",
     "INSERT INTO Sublets ( EstimateNumber, SubletNumber, VendorName, VendorInvoice, Cost, Price, Desc1, "
     "Desc2, Desc3, Desc4, Taxable ) SELECT ? , Sublets.SubletNumber, Sublets.VendorName, "
     "Sublets.VendorInvoice, Sublets.Cost, Sublets.Price, Sublets.Desc1, Sublets.Desc2, Sublets.Desc3, "
     "Sublets.Desc4, Sublets.Taxable FROM Sublets where Sublets.EstimateNumber= ?",
     {kLong, kLong}},
    {"GetSublet",
     "select * from Sublets where EstimateNumber = ? and SubletNumber = ?",
     {kLong, kLong}},
    {"EstimatesByCustomer",
     "select * from Estimates where CustomerNumber = ? order by SchedDate",
     {kLong}},
    {"SelectQuery",
     "select count(*) as RecCount from Estimates",
     {}},
    {"UpdateQuery",
     "Update Estimates set SchedDate = \"01/01/2003\" where SchedDate is NULL",
     {}},
    {"TechHours",
     "SELECT Labors.Mechanic, Estimates.SchedDate, Sum(Labors.LaborHours) AS SumHours FROM Labors INNER JOIN "
     "Estimates ON Labors.EstimateNumber = Estimates.EstimateNumber where ( Estimates.Status <> 6 and "
     "Estimates.Status <> 7 and Estimates.Status <> 9) GROUP BY Labors.Mechanic, Estimates.SchedDate;",
     {}},
    {"SetVehicleNew",
     "update Estimates set VehicleLink = ? , VehYear = ? , VehMake = ? , VehModel = ? , VehVIN = ? , VehLic = "
     "? , VehDate = ? , VehMileage = ? , VehEng = ? , VehTrans = ? where EstimateNumber = ?",
     {kLong, kText, kText, kText, kText, kText, kText, kText, kText, kText, kLong}},
    {"WasteForEstimate",
     "Select * from Waste where EstimateNumber = ? order by WasteNumber asc",
     {kLong}},
    {"AddWaste",
     "insert into Waste ( EstimateNumber, WasteNumber, VendorName, VendorInvoice, Cost, Price, Desc1, Desc2, "
     "Desc3, Desc4, Taxable ) values ( ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ? )",
     {kLong, kLong, kText, kText, kLong, kLong, kText, kText, kText, kText, kText}},
    {"DeleteWaste",
     "delete from Waste where EstimateNumber = ? and WasteNumber = ?",
     {kLong, kLong}},
    {"CloneWaste",
     "INSERT INTO Waste ( EstimateNumber, WasteNumber, VendorName, VendorInvoice, Cost, Price, Desc1, Desc2, "
     "Desc3, Desc4, Taxable ) SELECT ? , Waste.WasteNumber, Waste.VendorName, Waste.VendorInvoice, "
     "Waste.Cost, Waste.Price, Waste.Desc1, Waste.Desc2, Waste.Desc3, Waste.Desc4, Waste.Taxable FROM Waste "
     "where Waste.EstimateNumber= ?",
     {kLong, kLong}},
    {"GetWaste",
     "select * from Waste where EstimateNumber = ? and WasteNumber = ?",
     {kLong, kLong}},
    {"ChecklistForEstimate",
     "select * from Checklist where EstimateNumber = ? order by RecId",
     {kLong}},
    {"DeleteChecklist",
     "delete from Checklist where EstimateNumber = ?",
     {kLong}},
    {"ChecklistTable",
     "Checklist",
     {}},
    {"UpdatePartRow",
     "update Parts set PartDesc = ?, Quantity = ?, PartPrice = ?, PartTotal = ?, PartCost = ?, PartList = ? "
     "where EstimateNumber = ? and PartNumber = ?",
     {kText, kLong, kLong, kLong, kLong, kLong, kLong, kText}},

    // The line that the program writes by itself. It takes number 1, whether that is free or not: where it isn't, the
    // table's key refuses it.
    {"GetSubletSurcharge",
     "select * from Sublets where EstimateNumber = ? and VendorName = 'SURCHARGE'",
     {kLong}},
    {"SetSubletSurcharge",
     "update Sublets set Cost = ?, Price = ? where EstimateNumber = ? and SubletNumber = ?",
     {kLong, kLong, kLong, kLong}},
    {"AddSubletSurcharge",
     "insert into Sublets (EstimateNumber, SubletNumber, VendorName, VendorInvoice, Cost, Price, Desc1, Desc2, Desc3, "
     "Desc4, Taxable) values (?,1,'SURCHARGE','',?,?,?,'','','',?)",
     {kLong, kLong, kLong, kText, kText}},
    {"GetWasteSurcharge",
     "select * from Waste where EstimateNumber = ? and VendorName = 'SURCHARGE'",
     {kLong}},
    {"SetWasteSurcharge",
     "update Waste set Cost = ?, Price = ? where EstimateNumber = ? and WasteNumber = ?",
     {kLong, kLong, kLong, kLong}},
    {"AddWasteSurcharge",
     "insert into Waste (EstimateNumber, WasteNumber, VendorName, VendorInvoice, Cost, Price, Desc1, Desc2, Desc3, "
     "Desc4, Taxable) values (?,1,'SURCHARGE','',?,?,?,'','','',?)",
     {kLong, kLong, kLong, kText, kText}},

    // TotalsForEstimate of all estimates of a day that have labor.
    {"EstimatesOfWeek",
     "SELECT Estimates.* FROM Estimates WHERE (SchedDate IN (?, ?, ?, ?, ?, ?, ?))",
     {kDay, kDay, kDay, kDay, kDay, kDay, kDay}},
    {"TotalsOfWeek",
     "SELECT EstimateNumber, Sum(LaborHours) AS TotalHours, Sum(LaborTotal) AS TotalLabor FROM Labors WHERE "
     "EstimateNumber IN (SELECT EstimateNumber FROM Estimates WHERE SchedDate IN (?, ?, ?, ?, ?, ?, ?)) "
     "GROUP BY EstimateNumber",
     {kDay, kDay, kDay, kDay, kDay, kDay, kDay}},
    {"LaborOfDay",
     "select * from Labors where EstimateNumber IN (SELECT EstimateNumber FROM Estimates WHERE SchedDate = ?) order by "
     "LaborNumber",
     {kDay}},
    // TechHours again, from the table that the database keeps for it; what makes that table; and what follows each change
    // of a line or an estimate in it.
    {"KeptTechHours",
     "SELECT Mechanic, SchedDate, Sum(LaborHours) AS SumHours FROM LaborDays GROUP BY SchedDate, Mechanic",
     {}},
    {"CreateLaborDays",
     "CREATE TABLE LaborDays (EstimateNumber Long,SchedDate Date,Mechanic Long,LaborHours Long)",
     {}},
    {"CreateLaborDaysNow",
     "CREATE VIEW LaborDaysNow AS SELECT Estimates.EstimateNumber, Estimates.SchedDate, Labors.Mechanic, "
     "Labors.LaborHours FROM Labors INNER JOIN Estimates ON Labors.EstimateNumber = Estimates.EstimateNumber where "
     "Estimates.Status <> 6 and Estimates.Status <> 7 and Estimates.Status <> 9",
     {}},
    {"FillLaborDays",
     "INSERT INTO LaborDays SELECT * FROM LaborDaysNow",
     {}},
    {"IndexLaborDays",
     "CREATE INDEX LaborDaysByDay ON LaborDays (SchedDate,Mechanic,LaborHours)",
     {}},
    {"IndexLaborDaysByEstimate",
     "CREATE INDEX LaborDaysByEstimate ON LaborDays (EstimateNumber)",
     {}},
    {"FollowAddedLabor",
     "CREATE TRIGGER LaborDaysAddedLabor AFTER INSERT ON Labors BEGIN "
     "DELETE FROM LaborDays WHERE EstimateNumber = NEW.EstimateNumber; "
     "INSERT INTO LaborDays SELECT * FROM LaborDaysNow WHERE EstimateNumber = NEW.EstimateNumber; END",
     {}},
    {"FollowChangedLabor",
     "CREATE TRIGGER LaborDaysChangedLabor AFTER UPDATE ON Labors BEGIN "
     "DELETE FROM LaborDays WHERE EstimateNumber IN (OLD.EstimateNumber, NEW.EstimateNumber); "
     "INSERT INTO LaborDays SELECT * FROM LaborDaysNow WHERE EstimateNumber IN (OLD.EstimateNumber, "
     "NEW.EstimateNumber); END",
     {}},
    {"FollowRemovedLabor",
     "CREATE TRIGGER LaborDaysRemovedLabor AFTER DELETE ON Labors BEGIN "
     "DELETE FROM LaborDays WHERE EstimateNumber = OLD.EstimateNumber; "
     "INSERT INTO LaborDays SELECT * FROM LaborDaysNow WHERE EstimateNumber = OLD.EstimateNumber; END",
     {}},
    {"FollowAddedEstimate",
     "CREATE TRIGGER LaborDaysAddedEstimate AFTER INSERT ON Estimates BEGIN "
     "DELETE FROM LaborDays WHERE EstimateNumber = NEW.EstimateNumber; "
     "INSERT INTO LaborDays SELECT * FROM LaborDaysNow WHERE EstimateNumber = NEW.EstimateNumber; END",
     {}},
    {"FollowChangedEstimate",
     "CREATE TRIGGER LaborDaysChangedEstimate AFTER UPDATE OF EstimateNumber, SchedDate, Status ON Estimates BEGIN "
     "DELETE FROM LaborDays WHERE EstimateNumber IN (OLD.EstimateNumber, NEW.EstimateNumber); "
     "INSERT INTO LaborDays SELECT * FROM LaborDaysNow WHERE EstimateNumber IN (OLD.EstimateNumber, "
     "NEW.EstimateNumber); END",
     {}},
    {"FollowRemovedEstimate",
     "CREATE TRIGGER LaborDaysRemovedEstimate AFTER DELETE ON Estimates BEGIN "
     "DELETE FROM LaborDays WHERE EstimateNumber = OLD.EstimateNumber; END",
     {}},

    // What looks at the shape of a database and brings an older one up to date.
    {"ProbeEstimates",
     "Select * from Estimates where EstimateNumber = 0",
     {}},
    {"ProbeParts",
     "Select * from Parts where EstimateNumber = 0",
     {}},
    {"ProbeLabors",
     "Select * from Labors where EstimateNumber = 0",
     {}},
    {"ProbeWaste",
     "Select * from Waste where EstimateNumber = 0",
     {}},
    {"ProbeChecklist",
     "Select * from Checklist where EstimateNumber = 0",
     {}},
    {"AddColumnVehYear",
     "ALTER TABLE Estimates ADD COLUMN VehYear Text(5)",
     {}},
    {"AddColumnVehMake",
     "ALTER TABLE Estimates ADD COLUMN VehMake Text(20)",
     {}},
    {"AddColumnVehModel",
     "ALTER TABLE Estimates ADD COLUMN VehModel Text(20)",
     {}},
    {"AddColumnVehVIN",
     "ALTER TABLE Estimates ADD COLUMN VehVIN Text(20)",
     {}},
    {"AddColumnVehLic",
     "ALTER TABLE Estimates ADD COLUMN VehLic Text(10)",
     {}},
    {"AddColumnVehDate",
     "ALTER TABLE Estimates ADD COLUMN VehDate Text(10)",
     {}},
    {"AddColumnVehMileage",
     "ALTER TABLE Estimates ADD COLUMN VehMileage Text(7)",
     {}},
    {"AddColumnVehEng",
     "ALTER TABLE Estimates ADD COLUMN VehEng Text(12)",
     {}},
    {"AddColumnVehTrans",
     "ALTER TABLE Estimates ADD COLUMN VehTrans Text(12)",
     {}},
    {"AddColumnPartCost",
     "ALTER TABLE Parts ADD COLUMN PartCost INTEGER",
     {}},
    {"AddColumnPartList",
     "ALTER TABLE Parts ADD COLUMN PartList INTEGER",
     {}},
    {"ClearPartCosts",
     "UPDATE Parts SET PartCost = 0, PartList = 0",
     {}},
    {"WidenLaborDescription",
     "ALTER TABLE Labors ALTER COLUMN Description Memo",
     {}},
    {"CreateWaste",
     kCreateWaste,
     {}},
    {"CreateChecklist",
     kCreateChecklist,
     {}},
    {"AllEstimates",
     "SELECT * FROM Estimates",
     {}},
};

constexpr Command kKorvelTable[] = {
    {"SelectQuery",
     "select count(*) as rowCount from EmpPRInfo",
     {}},
    {"UpdateQuery",
     "UPDATE EmpPRInfo SET AdditionalFederal = 0, AdditionalLocal = 0, AdditionalState = 0 WHERE "
     "(EmployeeNumber = 1)",
     {}},
    {"EmpPRInfo",
     "EmpPRInfo",
     {}},
    {"EmpPRHist",
     "EmpPRHist",
     {}},
    {"DeletePRHist",
     "delete from EmpPRHist where EmployeeNumber=? and PayrollDate=?",
     {kLong, kText}},
    {"FollowUps",
     "FollowUps",
     {}},
    {"RepairCodes",
     "Select * from RepairCodes order by RepairCode",
     {}},
    {"AddRepairCode",
     "insert into RepairCodes (RepairCode, RepairCodeDesc) values (?,?)",
     {kText, kText}},
};
// clang-format on

}  // namespace

const std::span<const Command> kLantosCommands = kLantosTable;
const std::span<const Command> kKorvelCommands = kKorvelTable;

const Command& FindCommand(std::span<const Command> commands, std::string_view name) {
  for (const Command& command : commands) {
    if (command.name == name) return command;
  }
  throw DatabaseError("There is no command \"" + std::string(name) + "\".");
}

}  // namespace lantos
