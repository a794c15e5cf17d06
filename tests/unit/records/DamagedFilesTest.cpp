#include <gtest/gtest.h>

#include <functional>

#include "../../fuzz/ListReaders.h"
#include "records/Customers.h"
#include "records/MakesModels.h"
#include "records/Passwords.h"
#include "records/Vehicles.h"
#include "records/Vendors.h"
#include "records/modEmployees.h"
#include "records/modSystem.h"

// Every cut and every flipped bit of a small file of each format: nothing crashes, looking changes no byte, and what is
// written afterwards keeps the file a row of whole records.
namespace lantos {
namespace {

using fuzz::QuietShop;

constexpr FileLink kCustomerLength = CustomerRecord::kLength;
constexpr FileLink kVehicleLength = VehicleRecord::kLength;
constexpr FileLink kMakeLength = MakeModelRecord::kLength;

template <std::size_t Length>
void Append(std::string& file, const Record<Length>& record) {
  file.append(reinterpret_cast<const char*>(record.Bytes().data()), Length);
}

std::string TagSeed() {
  std::string file;
  for (const std::int32_t number : {1, 2}) {
    CustomerTag tag;
    tag.Put(customertag::Number, number);
    tag.Put(customertag::NameKey, number == 1 ? "Miller,Anna" : "Young,Bert");
    tag.Put(customertag::SpouseKey, ",");
    tag.Put(customertag::Offset, (number - 1) * kCustomerLength);
    Append(file, tag);
  }
  return file;
}

std::string CustomerSeed() {
  std::string file;
  for (const std::int32_t number : {1, 2}) {
    CustomerRecord record;
    record.Put(customer::Number, number);
    record.Put(customer::Lastname, number == 1 ? "Miller" : "Young");
    record.Put(customer::VLink, number == 1 ? kVehicleLength : kNoLink);
    Append(file, record);
  }
  return file;
}

// The second leads to the first.
std::string VehicleSeed() {
  std::string file;
  for (const FileLink next : {kNoLink, FileLink{0}}) {
    VehicleRecord record;
    record.Put(vehicle::Number, 1);
    record.Put(vehicle::Deleted, kVehicleLive);
    record.Put(vehicle::Make, "Saab");
    record.Put(vehicle::Date, 731868);
    record.Put(vehicle::VLink, next);
    Append(file, record);
  }
  return file;
}

std::string MakeSeed() {
  struct Entry {
    const char* name;
    FileLink prev;
    FileLink next;
  };
  std::string file;
  for (const Entry& entry : {Entry{"Saab", kNoLink, 1 * kMakeLength}, Entry{"900", 0, 2 * kMakeLength},
                             Entry{"9000", 1 * kMakeLength, kNoLink}, Entry{"Volvo", kNoLink, kNoLink}}) {
    MakeModelRecord record;
    record.Put(makemodel::Name, entry.name);
    record.Put(makemodel::Prev, entry.prev);
    record.Put(makemodel::Next, entry.next);
    Append(file, record);
  }
  return file;
}

std::string EmployeeSeed() {
  std::string file;
  for (const std::int32_t number : {7, -1}) {
    EmployeeRecord record;
    record.Put(employee::EmpNumber, number);
    record.Put(employee::Name, "Carl");
    Append(file, record);
  }
  return file;
}

std::string VendorSeed() {
  std::string file;
  for (const char* name : {"Valley Machine", "Clearview Glass"}) {
    VendorRecord record;
    record.Put(vendor::VendorName, name);
    record.Put(vendor::TaxIdNumber, "31-0000009");
    Append(file, record);
  }
  return file;
}

std::string PayrollSeed() {
  std::string file;
  for (const FileLink next : {static_cast<FileLink>(PayRecord::kLength), kNoLink}) {
    PayRecord record;
    record.Put(payrecord::EmployeeNumber, 7);
    record.Put(payrecord::PayrollDate, 731868);
    record.Put(payrecord::NextRecord, next);
    Append(file, record);
  }
  return file;
}

std::string SystemSeed() {
  SystemRecord record;
  for (const LongField counter :
       {sysrec::last_workorder_number, sysrec::last_estimate_number, sysrec::last_customer_number}) {
    record.Put(counter, 1000);
  }
  record.Put(sysrec::company_name, "The Shop");
  std::string file;
  Append(file, record);
  return file;
}

struct Format {
  std::string_view file;
  std::size_t length;  // of a record
  std::string (*seed)();
  void (*read)(QuietShop&);
  void (*change)(QuietShop&);  // null: never written
};

constexpr Format kTags = {kCustomerTagFile, CustomerTag::kLength, TagSeed, fuzz::ReadCustomers, fuzz::ChangeCustomers};
constexpr Format kMasters = {kCustomerFile, CustomerRecord::kLength, CustomerSeed, fuzz::ReadCustomers,
                             fuzz::ChangeCustomers};
constexpr Format kVehicles = {kVehicleFile, VehicleRecord::kLength, VehicleSeed, fuzz::ReadVehicles,
                              fuzz::ChangeCustomers};
constexpr Format kMakes = {kMakeModelFile, MakeModelRecord::kLength, MakeSeed, fuzz::ReadMakes, fuzz::ChangeMakes};
constexpr Format kEmployees = {kEmployeeFile, EmployeeRecord::kLength, EmployeeSeed, fuzz::ReadEmployees,
                               fuzz::ChangeEmployees};
constexpr Format kVendors = {kVendorFile, VendorRecord::kLength, VendorSeed, fuzz::ReadVendors, fuzz::ChangeVendors};
constexpr Format kPayroll = {kPayrollFile, PayRecord::kLength, PayrollSeed, fuzz::ReadPayroll, fuzz::ChangePayroll};
constexpr Format kSystem = {kSystemFile, SystemRecord::kLength, SystemSeed, fuzz::ReadSystemRecord, fuzz::TakeNumbers};
constexpr Format kPasswords = {kPasswordFile, PasswordRecord::kLength,
                               [] { return std::string(PasswordRecord::kLength, 'p'); }, fuzz::ReadPasswords, nullptr};

class DamagedFiles : public testing::TestWithParam<Format> {
 protected:
  // The other files are sound, so that links lead somewhere.
  void PutSound() {
    for (const Format& format :
         {kTags, kMasters, kVehicles, kMakes, kEmployees, kVendors, kPayroll, kSystem, kPasswords}) {
      shop.Put(format.file, format.seed());
    }
  }
  void Read(const std::string& content) {
    shop.Put(GetParam().file, content);
    GetParam().read(shop);
    ASSERT_EQ(shop.Content(GetParam().file), content);
  }
  void ForEachFlip(const std::function<void(const std::string&)>& use) {
    std::string content = GetParam().seed();
    for (char& byte : content) {
      for (int bit = 0; bit < 8 && !HasFatalFailure(); ++bit) {
        byte = static_cast<char>(byte ^ (1 << bit));
        use(content);
        byte = static_cast<char>(byte ^ (1 << bit));
      }
    }
  }

  QuietShop shop;
};

class DamagedFilesThatAreWritten : public DamagedFiles {
 protected:
  void Change(const std::string& content) {
    // What the change of the round before may have touched.
    if (GetParam().change == fuzz::ChangeCustomers) {
      for (const Format& format : {kTags, kMasters, kVehicles, kSystem}) shop.Put(format.file, format.seed());
    }
    if (GetParam().change == fuzz::ChangePayroll) shop.Put(kEmployees.file, kEmployees.seed());
    shop.Put(GetParam().file, content);
    GetParam().change(shop);
  }
};

TEST_P(DamagedFiles, EveryCutIsReadAndLeftAsItIs) {
  PutSound();
  const std::string seed = GetParam().seed();
  for (std::size_t length = 0; length <= seed.size() && !HasFatalFailure(); ++length) Read(seed.substr(0, length));
}

TEST_P(DamagedFiles, EveryFlippedBitIsReadAndLeftAsItIs) {
  PutSound();
  ForEachFlip([&](const std::string& content) { Read(content); });
}

TEST_P(DamagedFilesThatAreWritten, AChangeAfterAFlippedBitKeepsWholeRecords) {
  ForEachFlip([&](const std::string& content) {
    Change(content);
    ASSERT_EQ(shop.Content(GetParam().file).size() % GetParam().length, 0u);
  });
}

TEST_P(DamagedFilesThatAreWritten, AChangeAfterACutDoesNotCrash) {
  const std::string seed = GetParam().seed();
  for (std::size_t length = 0; length < seed.size(); ++length) Change(seed.substr(0, length));
}

std::string NameOfTest(const testing::TestParamInfo<Format>& tested) {
  return std::string(tested.param.file.substr(0, tested.param.file.find('.')));
}

INSTANTIATE_TEST_SUITE_P(Formats, DamagedFiles,
                         testing::Values(kTags, kMasters, kVehicles, kMakes, kEmployees, kVendors, kPayroll, kSystem,
                                         kPasswords),
                         NameOfTest);
INSTANTIATE_TEST_SUITE_P(Formats, DamagedFilesThatAreWritten,
                         testing::Values(kTags, kMasters, kVehicles, kMakes, kEmployees, kVendors, kPayroll, kSystem),
                         NameOfTest);

}  // namespace
}  // namespace lantos
