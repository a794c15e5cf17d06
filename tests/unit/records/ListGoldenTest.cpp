// The golden files of the shop's lists: followups, purchase orders, vendors, canned labor and notes, the checklist.
#include "GoldenBench.h"
#include "GoldenDirectory.h"
#include "records/CannedLabor.h"
#include "records/CheckList.h"
#include "records/EditedLines.h"
#include "records/Followups.h"
#include "records/Payroll.h"
#include "records/PurchaseOrders.h"
#include "records/Vendors.h"

namespace lantos::test {
namespace {

std::vector<Field> FollowupFields() {
  FieldList list(kFollowupFile);
  list FIELD(followup, Active) FIELD(followup, CustomerNumber) FIELD(followup, VIN) FIELD(followup, LicenseNumber)
      FIELD(followup, korvel1) FIELD(followup, WorkorderNumber) FIELD(followup, FollowupDate) FIELD(followup, Miles)
          FIELD(followup, Days) FIELD(followup, Description) FIELD(followup, Mechanic) FIELD(followup, Hours)
              FIELD(followup, Rate) FIELD(followup, Total) FIELD(followup, korvel2);
  return list.All();
}

std::vector<Field> OrderFields() {
  FieldList list(kOpenOrdersFile);
  list FIELD(potag, Number) FIELD(potag, VendorName) FIELD(potag, VendorInvoice) FIELD(potag, Status)
      FIELD(potag, amounts) FIELD(potag, FileName);
  return list.All();
}

std::vector<Field> LaborKitFields() {
  FieldList list(kLaborKitFile);
  list FIELD(laborkit, Code) FIELD(laborkit, Kit);
  return list.All();
}

std::vector<Field> VendorFields() {
  FieldList list(kVendorFile);
  list FIELD(vendor, VendorName) FIELD(vendor, Contact) FIELD(vendor, Address) FIELD(vendor, City) FIELD(vendor, State)
      FIELD(vendor, Zip) FIELD(vendor, Phone1) FIELD(vendor, Phone1Ext) FIELD(vendor, Phone2) FIELD(vendor, Phone3)
          FIELD(vendor, TaxIdNumber);
  return list.All();
}

std::vector<Field> PayrollFields() {
  FieldList list(kPayrollFile);
  list FIELD(payrecord, EmployeeNumber) FIELD(payrecord, PayrollDate) FIELD(payrecord, Hours) FIELD(payrecord, Gross)
      FIELD(payrecord, korvel1) FIELD(payrecord, FICA) FIELD(payrecord, Medicare) FIELD(payrecord, FUTA)
          FIELD(payrecord, SUTA) FIELD(payrecord, korvel2) FIELD(payrecord, MaritalStatus)
              FIELD(payrecord, NumExemptions) FIELD(payrecord, FICAExempt) FIELD(payrecord, Wage)
                  FIELD(payrecord, WagePeriod) FIELD(payrecord, Salary) FIELD(payrecord, SalaryPeriod)
                      FIELD(payrecord, CommissionPeriod) FIELD(payrecord, Commission) FIELD(payrecord, Insurance)
                          FIELD(payrecord, OvertimeExempt) FIELD(payrecord, Savings) FIELD(payrecord, korvel3)
                              FIELD(payrecord, Uniform) FIELD(payrecord, korvel4) FIELD(payrecord, NextRecord);
  return list.All();
}

class ListGolden : public ShopTest {
 protected:
  ListGolden() {
    for (const auto& entry : std::filesystem::directory_iterator(test::GoldenDirectory())) {
      const std::string name = entry.path().filename().string();
      if (entry.is_regular_file() && name != "make.py" && name != "layouts.txt")
        std::filesystem::copy(entry.path(), PathOf(name));
    }
  }
};

TEST_F(ListGolden, EveryFieldLiesWhereTheGoldenFilesHaveIt) {
  for (const auto& fields : {FollowupFields(), OrderFields(), LaborKitFields(), VendorFields(), PayrollFields()})
    ExpectGoldenLayout(fields);
}

TEST_F(ListGolden, FollowupsReadAsTheyWereMade) {
  const auto open = records.followups.OpenFollowups(1001, "2G1WH55K019100002", "");
  ASSERT_EQ(open.size(), 1u) << "the second is used up";
  const FollowupRecord& record = open[0].record;
  EXPECT_EQ(record.Get(followup::Description), "TIMING BELT\tDUE AT 90,000");
  EXPECT_EQ(record.Get(followup::Total), 16250);
  EXPECT_EQ(records.followups.OpenFollowups(1003, "", "CAB 1").size(), 1u) << "any number but 0 is active";
  EXPECT_TRUE(records.followups.OpenFollowups(1003, "", "").empty());
  EXPECT_TRUE(records.followups.OpenFollowups(1001, "OTHER", "ABC 1234").empty()) << "the VIN goes first";
}

TEST_F(ListGolden, UsingAFollowupUpChangesItsFirstByteAlone) {
  auto open = records.followups.OpenFollowups(1003, "", "CAB 1");
  {
    Followups::Using file(environment);
    file.UseUp(open.at(0));
  }
  const auto place = Difference(BytesOf(kFollowupFile), GoldenBytes(kFollowupFile));
  EXPECT_EQ(place, (std::pair<std::size_t, std::size_t>{2 * 596, 2 * 596 + 1}));
}

TEST_F(ListGolden, OnlyOrdersWithADetailAndAPriceAreOffered) {
  const auto sublets = records.orders.GetOpenPOSublets();
  ASSERT_EQ(sublets.size(), 1u);
  EXPECT_EQ(sublets[0].orderNumber, 3101);
  EXPECT_EQ(sublets[0].vendor, "Riverside Radiator");
  EXPECT_EQ(sublets[0].invoice, "81120");
  EXPECT_EQ(sublets[0].cost, 18900);
  EXPECT_EQ(sublets[0].price, 24570);
  EXPECT_EQ(sublets[0].description, "RECORE RADIATOR");
}

TEST_F(ListGolden, AnOrderWhoseDetailFileIsMissingIsNamedOnce) {
  std::filesystem::remove(environment.files.PathOf("P0003101.TQP"));
  const auto tags = BytesOf(kOpenOrdersFile);
  Put(kOpenOrdersFile, tags + tags);
  desktop.WillAnswer(ui::Answer::Ok);
  EXPECT_TRUE(records.orders.GetOpenPOSublets().empty());
  EXPECT_TRUE(records.orders.GetOpenPOSublets().empty());
  ASSERT_EQ(desktop.boxes.size(), 1u);
  EXPECT_EQ(desktop.boxes[0].text, "Purchase Order detail file (P0003101.TQP)\rnot found.  Skipped.");
}

TEST_F(ListGolden, VendorsReadAsTheyWereMade) {
  Vendors& vendors = records.vendors;
  vendors.LoadVendors();
  ASSERT_EQ(vendors.Count(), 4U);
  EXPECT_EQ(vendors[0].Get(vendor::VendorName), "Riverside Radiator") << "what stands behind the NUL is old";
  EXPECT_EQ(vendors[0].Get(vendor::Phone1Ext), "21");
  EXPECT_EQ(vendors[1].Get(vendor::VendorName), "") << "deleted";
  EXPECT_EQ(vendors[2].Get(vendor::VendorName), "M\xFCnchner Motorenteile Import A");
  EXPECT_EQ(vendors[2].Get(vendor::TaxIdNumber), std::string(21, 't')) << "a full field has no terminator";
  EXPECT_EQ(vendors[3].Get(vendor::VendorName), "Valley Machine");
}

TEST_F(ListGolden, EachFieldOfAVendorReachesTheFileAlone) {
  Vendors& vendors = records.vendors;
  vendors.LoadVendors();
  const std::string before = BytesOf(kVendorFile);
  for (const Field& field : VendorFields()) {
    vendors.MakeCurrent(2);
    Change(vendors.CurrentVendor, field);
    vendors.SaveVendor(2);
    const auto place = Difference(before, BytesOf(kVendorFile));
    const std::size_t start = 2 * 204 + field.offset;
    EXPECT_EQ(place, (std::pair<std::size_t, std::size_t>{start, start + field.width})) << field.name;
    Put(kVendorFile, before);
  }
}

TEST_F(ListGolden, PayRecordsReadAsTheyWereMade) {
  std::string employees = BytesOf("TQEMPLOY.DAT");
  Put("TQEMPLOY.DAT", Image(employees.size()).Text(0, employees).Long(195, 606));
  const PayChain chain = records.payroll.Load(12);
  EXPECT_EQ(chain.damage, "");
  ASSERT_EQ(chain.entries.size(), 3U);
  EXPECT_EQ(chain.entries[0].place, 606);
  EXPECT_EQ(chain.entries[0].record.Get(payrecord::Hours), 4150);
  EXPECT_EQ(chain.entries[0].record.Get(payrecord::Wage), 1450);
  EXPECT_EQ(chain.entries[1].place, 0);
  EXPECT_EQ(chain.entries[1].record.Get(payrecord::SUTA), 216);
  EXPECT_EQ(chain.entries[1].record.Get(payrecord::Insurance), 1500);
  EXPECT_EQ(chain.entries[1].record.Get(payrecord::Savings), 2500);
  EXPECT_EQ(chain.entries[1].record.Get(payrecord::Uniform), 450);
  EXPECT_EQ(chain.entries[2].record.Get(payrecord::Commission), 125000);
  EXPECT_EQ(chain.entries[2].record.Get(payrecord::FICAExempt), 1);
  EXPECT_EQ(chain.entries[2].record.Get(payrecord::NextRecord), -1);
}

TEST_F(ListGolden, CannedLaborLoadedAndSavedIsTheSameFile) {
  EditedLines file(environment, kCannedLaborFile);
  const auto entries = CannedLaborIn(file.Read());
  ASSERT_EQ(entries.size(), 3u);
  EXPECT_EQ(entries[0].Code(), "LOF");
  EXPECT_EQ(entries[0].FirstLine(), "OIL AND FILTER") << "two blanks stand behind a code of three characters";
  EXPECT_EQ(entries[1].Code(), "RADIA");
  EXPECT_EQ(entries[1].Desc[1], "") << "a line without a tab has one line of description";
  EXPECT_EQ(entries[2].Desc[7], "8");
  EXPECT_EQ(entries[2].Total, -650);
  EXPECT_TRUE(file.Store(desktop, "", LinesOf(entries)));
  EXPECT_EQ(BytesOf(kCannedLaborFile), GoldenBytes(kCannedLaborFile));
}

TEST_F(ListGolden, AKitSavedAgainLeavesTheFileAsItWasAndANewOneGoesBehind) {
  EXPECT_EQ(records.laborKits.KitOf("LOF"), "TUNEUP");
  EXPECT_EQ(records.laborKits.KitOf("NEW"), "");
  records.laborKits.Save("LOF", "TUNEUP");
  EXPECT_EQ(BytesOf(kLaborKitFile), GoldenBytes(kLaborKitFile));
  records.laborKits.Save("NEW", "A-KIT-NUMBER-OF-MORE-THAN-21");
  EXPECT_EQ(BytesOf(kLaborKitFile),
            GoldenBytes(kLaborKitFile) + std::string(Image(26).Text(0, "NEW").Text(5, "A-KIT-NUMBER-OF-MORE-")));
}

TEST_F(ListGolden, CannedNotesLoadedAndSavedAreTheSameFile) {
  EditedLines file(environment, kCannedNoteFile);
  const auto notes = CannedNotesIn(file.Read());
  ASSERT_EQ(notes.size(), 4u);
  EXPECT_EQ(notes[1][7], "8");
  EXPECT_EQ(notes[2], CannedNote{}) << "an empty line is an empty note";
  EXPECT_EQ(notes[3][0], "K\xE4se");
  EXPECT_TRUE(file.Store(desktop, "", LinesOf(notes)));
  EXPECT_EQ(BytesOf(kCannedNoteFile), GoldenBytes(kCannedNoteFile));
}

TEST_F(ListGolden, DeletedEntriesAreLeftOut) {
  EditedLines noteFile(environment, kCannedNoteFile);
  auto notes = CannedNotesIn(noteFile.Read());
  for (CannedNote& note : notes) note[0] = kDeletedEntry;
  EXPECT_TRUE(noteFile.Store(desktop, "", LinesOf(notes)));
  EXPECT_EQ(BytesOf(kCannedNoteFile), "");
  EditedLines laborFile(environment, kCannedLaborFile);
  auto entries = CannedLaborIn(laborFile.Read());
  entries[1].Desc[0] = kDeletedEntry;
  EXPECT_TRUE(laborFile.Store(desktop, "", LinesOf(entries)));
  EXPECT_EQ(CannedLaborIn(laborFile.Read()).size(), 2u);
}

TEST_F(ListGolden, TheChecklistReadsAsItWasMade) {
  records.checkList.LoadChecklistFile();
  std::vector<std::string> names;
  for (const ChecklistItem& item : records.checkList.items) names.push_back(item.Name);
  EXPECT_EQ(names, (std::vector<std::string>{"Loose item", "[Engine]", "Oil", "Belts", "[Brakes]", "Pads"}));
}

TEST_F(ListGolden, LookingWritesNothing) {
  const auto before = Everything();
  records.followups.OpenFollowups(1001, "2G1WH55K019100002", "");
  records.followups.Exists(1001, "2G1WH55K019100002", "ABC 1234", 4711, 731874, 0);
  records.orders.GetOpenPOSublets();
  records.vendors.LoadVendors();
  records.vendors.MakeCurrent(0);
  for (const std::string_view name : {kCannedLaborFile, kCannedNoteFile}) EditedLines(environment, name).Read();
  records.laborKits.KitOf("LOF");
  records.checkList.LoadChecklistFile();
  EXPECT_EQ(Everything(), before);
}

TEST_F(ListGolden, EveryFileCutAnywhereIsReadWithoutHarm) {
  desktop.otherwise = [](const ui::Box&) { return ui::Answer::Ok; };  // detail files of half a name
  for (const std::string_view name : {kFollowupFile, kOpenOrdersFile, kLaborKitFile}) {
    const std::string whole = GoldenBytes(name);
    for (std::size_t length = 0; length <= whole.size(); length += 13) {
      Put(name, whole.substr(0, length));
      records.followups.OpenFollowups(1001, "2G1WH55K019100002", "");
      records.orders.GetOpenPOSublets();
      LaborKits(environment).KitOf("LOF");
    }
  }
  SUCCEED();
}

}  // namespace
}  // namespace lantos::test
