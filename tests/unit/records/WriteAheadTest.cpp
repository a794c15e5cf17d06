// The journal of records that lie in two files, as a program that ended in the middle leaves it, and the next start.
#include "records/WriteAhead.h"
#include "shop/HalfStored.h"

#include <gtest/gtest.h>

#include "admin/TestShop.h"
#include "frame/JournalLines.h"
#include "frame/UpdateTurns.h"
#include "support/FaultyCalls.h"

namespace lantos {
namespace {

constexpr const char* kTags = "TQCSTTAG.DAT";
constexpr const char* kMasters = "TQCSTDAT.DAT";

// A tag and its master: "tag-1" becomes "tag-2", and "master-1" "master-2".
struct WriteAheads : testing::Test {
  WriteAheads() {
    shop.environment.computerName = "FRONT DESK";
    shop.directory.Put(kTags, "tag-1");
    shop.directory.Put(kMasters, "01234master-1");
  }
  static std::vector<RecordBytes> Both() {
    return {{kTags, 0, "tag-1", "tag-2"}, {kMasters, 5, "master-1", "master-2"}};
  }
  // As a program leaves it that ended behind the note.
  std::string Left(const std::vector<RecordBytes>& records = Both()) {
    WriteAhead ahead(shop.environment);
    ahead.Note("Customer 000007", records);
    return shop.directory.Content(Journals().at(0));
  }
  void PutLeft(const std::vector<RecordBytes>& records = Both()) {
    const std::string content = Left(records);
    shop.directory.Put("ARb15000.JNL", content);
  }
  std::vector<std::string> Journals() const { return shop.environment.files.List("AR*"); }
  void Settle() {
    shop.desktop.otherwise = [](const ui::Box&) { return ui::Answer::Ok; };
    SettleRecords(shop.environment, shop.desktop, Journals());
  }
  std::vector<std::string> Told() const {
    std::vector<std::string> texts;
    for (const ui::Box& box : shop.desktop.boxes) texts.push_back(box.text);
    return texts;
  }

  test::TestShop shop;
};

TEST_F(WriteAheads, StandWhileTheyAreWrittenAndGoWithTheEnd) {
  {
    WriteAhead ahead(shop.environment);
    EXPECT_TRUE(Journals().empty()) << "nothing is noted";
    ahead.Note("Customer 000007", Both());
    EXPECT_EQ(Journals().size(), 1u);
    EXPECT_THROW(SharedFile(shop.environment.files.PathOf(Journals()[0]), Access::ReadWrite, Deny::None), FileError);
  }
  EXPECT_TRUE(Journals().empty());
}

TEST_F(WriteAheads, AreReadAsTheyWereWritten) {
  const std::vector<RecordBytes> records = {{kTags, 264, "", std::string("\0%\r\n", 4)},
                                            {kMasters, 5, std::string(3, '\xff'), std::string(4096, 'x')}};
  const WrittenAhead ahead = ReadWriteAhead(Left(records));
  EXPECT_EQ(ahead.state, WrittenAhead::State::Whole);
  EXPECT_EQ(ahead.what, "Customer 000007");
  EXPECT_EQ(ahead.when, "2003-09-30T08:15:00");
  EXPECT_EQ(ahead.where, "FRONT DESK");
  ASSERT_EQ(ahead.records.size(), 2u);
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_EQ(ahead.records[i].file, records[i].file);
    EXPECT_EQ(ahead.records[i].offset, records[i].offset);
    EXPECT_EQ(ahead.records[i].before, records[i].before);
    EXPECT_EQ(ahead.records[i].after, records[i].after);
  }
}

TEST_F(WriteAheads, OfTheNextRecordTakeThePlaceOfTheOneBefore) {
  WriteAhead ahead(shop.environment);
  ahead.Note("Part LONG", {{kTags, 0, "", std::string(500, 'x')}, {kMasters, 0, "", std::string(500, 'y')}});
  ahead.Note("Part SHORT", Both());
  const WrittenAhead read = ReadWriteAhead(shop.directory.Content(Journals().at(0)));
  EXPECT_EQ(read.state, WrittenAhead::State::Whole);
  EXPECT_EQ(read.what, "Part SHORT");
  EXPECT_EQ(read.records.size(), 2u);
}

TEST_F(WriteAheads, AreFinishedWhereAPartWasWritten) {
  PutLeft();
  shop.directory.Put(kTags, "tag-2");
  Settle();
  EXPECT_EQ(shop.directory.Content(kTags), "tag-2");
  EXPECT_EQ(shop.directory.Content(kMasters), "01234master-2");
  EXPECT_TRUE(Journals().empty());
  EXPECT_EQ(Told(), (std::vector<std::string>{
                        "Customer 000007 was being stored on FRONT DESK at 2003-09-30T08:15:00 when the program "
                        "ended.\rIt was finished just now: all of it is stored."}));
}

TEST_F(WriteAheads, OfANewRecordAreFinishedAtTheEndOfTheFile) {
  PutLeft({{kTags, 5, "", "tag-2"}, {kMasters, 13, "", "master-2"}});
  shop.directory.Put(kTags, "tag-1tag-2");
  Settle();
  EXPECT_EQ(shop.directory.Content(kMasters), "01234master-1master-2");
}

TEST_F(WriteAheads, GoSilentlyWhereNothingOrAllWasWritten) {
  PutLeft();
  Settle();
  EXPECT_EQ(shop.directory.Content(kTags), "tag-1");
  EXPECT_EQ(shop.directory.Content(kMasters), "01234master-1");
  PutLeft();
  shop.directory.Put(kTags, "tag-2");
  shop.directory.Put(kMasters, "01234master-2");
  Settle();
  EXPECT_TRUE(Journals().empty());
  EXPECT_TRUE(Told().empty());
}

TEST_F(WriteAheads, LeaveWhatOthersHaveChangedSinceAndSaySo) {
  PutLeft();
  shop.directory.Put(kTags, "tag-2");
  shop.directory.Put(kMasters, "01234theirs-1");
  bool isFree = false;
  shop.desktop.otherwise = [&](const ui::Box&) {
    const SharedFile theirs(shop.environment.files.PathOf(kTags), Access::ReadWrite, Deny::All);
    isFree = true;
    return ui::Answer::Ok;
  };
  SettleRecords(shop.environment, shop.desktop, Journals());
  EXPECT_TRUE(isFree) << "nobody waits for the box";
  EXPECT_EQ(shop.directory.Content(kMasters), "01234theirs-1");
  EXPECT_TRUE(Journals().empty());
  ASSERT_EQ(Told().size(), 1u);
  EXPECT_TRUE(Told()[0].ends_with(
      "A part of it is stored, and TQCSTDAT.DAT was changed by others since.\rLook at it, and store it once more."))
      << Told()[0];
}

TEST_F(WriteAheads, OfAProgramThatRunsAreLeftAlone) {
  WriteAhead ahead(shop.environment);
  ahead.Note("Customer 000007", Both());
  shop.directory.Put(kTags, "tag-2");
  Settle();
  EXPECT_EQ(shop.directory.Content(kMasters), "01234master-1");
  EXPECT_EQ(Journals().size(), 1u);
  EXPECT_TRUE(Told().empty());
}

TEST_F(WriteAheads, WaitForTheNextStartWhereTheFilesAreHeld) {
  PutLeft();
  shop.directory.Put(kTags, "tag-2");
  const SharedFile held(shop.environment.files.PathOf(kMasters), Access::ReadWrite, Deny::All);
  Settle();
  EXPECT_EQ(Journals().size(), 1u);
  EXPECT_TRUE(Told().empty());
}

TEST_F(WriteAheads, WhoseProgramEndedWhileItWroteThemSayNothing) {
  const std::string whole = Left();
  for (std::size_t length = 0; length < whole.size(); ++length) {
    shop.directory.Put(kTags, "tag-2");
    shop.directory.Put("ARb15000.JNL", whole.substr(0, length));
    Settle();
    ASSERT_EQ(shop.directory.Content(kMasters), "01234master-1") << length;
    ASSERT_TRUE(Journals().empty()) << length;
  }
  EXPECT_TRUE(Told().empty());
}

TEST_F(WriteAheads, ThatAreDamagedAreToldAndWriteNothing) {
  const std::string line = "bytes TQCSTTAG.DAT 0 7461672d31 7461672d32";
  const auto instead = [&](const std::string& other) {
    std::string content = Left();
    const std::string old = JournalLine(line);
    const std::size_t at = content.find(old);
    EXPECT_NE(at, std::string::npos);
    return content.replace(at, old.size(), JournalLine(other));
  };
  const std::vector<std::string> damaged = {
      "Lantos records 2 00000000\r\n",
      instead("bytes ../TQCSTTAG.DAT 0 7461672d31 7461672d32"),
      instead("bytes TQSYSTEM.DAT 0 7461672d31 7461672d32"),
      instead("bytes TQCSTTAG.DAT -1 7461672d31 7461672d32"),
      instead("bytes TQCSTTAG.DAT 99999999999 7461672d31 7461672d32"),
      instead("bytes TQCSTTAG.DAT 0 7461672d31 7461672d3"),
      instead("bytes TQCSTTAG.DAT 0 7461672d31 zz"),
      instead("bytes TQCSTTAG.DAT 0 7461672d31 -"),
      instead("bytes TQCSTTAG.DAT 0 7461672d31"),
      instead("bytes TQCSTTAG.DAT 0 - " + std::string(2 * 4097, '0')),
      instead("begun again"),
      instead("something else"),
  };
  for (const std::string& content : damaged) {
    shop.desktop.boxes.clear();
    shop.directory.Put(kTags, "tag-2");
    shop.directory.Put("ARb15000.JNL", content);
    Settle();
    EXPECT_EQ(shop.directory.Content(kMasters), "01234master-1") << content;
    ASSERT_EQ(Told().size(), 1u) << content;
    const bool isNamed = content.find("Customer") != std::string::npos;
    EXPECT_EQ(Told()[0],
              isNamed ? "ARb15000.JNL, which tells that Customer 000007 was being stored when the program ended, is "
                        "damaged.\rLook at it, and store it once more."
                      : "ARb15000.JNL, which tells that a customer, a vehicle or a part was being stored when the "
                        "program ended, is damaged.\rLook at those that were stored last.");
  }
}

TEST_F(WriteAheads, OfAPartWaitForTheNextStartWhileACopyIsAtTheParts) {
  shop.directory.Put("TQINVTAG.DAT", "tag-2");
  shop.directory.Put("TQINVENT.DAT", "master-1");
  PutLeft({{"TQINVTAG.DAT", 0, "tag-1", "tag-2"}, {"TQINVENT.DAT", 0, "master-1", "master-2"}});
  UpdateTurns turns(shop.environment.files.PathOf("TQINVTAG.DAT"), shop.clock);
  {
    const UpdateTurns::Turn theirs(turns);
    Settle();
    EXPECT_EQ(shop.directory.Content("TQINVENT.DAT"), "master-1");
    EXPECT_EQ(Journals().size(), 1u);
  }
  Settle();
  EXPECT_EQ(shop.directory.Content("TQINVENT.DAT"), "master-2");
}

TEST_F(WriteAheads, WhoseFileIsGoneAreToldAndStay) {
  PutLeft();
  shop.directory.Put(kTags, "tag-2");
  std::filesystem::remove(shop.directory / kMasters);
  Settle();
  EXPECT_EQ(Journals().size(), 1u);
  ASSERT_EQ(Told().size(), 1u);
  EXPECT_TRUE(Told()[0].starts_with("What ARb15000.JNL tells of can not be finished")) << Told()[0];
}

TEST_F(WriteAheads, ThatCanNotBeMadeKeepNobodyFromStoring) {
  std::vector<test::FileCall> made;
  {
    test::FaultyCalls calls(shop.directory.Path());
    Left();
    made = calls.Calls();
  }
  std::size_t failed = 0;
  for (std::size_t call = 0; call < made.size(); ++call) {
    test::FaultyCalls calls(shop.directory.Path());
    calls.FailAt(call, test::Fault::DiskFull);
    {
      WriteAhead ahead(shop.environment);
      EXPECT_NO_THROW(ahead.Note("Customer 000007", Both())) << call;
    }
    failed += calls.Failed();
    EXPECT_TRUE(Told().empty()) << call;
  }
  EXPECT_GE(failed, 2u) << "the making, and the writing";
}

}  // namespace
}  // namespace lantos
