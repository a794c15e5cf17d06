#include <gmock/gmock.h>

#include "board/BookingBench.h"
#include "workorders/ConversionJournal.h"

// A conversion that is finished later on, and is stopped once more on the way.
namespace lantos {
namespace {

using test::BookingBench;
using test::DataOf;
using testing::ElementsAre;
using ui::Answer;

// Arrived and on show, with a work order that lacks the mark in the comments: the database refused it.
struct HalfConverted : BookingBench {
  HalfConverted() {
    for (const char* file : {"TQEMPLOY.DAT", "TQPASSWD.DAT"}) directory.Put(file, "");
    std::string system = directory.Content("TQSYSTEM.DAT");
    system[0] = 5;  // the next work order
    directory.Put("TQSYSTEM.DAT", system);
    AddEstimate(900, Today(), kArrived);
    Start();
    environment.statusOptions.letters[static_cast<std::size_t>(StatusOption::ArrivedToComplete)] = 'Y';
    Show(900);
    desktop.failuresExpected = true;
    Refuse("Comments");
    desktop.WillAnswer(Answer::Yes);
    test::Click(board.commands.cmdConvert);
    Do("drop trigger Refuse");
    EXPECT_THAT(environment.files.List(kJournalPattern), testing::SizeIs(1));
    EXPECT_THAT(desktop.failures, testing::SizeIs(1));
    desktop.failures.clear();
    desktop.boxes.clear();
  }
  void Refuse(const std::string& column) {
    Do("create trigger Refuse before update of " + column +
       " on Estimates begin select raise(abort, 'database is locked'); end");
  }
};

TEST(StoppedFinish, ShowsTheBoardAsItIsByThen) {
  HalfConverted bench;
  ASSERT_THAT(DataOf(bench.board.week.List1[HalfConverted::kTuesday]), ElementsAre(900, 900));
  bench.desktop.WillAnswer(Answer::Yes);
  bench.desktop.WillAnswer([&](const ui::Box& box) {
    EXPECT_EQ(box.text, "Estimate # 000900 is now Workorder # 000005");
    bench.AddEstimate(901, bench.Today(), kScheduled);
    bench.Refuse("Status");
    return Answer::Ok;
  });
  test::Click(bench.board.commands.cmdConvert);
  EXPECT_THAT(bench.desktop.boxes.at(0).text, testing::HasSubstr(" was not finished."));
  ASSERT_THAT(bench.desktop.failures, testing::SizeIs(1)) << "the person is told";
  EXPECT_THAT(bench.desktop.failures[0], testing::HasSubstr("the comments of the estimate name the work order"));
  EXPECT_EQ(bench.StoredStatus(900), std::to_string(kArrived));
  EXPECT_THAT(DataOf(bench.board.week.List1[HalfConverted::kTuesday]), ElementsAre(900, 900, 901, 901));
  EXPECT_EQ(bench.board.detail.txtComments.Text(), "Workorder # 000005 ");
}

}  // namespace
}  // namespace lantos
