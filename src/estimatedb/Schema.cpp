#include "estimatedb/Schema.h"

namespace lantos {

namespace {

// Hours are plain numbers: whole ones are what the screens write, half ones can be read.
constexpr std::string_view kLantosStatements[] = {
    "CREATE TABLE Estimates ("
    "EstimateNumber Long,CustomerNumber Long DEFAULT 0,VehicleLink Long DEFAULT 0,SchedDate Date,StartDate Date,"
    "StopDate Date,Status Short DEFAULT 0,Mechanic Long DEFAULT 0,TotalPrice Double DEFAULT 0,Comments Text(255),"
    "CreateDate Date DEFAULT Date(),VehYear Text(5),VehMake Text(20),VehModel Text(20),VehVIN Text(20),"
    "VehLic Text(10),VehDate Text(10),VehMileage Text(7),VehEng Text(12),VehTrans Text(12),"
    "CONSTRAINT PrimaryKey PRIMARY KEY (EstimateNumber))",
    "CREATE INDEX EstimatesSchedDate ON Estimates (SchedDate)",
    "CREATE INDEX EstimatesCustomerNumber ON Estimates (CustomerNumber)",
    "CREATE TABLE Labors (EstimateNumber Long,LaborNumber Long,Description Memo,LaborHours Long DEFAULT 0,"
    "LaborRate Long DEFAULT 0,LaborTotal Long DEFAULT 0,Mechanic Long DEFAULT 0,"
    "CONSTRAINT PrimaryKey PRIMARY KEY (EstimateNumber,LaborNumber))",
    "CREATE TABLE Parts (EstimateNumber Long,PartNumber Text(20),PartDesc Text(38),Quantity Long DEFAULT 0,"
    "PartPrice Long DEFAULT 0,PartTotal Long DEFAULT 0,PartCost Integer,PartList Integer,"
    "CONSTRAINT PrimaryKey PRIMARY KEY (EstimateNumber,PartNumber))",
    "CREATE TABLE Notes (EstimateNumber Long,NoteNumber Long,Desc1 Text(65),Desc2 Text(65),Desc3 Text(65),"
    "Desc4 Text(65),Desc5 Text(65),Desc6 Text(65),Desc7 Text(65),Desc8 Text(65),"
    "CONSTRAINT PrimaryKey PRIMARY KEY (EstimateNumber,NoteNumber))",
    "CREATE TABLE Sublets (EstimateNumber Integer,SubletNumber Integer,VendorName Text(32),VendorInvoice Text(11),"
    "Cost Integer,Price Integer,Desc1 Text(65),Desc2 Text(65),Desc3 Text(65),Desc4 Text(65),Taxable Text(3),"
    "CONSTRAINT PrimaryKey PRIMARY KEY (EstimateNumber,SubletNumber))",
    kCreateWaste,
    kCreateChecklist,
    "CREATE TABLE StandardHours (RecNum Long,SunHours Numeric DEFAULT 0,MonHours Numeric DEFAULT 0,"
    "TueHours Numeric DEFAULT 0,WedHours Numeric DEFAULT 0,ThuHours Numeric DEFAULT 0,FriHours Numeric DEFAULT 0,"
    "SatHours Numeric DEFAULT 0,FudgeFactor Long DEFAULT 0,CONSTRAINT PrimaryKey PRIMARY KEY (RecNum))",
    // Two mechanics of eight hours from Monday to Friday: at least one open day must stand here.
    "INSERT INTO StandardHours (RecNum, SunHours, MonHours, TueHours, WedHours, ThuHours, FriHours, SatHours, "
    "FudgeFactor) VALUES (1, 0, 16, 16, 16, 16, 16, 0, 10)",
    "CREATE TABLE SpecialDays (SpecialDate Date,SpecialHours Numeric DEFAULT 0,SpecialDesc Text(50))",
    "CREATE INDEX SpecialDaysSpecialDate ON SpecialDays (SpecialDate)",
};

constexpr std::string_view kKorvelStatements[] = {
    "CREATE TABLE EmpPRInfo (EmployeeNumber Long,AdditionalFederal Long DEFAULT 0,AdditionalState Long DEFAULT 0,"
    "AdditionalLocal Long DEFAULT 0,PrintSSN YesNo DEFAULT 0,CONSTRAINT PrimaryKey PRIMARY KEY (EmployeeNumber))",
    "CREATE TABLE EmpPRHist (EmployeeNumber Long,PayrollDate Text(10),AdditionalFederal Long DEFAULT 0,"
    "AdditionalState Long DEFAULT 0,AdditionalLocal Long DEFAULT 0,"
    "CONSTRAINT PrimaryKey PRIMARY KEY (EmployeeNumber,PayrollDate))",
    "CREATE TABLE FollowUps (Active Short DEFAULT 0,CustomerNumber Long,VIN Text(20),LicenseNumber Text(10),"
    "WorkorderNumber Long,FollowupDate Date,Miles Long,Days Long,Description Memo,Mechanic Long,Hours Long,Rate Long,"
    "Total Long)",
    "CREATE TABLE RepairCodes (RepairCode Text(6),RepairCodeDesc Text(50),"
    "CONSTRAINT PrimaryKey PRIMARY KEY (RepairCode))",
};

}  // namespace

const std::span<const std::string_view> kLantosSchema = kLantosStatements;
const std::span<const std::string_view> kKorvelSchema = kKorvelStatements;

}  // namespace lantos
