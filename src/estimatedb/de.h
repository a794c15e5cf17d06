#pragma once

#include <array>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "estimatedb/CommandTable.h"
#include "estimatedb/Trail.h"
#include "estimatedb/engine/Engine.h"
#include "frame/Clock.h"

namespace lantos {

// A data environment: one connection and its named, parameterised commands. A command that returns rows leaves them
// in the recordset that bears its name; a recordset that is open is closed first. The connection is opened on first
// use, through the opener. Everything that runs a statement throws DatabaseError.
class DataEnvironment {
 public:
  using Opener = std::function<std::unique_ptr<Engine>()>;

  // What the connection string says; the engine is made of it on first use.
  void SetOpener(Opener opener) { open_ = std::move(opener); }
  void Disconnect();

  // The recordset of a command ("rsGetEstimatesByDate" is Rs("GetEstimatesByDate")).
  Recordset& Rs(std::string_view command);
  // Runs a command of the table that takes no values.
  Recordset& Run(std::string_view command) { return Run(command, {}); }
  // Closes every recordset that is open.
  void CloseRecordsets();
  Engine& Connection();

 protected:
  explicit DataEnvironment(std::span<const Command> commands) : commands_(commands) {}
  // Runs a command of the table with values in its order.
  Recordset& Run(std::string_view command, const std::vector<Value>& values);
  // A command and its values, as Run is given them.
  struct Foreseen {
    std::string_view command;
    std::vector<Value> values;
  };
  // Tells the connection what will be asked next, within its ReadTogether.
  void Foresee(const std::vector<Foreseen>& commands);
  // Work that begins with these, outside of any transaction.
  void ReadAhead(const std::vector<Foreseen>& commands, const std::function<void()>& work);
  // A command without rows, of which nothing is asked before the end of the transaction.
  void Post(std::string_view command, const std::vector<Value>& values);

 private:
  std::vector<Question> QuestionsOf(const std::vector<Foreseen>& commands) const;

  std::span<const Command> commands_;
  Opener open_;
  std::unique_ptr<Engine> engine_;
  std::map<std::string, Recordset, std::less<>> recordsets_;
};

// Lantos.mdb. The commands are named as they are in the table of CommandTable.h.
class de : public DataEnvironment {
 public:
  de() : DataEnvironment(kLantosCommands) {}

  // From here on each change goes on the trail under that name. The clock outlives this, and so does what the note,
  // which is given the reason why no trail can be kept, takes it to.
  void KeepTrail(const Clock& clock, TrailAuthor author, Trail::Note note = {});
  Trail* KeptTrail() { return trail_.get(); }  // null: none is kept

  void NewEstimate(std::int32_t estimate, DaySerial date);
  void SetCustomer(std::int32_t customer, std::int32_t estimate);
  void SetVehicle(FileLink vehicleLink, std::int32_t estimate);
  Recordset& GetEstimatesByDate(DaySerial date);
  Recordset& EstimateByNumber(std::int32_t estimate);
  Recordset& HighestEstimate(std::int32_t upTo);
  Recordset& LaborForEstimate(std::int32_t estimate);
  void AddLabor(std::int32_t estimate, std::int32_t laborNumber, std::string_view description, Hundredths hours,
                Cents rate, Cents total, std::int32_t employee);
  void DeleteLabor(std::int32_t estimate, std::int32_t laborNumber);
  void SetComments(std::string_view comments, std::int32_t estimate);
  Recordset& GetStdHours();
  Recordset& TotalsForEstimate(std::int32_t estimate);
  // GetEstimatesByDate of seven days at once; TotalsForEstimate of each of them that has labor, in its two columns
  // behind its EstimateNumber; and LaborForEstimate of all of a day, where those of one estimate are in their order.
  Recordset& EstimatesOfWeek(DaySerial sunday);
  Recordset& TotalsOfWeek(DaySerial sunday);
  Recordset& LaborOfDay(DaySerial date);
  Recordset& EstimatesTable(DaySerial date);
  Recordset& PartsTable(std::int32_t estimate);
  void DeletePart(std::int32_t estimate, std::string_view part);
  // A row of Parts; amounts are of one unit, the total of all.
  struct Part {
    std::string PartNumber, PartDesc;
    std::int32_t Quantity = 0;
    Cents PartPrice = 0, PartTotal = 0, PartCost = 0, PartList = 0;
  };
  Recordset& SpecialDaysByDate(DaySerial date);
  Recordset& SpecialDaysTable(std::string_view from);  // "mm/dd/yyyy"
  void SetStatus(std::int32_t status, std::int32_t estimate);
  void CloneEstimate(std::int32_t oldEstimate, std::int32_t newEstimate);
  void CloneLabors(std::int32_t newEstimate, std::int32_t oldEstimate);
  void CloneParts(std::int32_t newEstimate, std::int32_t oldEstimate);
  Recordset& NotesForEstimate(std::int32_t estimate);
  void AddNote(std::int32_t estimate, std::int32_t note, const std::vector<std::string>& eightLines);
  void DeleteNote(std::int32_t estimate, std::int32_t note);
  void CloneNotes(std::int32_t newEstimate, std::int32_t oldEstimate);
  // A line of Sublets or Waste.
  struct Extra {
    std::string VendorName, VendorInvoice;
    Cents Cost = 0, Price = 0;
    std::string Desc1, Desc2, Desc3, Desc4;
    std::string Taxable;  // "Yes" or "No"
  };
  Recordset& SubletsForEstimate(std::int32_t estimate);
  void AddSublet(std::int32_t estimate, std::int32_t sublet, const Extra& line);
  void DeleteSublet(std::int32_t estimate, std::int32_t sublet);
  void CloneSublets(std::int32_t newEstimate, std::int32_t oldEstimate);
  Recordset& GetSublet(std::int32_t estimate, std::int32_t sublet);
  Recordset& EstimatesByCustomer(std::int32_t customer);
  Recordset& SelectQuery();
  void UpdateQuery();
  Recordset& TechHours();
  struct VehicleSnapshot {
    std::string VehYear, VehMake, VehModel, VehVIN, VehLic, VehDate, VehMileage, VehEng, VehTrans;
  };
  void SetVehicleNew(FileLink vehicleLink, const VehicleSnapshot& vehicle, std::int32_t estimate);
  Recordset& WasteForEstimate(std::int32_t estimate);
  void AddWaste(std::int32_t estimate, std::int32_t waste, const Extra& line);
  void DeleteWaste(std::int32_t estimate, std::int32_t waste);
  void CloneWaste(std::int32_t newEstimate, std::int32_t oldEstimate);
  Recordset& GetWaste(std::int32_t estimate, std::int32_t waste);
  Recordset& ChecklistForEstimate(std::int32_t estimate);
  void DeleteChecklist(std::int32_t estimate);
  Recordset& ChecklistTable();
  // The line that the program writes by itself.
  struct SurchargeLine {
    Cents amount = 0;  // cost and price
    std::string description;
    std::string taxable;  // "Yes" or "No"
  };
  Recordset& GetSubletSurcharge(std::int32_t estimate);
  void SetSubletSurcharge(Cents amount, std::int32_t estimate, std::int32_t sublet);
  void AddSubletSurcharge(std::int32_t estimate, const SurchargeLine& line);
  Recordset& GetWasteSurcharge(std::int32_t estimate);
  void SetWasteSurcharge(Cents amount, std::int32_t estimate, std::int32_t waste);
  void AddWasteSurcharge(std::int32_t estimate, const SurchargeLine& line);

  // Within the connection's ReadTogether, what is asked next: hours and special days of a week with the estimates of
  // each day, or with those of all days, their totals and the labor of one of them, if any; of estimates
  // their rows, totals and labor, or the last two. It spares a connection that is far away the waiting for each answer.
  void ForeseeDays(DaySerial sunday);
  void ForeseeWeek(DaySerial sunday, std::optional<DaySerial> laborOf);
  void ForeseeEstimates(const std::vector<std::int32_t>& estimates);
  void ForeseeLines(const std::vector<std::int32_t>& totalsOf, const std::vector<std::int32_t>& laborOf);

  // Within a transaction, what the surcharge of an estimate is worked out from, and its line.
  void ForeseeSurcharge(std::int32_t estimate);
  // Outside of any transaction, work that begins by asking for all lines of the estimate, or for sublets and waste.
  void ReadLinesAhead(std::int32_t estimate, const std::function<void()>& work);
  void ReadChargesAhead(std::int32_t estimate, const std::function<void()>& work);

  // The recordset's editing: a new row of ChecklistTable or EstimatesTable, the one row of GetStdHours, a row of
  // PartsTable or SpecialDaysByDate.
  void AddPartRow(std::int32_t estimate, const Part& part);
  void UpdatePartRow(std::int32_t estimate, std::string_view storedNumber, const Part& part);
  void AddChecklistRow(std::int32_t estimate, std::string_view data);
  void AddEstimateRow(std::int32_t estimate, DaySerial date, std::int32_t status);
  void UpdateStdHours(const std::array<std::int32_t, 7>& sundayToSaturday, std::int32_t fudgeFactor);
  void SaveSpecialDay(DaySerial date, std::int32_t hours, std::string_view description);  // updates or adds
  void DeleteSpecialDay(DaySerial date);

 private:
  // Runs a command of the table that changes something.
  void Change(std::string_view command, const std::vector<Value>& values);
  // The same, sent with the next statement where the database is far away.
  void PostChange(std::string_view command, const std::vector<Value>& values);
  // The same by other means than a statement of the table, with the values that its rule of the trail speaks of.
  void Follow(std::string_view command, const std::vector<Value>& values, const std::function<void()>& change);

  std::unique_ptr<Trail> trail_;
};

// Korvel.mdb.
class de2 : public DataEnvironment {
 public:
  de2() : DataEnvironment(kKorvelCommands) {}

  Recordset& SelectQuery();
  void UpdateQuery();
  Recordset& EmpPRInfo();
  Recordset& EmpPRHist();
  void DeletePRHist(std::int32_t employee, std::string_view payrollDate);  // "mm/dd/yyyy"
  Recordset& FollowUps();
  Recordset& RepairCodes();
  void AddRepairCode(std::string_view code, std::string_view description);

  // One employee's row of EmpPRInfo: what is withheld beyond the rules, and whether the pay stub has the number.
  struct PRInfo {
    Cents AdditionalFederal = 0, AdditionalState = 0, AdditionalLocal = 0;
    bool PrintSSN = false;
  };
  PRInfo PRInfoOf(std::int32_t employee);  // as a new row has it where there is none
  // Stores what was changed of it; what wasn't stays as others have stored it. Adds the row where there is none.
  struct PRInfoChange {
    std::optional<Cents> AdditionalFederal, AdditionalState, AdditionalLocal;
    std::optional<bool> PrintSSN;
  };
  void SavePRInfo(std::int32_t employee, const PRInfoChange& change);
};

}  // namespace lantos
