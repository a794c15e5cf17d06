#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/CaselessNeedle.h"
#include "records/OpenedFile.h"
#include "workorders/TagScan.h"

namespace lantos {

// What past work orders are looked for by. It occurs anywhere in its field, in either case.
struct SearchCriterion {
  enum class Kind { Name, Vin, License };
  Kind kind = Kind::Name;
  std::string text;  // of a name "Last,First", or the last name alone
};

// Whether a tag meets a criterion.
class TagTest {
 public:
  TagTest() = default;
  explicit TagTest(const SearchCriterion& criterion);
  template <std::size_t Length>
  bool Passes(const Record<Length>& tag) const;

 private:
  template <TextField field, std::size_t Length>
  bool MayPass(const Record<Length>& tag) const;
  template <TextField field, std::size_t Length>
  bool PassesBy(const Record<Length>& tag) const;
  bool IsName(std::string_view name) const;

  SearchCriterion::Kind kind_ = SearchCriterion::Kind::Name;
  CaselessNeedle needle_;     // of a name, the last one
  CaselessNeedle firstName_;  // empty for any
  // The last two characters of the needle, by which nearly all fields are passed over: vehicles of a kind differ in the
  // end of their VINs. The last one again where there is no other. No filter for an empty needle. A character may be
  // one of them when it is the letter with the bits set in which its two cases differ.
  struct Ending {
    unsigned char either[2];
    unsigned char letter[2];
  };
  std::optional<Ending> ending_;
  std::size_t reach_ = 0;  // from the first to the second of them
};

// A search through the past work orders, from the newest to the oldest, the active ones ahead of the archived: it stops
// at each hit, and goes on from there. Both tag files stay open, shared, from their first step to the end of the
// search; what is appended meanwhile isn't met.
class WorkorderSearch {
 public:
  WorkorderSearch(Environment& environment, Workorders& workorders)
      : environment_(environment), workorders_(workorders) {}
  WorkorderSearch(const WorkorderSearch&) = delete;

  // Forgets the search before this one, and its hits.
  void Begin(const SearchCriterion& criterion);
  void End();  // closes the files

  enum class Outcome { Found, NothingMore, Stopped };
  // To the next hit, which is the last of Hits() then. Between two blocks goOn is asked; false stops the search where
  // it is. Also stopped when the person gives up a held file. Throws FileError.
  Outcome SearchOn(const std::function<bool()>& goOn);
  bool IsAtEnd() const { return active_.atEnd && archived_.atEnd; }
  // How much has been looked through of the archive's tags, which are nearly all there are, in whole per cent.
  int PercentDone() const;

  // Hits in the order in which they were found; of each, in which list its tag stands and where.
  static constexpr std::string_view kActive = "act";
  static constexpr std::string_view kArchived = "arc";
  struct Hit {
    std::string_view source;
    std::size_t place;
  };
  const std::vector<Hit>& Hits() const { return hits_; }
  const ActiveWoTag& ActiveTag(const Hit& hit) const { return activeHits_.at(hit.place); }
  const ArchivedWoTag& ArchivedTag(const Hit& hit) const { return archivedHits_.at(hit.place); }

 private:
  template <std::size_t Length>
  struct FileWalk {
    explicit FileWalk(OpenFiles& openFiles) : file(openFiles) {}
    OpenedFile file;
    std::optional<TagsBackwards<Length>> walk;
    std::uint64_t length = 0;               // of what is walked, in bytes
    std::span<const Record<Length>> block;  // of which so many are left
    std::size_t left = 0;
    bool atEnd = false;
  };
  template <std::size_t Length>
  Outcome SearchOn(FileWalk<Length>& walk, const std::function<bool()>& goOn);
  template <std::size_t Length>
  bool Open(FileWalk<Length>& walk);
  template <std::size_t Length>
  static void Close(FileWalk<Length>& walk);
  void TellOddPlace(FileWalk<ActiveWoTag::kLength>& walk);
  void TellOddPlace(FileWalk<ArchivedWoTag::kLength>& walk);
  bool Take(const ActiveWoTag& tag);
  bool Take(const ArchivedWoTag& tag);

  Environment& environment_;
  Workorders& workorders_;
  TagTest test_;
  FileWalk<ActiveWoTag::kLength> active_{environment_.openFiles};
  FileWalk<ArchivedWoTag::kLength> archived_{environment_.openFiles};
  std::vector<ActiveWoTag> activeHits_;
  std::vector<ArchivedWoTag> archivedHits_;
  std::vector<Hit> hits_;
};

}  // namespace lantos
