#pragma once

#include <span>
#include <string_view>

namespace lantos {

// The statements that make the installation's empty databases, in the program's dialect. docs/database.md tells what
// the columns hold.
extern const std::span<const std::string_view> kLantosSchema;
extern const std::span<const std::string_view> kKorvelSchema;

// Tables that an older database lacks. The trail's is made ahead of the first change.
inline constexpr std::string_view kCreateTrail =
    "CREATE TABLE Trail (TrailNumber Counter,ChangedAt Text(19),Workstation Text(255),UserName Text(255),"
    "Command Text(32),EstimateNumber Long,RowsBefore Memo,RowsAfter Memo,Undoes Long,"
    "CONSTRAINT PrimaryKey PRIMARY KEY (TrailNumber))";
inline constexpr std::string_view kCreateWaste =
    "CREATE TABLE Waste (EstimateNumber Integer,WasteNumber Integer,VendorName Text(32),VendorInvoice Text(11),"
    "Cost Integer,Price Integer,Desc1 Text(65),Desc2 Text(65),Desc3 Text(65),Desc4 Text(65),Taxable Text(3),"
    "CONSTRAINT PrimaryKey PRIMARY KEY (EstimateNumber,WasteNumber))";
inline constexpr std::string_view kCreateChecklist =
    "CREATE TABLE Checklist (EstimateNumber Integer,RecId Counter,ChecklistData Text(255),"
    "CONSTRAINT PrimaryKey PRIMARY KEY (EstimateNumber,RecId))";

}  // namespace lantos
