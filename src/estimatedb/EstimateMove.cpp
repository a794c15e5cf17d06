#include "estimatedb/EstimateMove.h"

#include <fmt/format.h>

#include <optional>

#include "estimatedb/DatabasePlace.h"
#include "frame/PathText.h"

namespace lantos {

namespace {

namespace fs = std::filesystem;

// What is about to take the place of Lantos.mdb.
constexpr std::string_view kInTheMaking = "Lantos-move.tmp";

// A schema that is filled, and taken back again unless it is the shop's in the end.
class FilledSchema {
 public:
  FilledSchema(std::string fileText, fs::path place, const Clock& clock)
      : fileText_(std::move(fileText)), place_(std::move(place)), isNew_(MakeServerSchema(fileText_, place_)) {
    try {
      opened_.emplace(OpenServerTables(fileText_, place_, clock));
    } catch (...) {
      DropWhatIsNew();
      throw;
    }
  }
  ~FilledSchema() {
    if (!isKept_) TakeBack();
  }
  FilledSchema(const FilledSchema&) = delete;

  MovedTables Fill(OpenedTables& from, const TellProgress& tell) {
    MovedTables moved;
    opened_->engine->Together([&] { moved = MoveTables(from, *opened_, tell); });
    isFilled_ = true;
    return moved;
  }
  void Keep() { isKept_ = true; }

 private:
  void TakeBack() noexcept {
    try {
      if (isFilled_) {
        opened_->engine->Together([&] {
          for (const std::string& table : opened_->tables->Tables()) opened_->tables->Drop(table);
        });
      }
    } catch (const std::exception&) {
      return;  // a copy stays, which nobody looks at
    }
    DropWhatIsNew();
  }
  void DropWhatIsNew() noexcept {
    if (isNew_) DropEmptyServerSchema(fileText_, place_);
  }

  std::string fileText_;
  fs::path place_;
  bool isNew_;
  std::optional<OpenedTables> opened_;
  bool isFilled_ = false;
  bool isKept_ = false;
};

}  // namespace

EstimateMove MoveToServer(const FileIO& files, const std::string& server, const std::string& schema,
                          const TellProgress& tell) {
  const fs::path place = PlaceOfDatabase(files);
  if (NamesServer(place)) RefuseWith(fmt::format("\"{}\" names a server already.", TextOfPath(place)));
  const std::string text = ServerFileText(server, schema, place);
  RefuseWhereSomebodyWorks(files);
  TakeAwaySecondNames(files, place);
  EstimateMove move;
  OpenedTables from = OpenTables(place, files.GetClock());
  from.engine->Together([&] {
    InTheMaking made(files, kInTheMaking);
    made.Write(text);
    FilledSchema filled(text, place, files.GetClock());
    move.moved = filled.Fill(from, tell);
    const fs::path kept = NameForTheOld(files);
    Replace(made, place, kept, [&](int done) { tell({"", MoveStep::Placing, done, 3}); });
    filled.Keep();
    move.kept = TextOfPath(kept.filename());
  });
  return move;
}

EstimateMove MoveToFile(const FileIO& files, const TellProgress& tell) {
  const fs::path place = PlaceOfDatabase(files);
  if (!NamesServer(place)) RefuseWith(fmt::format("\"{}\" doesn't name a server.", TextOfPath(place)));
  RefuseWhereSomebodyWorks(files);
  EstimateMove move;
  OpenedTables from = OpenTables(place, files.GetClock());
  bool isPlaced = false;
  try {
    from.engine->Together([&] {
      InTheMaking made(files, kInTheMaking);
      OpenedTables to = CreateTablesFile(made.Path(), files.GetClock());
      to.engine->Together([&] { move.moved = MoveTables(from, to, tell); });
      to = {};
      tell({"", MoveStep::Placing, 1, 2});
      made.TakeThePlaceOf(place);
      isPlaced = true;
      tell({"", MoveStep::Placing, 2, 2});
      move.kept = SetServerAside(from, files.GetClock().Today());
    });
  } catch (const DatabaseError&) {
    if (!isPlaced) throw;
    move.kept.clear();
  }
  return move;
}

}  // namespace lantos
