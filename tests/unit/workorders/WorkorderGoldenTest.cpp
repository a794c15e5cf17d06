// The files of work orders against files that were made without the program (tests/golden/make.py).
#include "WorkorderBench.h"
#include "records/Customers.h"
#include "records/GoldenBench.h"
#include "records/Vehicles.h"

namespace lantos::test {
namespace {

std::vector<Field> TotalsFields() {
  FieldList list("WoTotals");
  const auto row = [&list](const std::string& name, const auto& fields) {
    for (std::size_t i = 0; i < std::size(fields); ++i) list(name + "_" + std::to_string(i), fields[i]);
  };
  list FIELD(wototals, DateOpen) FIELD(wototals, DateClosed) FIELD(wototals, DatePaid);
  row("TaxRate", wototals::TaxRate);
  row("Cost", wototals::Cost);
  list FIELD(wototals, reserved);
  row("Subtotal", wototals::Subtotal);
  row("Discount", wototals::Discount);
  list FIELD(wototals, DollarDiscount) FIELD(wototals, WorkorderTax) FIELD(wototals, WorkorderTotal)
      FIELD(wototals, PaymentMethod);
  for (std::size_t i = 0; i < 10; ++i) list("SplitType_" + std::to_string(i + 1), wototals::SplitType(i));
  for (std::size_t i = 0; i < 10; ++i) list("SplitAmount_" + std::to_string(i + 1), wototals::SplitAmount(i));
  for (std::size_t i = 0; i < 10; ++i) list("SplitDate_" + std::to_string(i + 1), wototals::SplitDate(i));
  return list.All();
}

FieldList TagFields(std::string_view file) {
  FieldList list(file);
  list FIELD(wotag, WorkorderNumber) FIELD(wotag, CustomerName) FIELD(wotag, CustomerNumber) FIELD(wotag, VIN)
      FIELD(wotag, LicenseNumber) FIELD(wotag, Status) FIELD(wotag, Type) FIELD(wotag, TaxExempt) FIELD(wotag, Totals);
  return list;
}

TEST(WorkorderLayouts, EveryFieldLiesWhereTheGoldenFilesHaveIt) {
  ExpectGoldenLayout(TotalsFields());
  ExpectGoldenLayout(TagFields(kActiveTagFile)("FileName", wotag::FileName).All());
  ExpectGoldenLayout(TagFields(kArchivedTagFile)("MasterOffset", wotag::MasterOffset).All());
}

class WorkorderGolden : public WorkorderBench {
 protected:
  WorkorderGolden() {
    for (const std::string_view name :
         {kActiveTagFile, kArchivedTagFile, kArchiveFile, std::string_view("W0004711.tqa"), kCheckListFile}) {
      Put(name, GoldenBytes(name));
    }
    Checks().LoadChecklistFile();
  }
  std::vector<ActiveWoTag> ActiveTags() { return TagsOf<ActiveWoTag>(workorders.OpenActiveWOForReading()); }
  std::vector<ArchivedWoTag> ArchivedTags() { return TagsOf<ArchivedWoTag>(workorders.OpenArchWOForReading("Test")); }

  Workorders workorders{environment, desktop, records};

 private:
  // From the last towards the first, as they are looked for.
  template <class Tag>
  std::vector<Tag> TagsOf(FileHandle file) {
    std::vector<Tag> tags;
    std::int64_t position =
        static_cast<std::int64_t>(environment.openFiles[file].Length()) - std::int64_t{Tag::kLength};
    for (;; position -= std::int64_t{Tag::kLength}) {
      Tag tag;
      bool end = false;
      if constexpr (Tag::kLength == ActiveWoTag::kLength) {
        end = workorders.ReadActiveWO(file, position, tag);
      } else {
        end = workorders.ReadArchWO(file, position, tag);
      }
      if (end) break;
      tags.push_back(tag);
    }
    environment.openFiles.CloseFile(file);
    return tags;
  }
};

TEST_F(WorkorderGolden, TagsReadAsTheyWereMade) {
  const auto active = ActiveTags();
  ASSERT_EQ(active.size(), 1u);
  EXPECT_EQ(active[0].Get(wotag::WorkorderNumber), 4711);
  EXPECT_EQ(active[0].Get(wotag::CustomerName), "Bj\xF8rnson,Ann");
  EXPECT_EQ(active[0].Get(wotag::FileName), "W0004711.tqa");
  EXPECT_EQ(active[0].Get(wotag::TaxExempt), 1);
  EXPECT_EQ(TotalsOf(active[0]), Sample().Totals);
  const auto archived = ArchivedTags();
  ASSERT_EQ(archived.size(), 3u) << "the newest first";
  EXPECT_EQ(archived[0].Get(wotag::MasterOffset), -1);
  EXPECT_EQ(TotalsOf(archived[0]), Sample().Totals);
  EXPECT_EQ(archived[2].Get(wotag::CustomerName), "Adams,J.");
  EXPECT_EQ(archived[2].Get(wotag::VIN), std::string(21, 'v')) << "another program may have filled its field";
  EXPECT_EQ(archived[2].Get(wotag::Type), 4);
  EXPECT_EQ(archived[2].Get(wotag::Status), 2);
}

TEST_F(WorkorderGolden, TheDayThatCountsForAWorkOrderIsByItsStatus) {
  const auto archived = ArchivedTags();
  EXPECT_EQ(FromFileDate(DateOf(archived[0])), 37894) << "open";
  EXPECT_EQ(FromFileDate(DateOf(archived[1])), 36316) << "on account: closed";
  EXPECT_EQ(FromFileDate(DateOf(archived[2])), 36315) << "paid";
}

TEST_F(WorkorderGolden, EachFieldOfATagIsItsBytesAlone) {
  for (const Field& field : TotalsFields()) {
    if (field.kind == "opaque") continue;
    const WoTotals before = Sample().Totals;
    WoTotals after = before;
    Change(after, field);
    for (std::size_t i = 0; i < WoTotals::kLength; ++i) {
      if (i >= field.offset && i < field.offset + field.width) continue;
      EXPECT_EQ(after.Bytes()[i], before.Bytes()[i]) << field.name << " at " << i;
    }
    EXPECT_NE(after, before) << field.name;
  }
}

TEST_F(WorkorderGolden, ThreeFilesAreWrittenByteForByte) {
  for (const std::string_view name : {kActiveTagFile, kArchivedTagFile, std::string_view("W0004711.tqa")}) {
    std::filesystem::remove(PathOf(name));
  }
  workorders.Current = Sample();
  Checks().items[1].Used = true;
  Checks().items[2] = Used("Oil", "changed", "3000");
  Checks().items[5].Used = true;
  Checks().ChecklistLoaded = true;
  workorders.WriteActiveWoTag();
  EXPECT_TRUE(workorders.WriteArchivedWoTag());
  workorders.WriteWorkorderFile();
  EXPECT_EQ(BytesOf(kActiveTagFile), GoldenBytes(kActiveTagFile));
  EXPECT_EQ(BytesOf(kArchivedTagFile), GoldenBytes(kArchivedTagFile).substr(2 * 290));
  EXPECT_EQ(BytesOf("W0004711.tqa"), GoldenBytes("W0004711.tqa"));
}

TEST_F(WorkorderGolden, TheActiveWorkOrderReadsAsItWasMade) {
  workorders.CurrentActiveTag = ActiveTags().at(0);
  ASSERT_TRUE(workorders.GetCurrWoRec());
  EXPECT_EQ(Told(workorders.Current), Told(Sample()));
  EXPECT_TRUE(Checks().ChecklistLoaded);
  EXPECT_EQ(Checks().items[2].Service, "changed");
  EXPECT_TRUE(Checks().items[5].Used);
  EXPECT_FALSE(Checks().items[4].Used);
  workorders.WriteWorkorderFile();
  EXPECT_EQ(BytesOf("W0004711.tqa"), GoldenBytes("W0004711.tqa"));
}

TEST_F(WorkorderGolden, TheArchivedOnesReadAsTheyWereMade) {
  const auto tags = ArchivedTags();
  ASSERT_TRUE(workorders.GetArchWo(4600, tags[2].Get(wotag::MasterOffset)));
  const Workorder& workorder = workorders.Current;
  EXPECT_EQ(workorder.WorkorderNumber, 4600);
  EXPECT_EQ(workorder.Status, "PAID");
  EXPECT_EQ(workorder.Type, "Sales 2");
  EXPECT_EQ(workorder.Customer.Get(customer::Firstname), "J.");
  EXPECT_EQ(workorder.Vehicle.Get(vehicle::Model), "Pinto");
  EXPECT_EQ(workorder.Vehicle.Get(vehicle::FirstDate), 0);
  EXPECT_EQ(workorder.Totals.Get(wototals::DatePaid), ToFileDate(36315));
  EXPECT_EQ(workorder.AmountDue, 9900);
  ASSERT_EQ(workorder.Labor.Size(), 2u);
  EXPECT_EQ(workorder.Labor[0].Desc[1], "CARBURETOR");
  ASSERT_TRUE(workorders.GetArchWo(4601, tags[1].Get(wotag::MasterOffset)));
  EXPECT_EQ(workorder.Status, "ON ACCT");
  EXPECT_EQ(workorder.Vehicle.Get(vehicle::Make), "") << "the one read before is gone";
  EXPECT_EQ(workorder.Labor.Size(), 1u);
  EXPECT_EQ(workorder.Totals.Get(wototals::PaymentMethod), 8);
  EXPECT_EQ(workorder.Notes[0][0], "Send the bill");
  EXPECT_EQ(workorder.Notes[1][0], "");
  EXPECT_FALSE(workorders.GetArchWo(4711, tags[0].Get(wotag::MasterOffset))) << "it isn't archived";
}

TEST_F(WorkorderGolden, LookingWritesNothing) {
  for (const std::string_view name : {kCustomerTagFile, kCustomerFile}) Put(name, GoldenBytes(name));
  const auto before = Everything();
  workorders.CurrentActiveTag = ActiveTags().at(0);
  EXPECT_TRUE(workorders.GetCurrWoRec());
  std::size_t read = 0;
  for (const ArchivedWoTag& tag : ArchivedTags()) {
    read += workorders.GetArchWo(tag.Get(wotag::WorkorderNumber), tag.Get(wotag::MasterOffset)) ? 1 : 0;
  }
  EXPECT_GT(read, 0u);
  EXPECT_EQ(Everything(), before);
}

}  // namespace
}  // namespace lantos::test
