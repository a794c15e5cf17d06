#include "estimatedb/EstimateMove.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <optional>
#include <span>
#include <system_error>

#include "estimatedb/EstimateDatabase.h"
#include "frame/Dates.h"
#include "frame/GuardedOpen.h"
#include "frame/PathText.h"
#include "frame/SharedFile.h"
#include "frame/WorkingCopies.h"

namespace lantos {

namespace {

namespace fs = std::filesystem;

// What is about to take the place of Lantos.mdb. One that a move has left that was broken off is worth nothing.
constexpr std::string_view kInTheMaking = "Lantos-move.tmp";

[[noreturn]] void Refuse(const std::string& words) { throw DatabaseError(words, DatabaseErrorKind::Refused, 0, words); }

void RefuseWhereSomebodyWorks(const FileIO& files) {
  const std::string log = LogInUse(files);
  if (log.empty()) return;
  Refuse(fmt::format(
      "Somebody works with Lantos in this directory: \"{}\" is in use. Nothing was changed.\n\nEnd it on every "
      "workstation first, since a copy that goes on would look at the old database.",
      log));
}

// The file beside Lantos.mdb, gone again unless it has taken its place.
class InTheMaking {
 public:
  explicit InTheMaking(const FileIO& files) : path_(files.PathOf(kInTheMaking)) { Remove(); }
  ~InTheMaking() { Remove(); }
  InTheMaking(const InTheMaking&) = delete;

  const fs::path& Path() const { return path_; }

  void Write(const std::string& text) {
    SharedFile file(path_, Access::Write, Deny::All);
    file.WriteAt(0, std::as_bytes(std::span(text)));
    file.Flush();
    file.Close();
  }

  // In one step, on the disk when it returns.
  void TakeThePlaceOf(const fs::path& place) {
    if (::rename(path_.c_str(), place.c_str()) != 0) {
      ThrowFileError(errno, fmt::format("putting \"{}\" in its place", TextOfPath(place)));
    }
    FlushNames(place.parent_path());
  }

 private:
  void Remove() noexcept {
    std::error_code ignored;
    fs::remove(path_, ignored);
    fs::remove(path_.string() + "-journal", ignored);
  }

  // The directory as such; what can't be pushed there is left to the system.
  static void FlushNames(const fs::path& directory) {
    const int descriptor = ::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    ::fsync(descriptor);
    ::close(descriptor);
  }

  fs::path path_;
};

// A move that was broken off in its last step has given the shop's database a second name. Looked at by name alone.
void TakeAwaySecondNames(const FileIO& files, const fs::path& place) {
  for (const std::string& name : files.List("Lantos-until-*.mdb")) {
    std::error_code ignored;
    const fs::path path = files.PathOf(name);
    if (fs::equivalent(path, place, ignored)) fs::remove(path, ignored);
  }
}

fs::path FreeNameFor(const FileIO& files) {
  const std::string day = FormatIsoDate(files.GetClock().Today());
  std::string name = fmt::format("Lantos-until-{}.mdb", day);
  for (int number = 2; files.IsThere(name); ++number) name = fmt::format("Lantos-until-{}-{}.mdb", day, number);
  return files.PathOf(name);
}

// The second name comes first, so that there is a Lantos.mdb at any time. Where a directory gives no file two names,
// one moment is without.
void Replace(InTheMaking& made, const fs::path& place, const fs::path& kept, const TellProgress& tell) {
  tell({"", MoveStep::Placing, 1, 3});
  const bool hasTwoNames = ::link(place.c_str(), kept.c_str()) == 0;
  if (!hasTwoNames && ::rename(place.c_str(), kept.c_str()) != 0) {
    ThrowFileError(errno, fmt::format("giving \"{}\" another name", TextOfPath(place)));
  }
  tell({"", MoveStep::Placing, 2, 3});
  try {
    made.TakeThePlaceOf(place);
  } catch (...) {
    hasTwoNames ? ::unlink(kept.c_str()) : ::rename(kept.c_str(), place.c_str());
    throw;
  }
  tell({"", MoveStep::Placing, 3, 3});
}

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

fs::path PlaceOf(const FileIO& files) {
  const fs::path place = files.PathOf(kLantosDatabase);
  if (!fs::exists(place)) Refuse(fmt::format("There is no \"{}\".", TextOfPath(place)));
  return place;
}

}  // namespace

EstimateMove MoveToServer(const FileIO& files, const std::string& server, const std::string& schema,
                          const TellProgress& tell) {
  const fs::path place = PlaceOf(files);
  if (NamesServer(place)) Refuse(fmt::format("\"{}\" names a server already.", TextOfPath(place)));
  const std::string text = ServerFileText(server, schema, place);
  RefuseWhereSomebodyWorks(files);
  TakeAwaySecondNames(files, place);
  EstimateMove move;
  OpenedTables from = OpenTables(place, files.GetClock());
  from.engine->Together([&] {
    InTheMaking made(files);
    made.Write(text);
    FilledSchema filled(text, place, files.GetClock());
    move.moved = filled.Fill(from, tell);
    const fs::path kept = FreeNameFor(files);
    Replace(made, place, kept, tell);
    filled.Keep();
    move.kept = TextOfPath(kept.filename());
  });
  return move;
}

EstimateMove MoveToFile(const FileIO& files, const TellProgress& tell) {
  const fs::path place = PlaceOf(files);
  if (!NamesServer(place)) Refuse(fmt::format("\"{}\" doesn't name a server.", TextOfPath(place)));
  RefuseWhereSomebodyWorks(files);
  EstimateMove move;
  OpenedTables from = OpenTables(place, files.GetClock());
  bool isPlaced = false;
  try {
    from.engine->Together([&] {
      InTheMaking made(files);
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
