#pragma once

#include <optional>
#include <string>
#include <vector>

#include "records/AskedTurn.h"
#include "records/inventory/UsageHistory.h"
#include "shop/Records.h"
#include "ui/Desktop.h"
#include "workorders/ConversionJournal.h"

namespace lantos {

// Parts of a conversion that ended in the middle: how far each came is told by the files themselves, whatever other
// copies have sold of it since, and it is brought to its end or taken back. Ending in the middle once more leaves what
// the next look tells apart as well.
class StockRepair {
 public:
  StockRepair(Environment& environment, ui::Desktop& desktop, Records& records, std::int32_t workorder);

  // How the use of the part was noted. Only what was neither noted nor given up has its stock as it was for sure.
  enum class Use { NotNoted, Noted, GivenUp };
  Use UseOf(const JournaledPart& part) const;
  // Usage, tag and master as a whole movement leaves them; as if it had not been. GivenUp when a file can't be had.
  void Complete(const JournaledPart& part);
  void TakeBack(const JournaledPart& part);

  // Parts whose stock was changed in other ways meanwhile, so that nobody can tell whether it was lowered: it was left
  // alone, and wants to be counted.
  const std::vector<std::string>& ToBeCounted() const { return toBeCounted_; }

 private:
  struct Chain {
    bool hasOurs = false;
    FileLink behindOurs = kNoLink;  // the record that leads to ours; none when the master does
    std::int64_t others = 0;        // taken since, by others
  };
  // How far a part came.
  struct Found {
    Inventory::PartIndex index = Inventory::kNoPart;
    FileLink offset = kNoLink;  // of the master
    FileLink usage = kNoLink;   // none where the person went on without
    Chain chain;
    bool isKnown = false;    // what the tag has is one of two
    bool isLowered = false;  // the tag
  };
  FileLink FindUsage(const JournaledPart& part) const;
  FileLink ScanUsages(const SharedFile& file, std::uint64_t first, const std::string& number) const;
  bool IsOurs(const UsageRecord& record, const std::string& number) const;
  void CompleteStock(const Found& found, std::int16_t quantity);
  std::optional<Found> Look(const JournaledPart& part);
  Chain WalkChain(const JournaledPart& part, FileLink usage, FileLink head) const;
  UsageRecord UsageAt(FileLink link) const;
  void SetPrevLink(FileLink usage, FileLink previous);
  void Unlink(const Found& found);
  void Store(const Found& found);

  Environment& environment_;
  ui::Desktop& desktop_;
  Inventory& inventory_;
  UsageHistory& usageHistory_;
  std::int32_t workorder_;
  const FileIO::SteadyNames names_;
  UpdateTurns turns_;
  std::vector<std::string> toBeCounted_;
};

}  // namespace lantos
