// Who sits at a box keeps no other copy waiting, and writes over nothing that others have stored meanwhile.
#include "CustomersFixture.h"
#include "InventoryFixture.h"
#include "frame/UpdateTurns.h"
#include "records/GivenUp.h"
#include "records/inventory/NewParts.h"
#include "records/inventory/PartNumbers.h"
#include "records/inventory/PartUpdate.h"
#include "support/FaultyCalls.h"

namespace lantos::test {
namespace {

// Another copy that wants its turn at a file; it waits at nothing.
class OtherCopy {
 public:
  explicit OtherCopy(const std::filesystem::path& path) : turns_(path, clock_) {}
  bool HasItsTurn() { return UpdateTurns::Turn(turns_).IsHad(); }
  void TakeTurn() { turn_.emplace(turns_); }
  void EndTurn() { turn_.reset(); }

 private:
  class NoPatience : public StandingClock {
   public:
    NoPatience() : StandingClock(LocalTime{}) {}
    void Wait(std::int64_t milliseconds) override { MoveOn(milliseconds); }
  };
  NoPatience clock_;
  UpdateTurns turns_;
  std::optional<UpdateTurns::Turn> turn_;
};

// --- customers

class CustomersWhileAsked : public CustomersTest {
 protected:
  CustomersWhileAsked() { PutCustomers(2); }

  void AppendByAnother(std::int32_t number, std::string_view lastname) {
    const auto offset = static_cast<std::int32_t>(BytesOf(kCustomerFile).size());
    Put(kCustomerTagFile,
        BytesOf(kCustomerTagFile) + CustomerTagImage(number, std::string(lastname) + ",", offset).Bytes());
    Put(kCustomerFile, BytesOf(kCustomerFile) + CustomerImage(number, lastname).Bytes());
  }
  // The name in the master that a customer's tag leads to; "twice" when there are two tags of the number.
  std::string NameOnFile(std::int32_t number) const {
    std::string name;
    const std::string tags = BytesOf(kCustomerTagFile);
    for (std::size_t at = 0; at + 96 <= tags.size(); at += 96) {
      if (LongAt(tags, at) != number) continue;
      if (!name.empty()) return "twice";
      const std::string master = BytesOf(kCustomerFile).substr(static_cast<std::size_t>(LongAt(tags, at + 68)), 317);
      name = LongAt(master, 0) == number ? std::string(master.c_str() + 4) : "another's";
    }
    return name;
  }
  // Whoever is asked about the next failure tries again behind what the others do meanwhile.
  void WhileAsked(FaultyCalls& calls, std::string_view file, const std::function<void()>& others) {
    desktop.WillAnswer([&calls, file, others, this](const ui::Box& box) {
      EXPECT_THAT(box.text, testing::HasSubstr(file));
      OtherCopy other(PathOf(kCustomerTagFile));
      EXPECT_TRUE(other.HasItsTurn());
      calls.Mend();
      others();
      return box.buttons == Buttons::OkCancel ? Answer::Ok : Answer::Retry;
    });
  }
};

TEST_F(CustomersWhileAsked, ANewOneGetsItsPlacesAnewWhicheverCallHasFailed) {
  struct Case {
    std::string_view file;
    CallKind kind;
  };
  for (const Case& each : {Case{kCustomerFile, CallKind::Open}, Case{kCustomerTagFile, CallKind::Write},
                           Case{kCustomerFile, CallKind::Write}}) {
    PutCustomers(2);
    customers.LoadCustomerTags();
    MakeCurrentCustomer(50, "Late", "");
    FaultyCalls calls(PathOf(""));
    calls.FailOn(std::string(each.file), each.kind, Fault::ReadOnly);
    WhileAsked(calls, each.file, [&] { AppendByAnother(40, "Early"); });
    EXPECT_TRUE(customers.WriteCustomer());
    EXPECT_EQ(NameOnFile(40), "Early");
    EXPECT_EQ(NameOnFile(50), "Late");
    EXPECT_EQ(NameOnFile(2), "Name2");
    EXPECT_EQ(CurrentLastname(), "Late");
  }
}

TEST_F(CustomersWhileAsked, AChangeIsMadeToTheRecordAsItIsBehindTheBox) {
  ASSERT_TRUE(customers.MakeCurrent(2));
  FaultyCalls calls(PathOf(""));
  calls.FailOn("TQCSTDAT.DAT", CallKind::Write, Fault::ReadOnly);
  WhileAsked(calls, kCustomerFile, [&] { Put(kCustomerFile, BytesOf(kCustomerFile).replace(317 + 121, 5, "Xenia")); });
  EXPECT_TRUE(customers.UpdateCustomer([](CustomerRecord& record) { record.Put(customer::Zip, "45385"); }));
  EXPECT_EQ(BytesOf(kCustomerFile).substr(317 + 121, 5), "Xenia");
  EXPECT_EQ(BytesOf(kCustomerFile).substr(317 + 145, 5), "45385");
}

TEST_F(CustomersWhileAsked, CancelAtTheRecordLeavesTheTagsAsTheyWere) {
  customers.LoadCustomerTags();
  const std::string tags = BytesOf(kCustomerTagFile);
  const std::string masters = BytesOf(kCustomerFile);
  for (const std::int32_t number : {2, 50}) {
    MakeCurrentCustomer(number, "Changed", "");
    FaultyCalls calls(PathOf(""));
    calls.FailOn("TQCSTDAT.DAT", CallKind::Write, Fault::ReadOnly);
    desktop.WillAnswer([&](const ui::Box& box) {
      EXPECT_THAT(box.text, testing::HasSubstr("Cancel to leave the customer unsaved."));
      EXPECT_EQ(BytesOf(kCustomerTagFile), tags) << "nor has another copy read it meanwhile";
      return Answer::Cancel;
    });
    EXPECT_FALSE(customers.WriteCustomer());
    EXPECT_EQ(BytesOf(kCustomerTagFile), tags) << number;
    EXPECT_EQ(BytesOf(kCustomerFile), masters) << number;
    EXPECT_EQ(customers.Count(), 2U);
    EXPECT_EQ(customers.Tag(1).Get(customertag::NameKey), "Name2,");
  }
}

TEST_F(CustomersWhileAsked, ATagThatCanNotEvenBePutBackIsTold) {
  customers.LoadCustomerTags();
  MakeCurrentCustomer(50, "New", "");
  FaultyCalls calls(PathOf(""));
  calls.When([](const FileCall& call, std::size_t) {
    const bool isMaster = call.name == kCustomerFile && call.kind == CallKind::Write;
    return isMaster || call.kind == CallKind::Cut ? ErrnoOf(call, Fault::ReadOnly) : 0;
  });
  desktop.WillAnswer(Answer::Cancel);
  try {
    customers.WriteCustomer();
    ADD_FAILURE() << "it was not told";
  } catch (const GivenUp& given) {
    EXPECT_STREQ(given.what(),
                 "Customer 000050 was stored in TQCSTTAG.DAT, but not in TQCSTDAT.DAT, and TQCSTTAG.DAT could not be "
                 "put back.\rSave the customer again once both files can be written.");
  }
  EXPECT_EQ(customers.IndexOf(50), 2U) << "the next writing is over this tag";
}

TEST_F(CustomersWhileAsked, AVehicleThatCanNotBeWrittenIsHeldByNobodyAtTheBox) {
  Put(kVehicleFile, VehicleImage(1, "Ford", -1));
  FaultyCalls calls(PathOf(""));
  calls.FailOn("TQVEHICL.DAT", CallKind::Write, Fault::ReadOnly);
  desktop.WillAnswer([&](const ui::Box&) {
    EXPECT_NO_THROW(HeldByAnother(kVehicleFile));
    calls.Mend();
    Put(kVehicleFile, VehicleImage(1, "Ford", 794));
    return Answer::Retry;
  });
  const auto change = [](VehicleRecord& record) { record.Put(vehicle::Model, "Focus"); };
  EXPECT_TRUE(records.vehicles.Update(0, change));
  EXPECT_EQ(BytesOf(kVehicleFile), VehicleImage(1, "Ford", 794).Text(29, "Focus").Bytes())
      << "what another copy has stored meanwhile stays";
}

TEST_F(CustomersWhileAsked, ATurnThatDoesNotComeBackIsAskedAboutAndCanBeGivenUp) {
  ASSERT_TRUE(customers.MakeCurrent(2));
  const std::string before = BytesOf(kCustomerFile);
  FaultyCalls calls(PathOf(""));
  OtherCopy other(PathOf(kCustomerTagFile));
  calls.FailOn("TQCSTDAT.DAT", CallKind::Write, Fault::ReadOnly);
  WhileAsked(calls, kCustomerFile, [&] { other.TakeTurn(); });
  desktop.WillAnswer([](const ui::Box& box) {
    EXPECT_EQ(box.text,
              "Another copy of the program is changing TQCSTTAG.DAT and doesn't come to its end.\r"
              "Click Retry to wait for it, or Cancel to change nothing.");
    return Answer::Cancel;
  });
  EXPECT_FALSE(customers.UpdateCustomer([](CustomerRecord& record) { record.Put(customer::Zip, "45385"); }));
  EXPECT_EQ(BytesOf(kCustomerFile), before);
}

TEST_F(CustomersWhileAsked, AVehicleInFrontOfAnothersKeepsNoCustomerWaiting) {
  Put(kVehicleFile, "");
  ASSERT_TRUE(customers.MakeCurrent(2));
  Put(kVehicleFile, VehicleImage(2, "Ford", -1));
  Put(kCustomerFile, BytesOf(kCustomerFile).replace(317 + 313, 4, std::string(4, '\0')));
  FaultyCalls calls(PathOf(""));
  int writes = 0;
  calls.When([&writes](const FileCall& call, std::size_t) {
    const bool isSecond = call.name == kVehicleFile && call.kind == CallKind::Write && ++writes > 1;
    return isSecond ? ErrnoOf(call, Fault::ReadOnly) : 0;
  });
  WhileAsked(calls, kVehicleFile, [] {});
  VehicleRecord vehicle = records.vehicles.NewVehicle();
  EXPECT_EQ(customers.AppendVehicle(vehicle), 397);
  EXPECT_EQ(LongAt(BytesOf(kVehicleFile), 397 + 393), 0) << "the other's vehicle is next in the chain";
  EXPECT_EQ(LongAt(BytesOf(kCustomerFile), 317 + 313), 397);
}

// --- parts

class StockWhileAsked : public InventoryTest {
 protected:
  StockWhileAsked() {
    PutParts({{.number = "A", .description = "AXLE", .inStock = 9}, {"B", "BELT"}});
    before_ = BytesOf(kInventoryTagFile);
  }

  // Another copy sells two of A while the person is asked about the first failure; the person tries again.
  void SellTwoWhileAsked(FaultyCalls& calls, std::string_view title) {
    desktop.WillAnswer([&calls, title, this](const ui::Box& box) {
      EXPECT_EQ(box.title, title);
      OtherCopy other(PathOf(kInventoryTagFile));
      EXPECT_TRUE(other.HasItsTurn());
      EXPECT_EQ(BytesOf(kInventoryTagFile), before_) << "nothing is half written";
      calls.Mend();
      Put(kInventoryTagFile, BytesOf(kInventoryTagFile).replace(76, 1, "\7"));
      Put(kInventoryFile, BytesOf(kInventoryFile).replace(331, 1, "\7"));
      return Answer::Retry;
    });
  }
  int StockOfTag() const { return TagBytes(0).at(76); }
  int StockOfMaster() const { return MasterBytes(0).at(331); }
  std::string CommentOfMaster() const { return MasterBytes(0).substr(186, 3); }
  PartUpdated Comment(std::string_view comment) {
    return UpdatePart(inventory, 0, [&](InventoryRecord& part) { part.Put(inventory::Comment, comment); });
  }

  std::string before_;
};

TEST_F(StockWhileAsked, AChangedPartTakesUpWhatOthersHaveSoldMeanwhile) {
  struct Case {
    std::string_view file;
    CallKind kind;
    Fault fault;
    std::string_view title;
  };
  for (const Case& each : {Case{kInventoryTagFile, CallKind::Open, Fault::DeviceIo, kInventoryTagFile},
                           Case{kInventoryTagFile, CallKind::Open, Fault::ReadOnly, kInventoryTagFile},
                           Case{kInventoryFile, CallKind::Open, Fault::ReadOnly, kInventoryFile},
                           Case{kInventoryFile, CallKind::Read, Fault::DeviceIo, "ReadInventory"}}) {
    patience.waits.clear();
    PutParts({{.number = "A", .description = "AXLE", .inStock = 9}, {"B", "BELT"}});
    FaultyCalls calls(PathOf(""));
    calls.FailOn(std::string(each.file), each.kind, each.fault);
    SellTwoWhileAsked(calls, each.title);
    EXPECT_EQ(Comment("new"), PartUpdated::Yes);
    EXPECT_EQ(CommentOfMaster(), "new") << each.file;
    EXPECT_EQ(StockOfMaster(), 7) << each.file;
    EXPECT_EQ(StockOfTag(), 7) << each.file;
  }
}

TEST_F(StockWhileAsked, CancelLeavesThePartAsItWas) {
  FaultyCalls calls(PathOf(""));
  calls.FailOn("TQINVENT.DAT", CallKind::Open, Fault::ReadOnly);
  desktop.WillAnswer(ui::Answer::Cancel);
  EXPECT_THROW(Comment("new"), GivenUp);
  EXPECT_EQ(BytesOf(kInventoryTagFile), before_);
  EXPECT_EQ(CommentOfMaster(), std::string(3, '\0'));
  calls.Mend();
  EXPECT_EQ(Comment("new"), PartUpdated::Yes);
}

TEST_F(StockWhileAsked, AnAlternateIsWrittenToThePartAsItIsBehindTheBox) {
  FaultyCalls calls(PathOf(""));
  int opens = 0;
  calls.When([&opens](const FileCall& call, std::size_t) {
    const bool isAlternates =
        call.name == kInventoryFile && call.kind == CallKind::Open && call.forWriting && ++opens > 1;
    return isAlternates ? ErrnoOf(call, Fault::ReadOnly) : 0;
  });
  desktop.WillAnswer([&](const ui::Box& box) {
    EXPECT_EQ(box.title, kInventoryFile);
    OtherCopy other(PathOf(kInventoryTagFile));
    EXPECT_TRUE(other.HasItsTurn());
    calls.Mend();
    Put(kInventoryFile, BytesOf(kInventoryFile).replace(331, 1, "\7"));
    return Answer::Retry;
  });
  const auto change = [](InventoryRecord& part) { part.Put(inventory::AltNumber[0], "A"); };
  EXPECT_EQ(UpdatePart(inventory, 1, change), PartUpdated::Yes);
  EXPECT_EQ(MasterBytes(0).substr(21, 1), "B");
  EXPECT_EQ(MasterBytes(1).substr(21, 1), "A");
  EXPECT_EQ(StockOfMaster(), 7);
}

TEST_F(StockWhileAsked, ANumberThatAnotherHasAddedMeanwhileIsNotAddedAgain) {
  FaultyCalls calls(PathOf(""));
  calls.FailOn("TQINVENT.DAT", CallKind::Open, Fault::ReadOnly);
  desktop.WillAnswer([&](const ui::Box&) {
    OtherCopy atTags(PathOf(kInventoryTagFile));
    OtherCopy atMasters(PathOf(kInventoryFile));
    EXPECT_TRUE(atTags.HasItsTurn());
    EXPECT_TRUE(atMasters.HasItsTurn());
    EXPECT_EQ(BytesOf(kInventoryTagFile), before_);
    calls.Mend();
    Put(kInventoryTagFile, BytesOf(kInventoryTagFile) + std::string(TagImage({"NEW"}, 688)));
    Put(kInventoryFile, BytesOf(kInventoryFile) + std::string(MasterImage({"NEW"})));
    return Answer::Retry;
  });
  Inventory::PartIndex index = Inventory::kNoPart;
  EXPECT_EQ(AddNewPart(inventory, "NEW", index), NewPart::Exists);
  EXPECT_EQ(BytesOf(kInventoryTagFile).size(), 3U * 128);
  EXPECT_EQ(inventory.Count(), 2U);
}

TEST_F(StockWhileAsked, ADeletionEndsWhereAnotherHasDeletedThePartMeanwhile) {
  FaultyCalls calls(PathOf(""));
  calls.FailOn("TQINVTAG.DAT", CallKind::Open, Fault::ReadOnly);
  desktop.WillAnswer([&](const ui::Box&) {
    calls.Mend();
    Put(kInventoryFile, BytesOf(kInventoryFile).replace(335, 1, "\1"));
    Put(kInventoryTagFile, BytesOf(kInventoryTagFile).replace(0, 1, std::string(1, '\0')));
    return Answer::Retry;
  });
  EXPECT_EQ(DeletePart(inventory, 0), PartUpdated::WasDeleted);
}

}  // namespace
}  // namespace lantos::test
