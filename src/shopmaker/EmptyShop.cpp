#include "shopmaker/EmptyShop.h"

#include <algorithm>

#include "estimatedb/EngineChoice.h"
#include "estimatedb/EstimateDatabase.h"
#include "records/Passwords.h"

namespace lantos {

namespace {

constexpr Cents kFirstShopRate = 7500;
// Cost, Wholesale, Resale, Retail; Millionths on the cost.
constexpr std::int32_t kFirstMarkups[4] = {0, 250000, 400000, 650000};

}  // namespace

SystemRecord FirstSystemRecord(const ShopIdentity& identity) {
  SystemRecord record;
  for (const LongField counter : {sysrec::last_workorder_number, sysrec::last_estimate_number,
                                  sysrec::last_customer_number, sysrec::last_employee_number}) {
    record.Put(counter, 1);
  }
  record.Put(sysrec::shop_rate, kFirstShopRate);
  for (std::size_t level = 0; level < 4; ++level) record.Put(sysrec::markups[level], kFirstMarkups[level]);
  record.Put(sysrec::company_name, identity.name);
  record.Put(sysrec::company_address, identity.address);
  record.Put(sysrec::company_city, identity.city);
  record.Put(sysrec::company_state, identity.state);
  record.Put(sysrec::company_zip, identity.zip);
  record.Put(sysrec::company_phone1, identity.phone);
  record.Put(sysrec::surcharge_is_sublet, 'N');
  return record;
}

void AddEmptyFiles(ShopDirectory& directory, const std::vector<std::string_view>& filled) {
  for (const std::string_view name : ShopFileNames()) {
    if (name == kLantosDatabase || name == kKorvelDatabase) continue;
    if (std::find(filled.begin(), filled.end(), name) != filled.end()) continue;
    if (name == kPasswordFile) {
      directory.AddFile(name, PasswordRecord().Bytes());  // every section open to all
    } else {
      directory.AddFile(name, std::string_view());
    }
  }
}

void AddDatabases(ShopDirectory& directory, Clock& clock) {
  CreateLantosDatabase(directory.Claim(kLantosDatabase), clock);
  CreateKorvelDatabase(directory.Claim(kKorvelDatabase), clock);
}

void ConnectTo(de& database, const ShopDirectory& directory, const Clock& clock) {
  const std::filesystem::path path = directory.Path() / kLantosDatabase;
  database.SetOpener([path, &clock] { return OpenDatabase(path, clock); });
}

void SetStandardHours(de& database, const std::array<std::int32_t, 7>& sundayToSaturday, std::int32_t fudgeFactor) {
  Recordset& row = database.GetStdHours();
  if (row.Eof()) database.Connection().Insert("StandardHours", {"RecNum"}, {std::int64_t{1}});
  row.Close();
  database.UpdateStdHours(sundayToSaturday, fudgeFactor);
}

void MakeEmptyShop(const std::filesystem::path& path, const ShopIdentity& identity, Clock& clock,
                   const std::string& group, const TellMaking& tell) {
  constexpr std::uint64_t kSteps = 3;
  ShopDirectory directory(path, group);
  tell("files", 0, kSteps);
  directory.AddFile(kSystemFile, FirstSystemRecord(identity).Bytes());
  AddEmptyFiles(directory, {kSystemFile});
  tell("databases", 1, kSteps);
  AddDatabases(directory, clock);
  de database;
  ConnectTo(database, directory, clock);
  SetStandardHours(database, kFirstStandardHours, kFirstFudgeFactor);
  database.Disconnect();
  tell("databases", 2, kSteps);
  directory.Keep();
}

}  // namespace lantos
