// The program ends in the middle of a conversion: at each call that changes a file.
#include "HalfDoneBench.h"

namespace lantos {
namespace {

using test::HalfDoneBench;

// What a kill has left is old, whole, or has a journal that says which; and what the person chooses leaves nothing
// apart.
template <class Choose, class Expect>
std::size_t KillAtEachChange(Choose choose, Expect expect) {
  for (std::size_t change = 0;; ++change) {
    SCOPED_TRACE("killed at change " + std::to_string(change));
    HalfDoneBench bench;
    if (!bench.KillConversionAt(change)) return change;
    const bool hasJournal = !bench.Journals().empty();
    if (!hasJournal && bench.NextNumber() == 5001) {
      bench.ExpectUntouched();
      continue;
    }
    EXPECT_TRUE(hasJournal || bench.IsThere("W0005001.tqa"));
    choose(bench);
    EXPECT_TRUE(bench.Journals().empty());
    EXPECT_TRUE(bench.desktop.failures.empty());
    expect(bench);
  }
}

TEST(KilledConversion, IsFinishedFromEachOfItsSteps) {
  const std::size_t kills =
      KillAtEachChange([](HalfDoneBench& bench) { bench.Finish(); },
                       [](HalfDoneBench& bench) {
                         if (bench.IsThere("W0005001.tqa")) return bench.ExpectWhole();
                         // It ended before anything was done for sure.
                         bench.ExpectUntouched();
                         EXPECT_TRUE(bench.NextNumber() == 5001 || bench.WasTold("Number 005001 may stay unused."));
                       });
  EXPECT_GT(kills, 15u);
}

TEST(KilledConversion, IsUndoneFromEachStepAheadOfItsFiles) {
  std::size_t undone = 0;
  KillAtEachChange([](HalfDoneBench& bench) { bench.Undo(); },
                   [&](HalfDoneBench& bench) {
                     if (bench.IsThere("W0005001.tqa")) return bench.ExpectWhole();
                     bench.ExpectUntouched();
                     EXPECT_TRUE(bench.NextNumber() == 5001 || bench.WasTold("may stay unused."));
                     undone += bench.WasTold("was undone.") ? 1 : 0;
                   });
  EXPECT_GT(undone, 6u);
}

// Finishing and undoing may end in the middle as well.
TEST(KilledConversion, IsSettledByTheSecondWhoTries) {
  for (const bool finishes : {true, false}) {
    for (const char* at : {"TQINVTAG.DAT", "TQOPENWO.DAT"}) {
      for (std::size_t change = 0;; ++change) {
        SCOPED_TRACE(std::string(finishes ? "finished" : "undone") + " from " + at + ", killed at " +
                     std::to_string(change));
        HalfDoneBench bench;
        bench.KillConversionAtWriteOf(at);
        const int result = test::InChild([&] {
          test::FaultyCalls calls(bench.directory.Path());
          std::size_t changes = 0;
          calls.When([&](const test::FileCall& call, std::size_t) {
            if (Changes(call) && changes++ == change) ::kill(::getpid(), SIGKILL);
            return 0;
          });
          finishes ? bench.Finish() : bench.Undo();
          return 0;
        });
        finishes ? bench.Finish() : bench.Undo();
        EXPECT_TRUE(bench.Journals().empty());
        finishes ? bench.ExpectWhole() : bench.ExpectUntouched();
        if (result == 0) break;
      }
    }
  }
}

}  // namespace
}  // namespace lantos
