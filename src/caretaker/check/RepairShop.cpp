#include "caretaker/check/RepairShop.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <set>

#include "frame/Dates.h"
#include "frame/RunLog.h"
#include "frame/Text.h"
#include "frame/WorkingCopies.h"
#include "shopmaker/ShopDirectory.h"

namespace lantos {

namespace {

constexpr std::string_view kDataFiles = "TQ*.DAT";
// What is mended may show what lay behind it: a part that has got its tag has alternates. In a shop that comes to no
// end after this many looks, two findings speak against each other.
constexpr int kLooks = 8;

[[noreturn]] void RefuseBusy(const std::string& name) {
  throw ShopError(
      fmt::format("Somebody works in this directory: \"{}\" is in use. Nothing was changed.\n\nEnd Lantos "
                  "and the main application on every workstation first.",
                  ToUtf8(name)));
}

void RefuseJournals(const FileIO& files) {
  for (const std::string& pattern : {std::string(kJournalPattern), std::string(kRecordsJournalPrefix) + "*.J??"}) {
    const std::vector<std::string> journals = files.List(pattern);
    if (journals.empty()) continue;
    throw ShopError(
        fmt::format("\"{}\" tells of work that ended in the middle. Nothing was changed.\n\nStart Lantos once "
                    "and let it finish or undo that work, then end it.",
                    ToUtf8(journals.front())));
  }
}

class Repair {
 public:
  Repair(ShopView& shop, std::span<const Kind> kinds, const std::function<void()>& beforeWriting)
      : shop_(shop), kinds_(kinds), beforeWriting_(beforeWriting) {}

  // Two spellings of one name would have to be told apart first, so they are left.
  void HoldAll() {
    if (const std::string log = LogInUse(shop_.files); !log.empty()) RefuseBusy(log);
    RefuseJournals(shop_.files);
    bool hasTwins = false;
    FindNames(shop_, [&](const Finding&) { hasTwins = true; });
    if (hasTwins) return;
    for (const std::string& name : shop_.files.List(kDataFiles)) {
      try {
        shop_.flat.Hold(name);
      } catch (const FileError& error) {
        if (error.Number() != FileErrorNumber::PermissionDenied) throw;
        RefuseBusy(name);
      }
    }
  }

  Repaired Run(Deed deed, const TellKind& tellKind) {
    for (int looks = 0; looks < kLooks; ++looks) {
      std::vector<Finding> findings = LookOnce(shop_, kinds_, looks == 0 ? tellKind : TellKind());
      const auto firstLeft = std::stable_partition(findings.begin(), findings.end(),
                                                   [](const Finding& finding) { return finding.CanBeMended(); });
      const std::span<const Finding> mendable(findings.begin(), firstLeft);
      repaired_.left.assign(firstLeft, findings.end());
      if (!mendable.empty() && deed == Deed::Mend) MendAll(mendable);
      repaired_.mended.insert(repaired_.mended.end(), mendable.begin(), mendable.end());
      if (mendable.empty() || deed == Deed::TellOnly) return std::move(repaired_);
      shop_.Forget();
    }
    return std::move(repaired_);
  }

 private:
  void CopyAll(std::span<const Finding> findings) {
    for (const Finding& finding : findings) {
      for (const Edit& edit : finding.mending.edits) CopyOnce(edit.file);
      if (!finding.mending.removes.empty()) CopyOnce(finding.mending.removes);
    }
  }

  // What fails from here on leaves some of it mended and some not: the person is told where the files lie as they were.
  void MendAll(std::span<const Finding> findings) {
    CopyAll(findings);
    if (beforeWriting_) beforeWriting_();
    try {
      WriteAll(findings);
    } catch (const std::exception& error) {
      throw HalfRepaired(error, repaired_.copies);
    }
  }

  void WriteAll(std::span<const Finding> findings) {
    for (const Finding& finding : findings) {
      for (const Edit& edit : finding.mending.edits) shop_.flat.Write(edit.file, edit.offset, edit.bytes);
      const std::string& removed = finding.mending.removes;
      if (!removed.empty() && !shop_.files.Delete(removed)) {
        throw std::runtime_error(fmt::format("\"{}\" can't be taken away: somebody has it.", removed));
      }
    }
    shop_.flat.Flush();
  }

  // As it was before any of this: of a file that is looked at anew the first copy counts.
  void CopyOnce(const std::string& name) {
    if (!copied_.insert(name).second || !shop_.files.IsThere(name)) return;
    const LocalTime now = shop_.files.GetClock().Now();
    const std::string stem = fmt::format("{}.before-{}-{}", name, FormatIsoDate(now.day), now.millisecondOfDay / 1000);
    std::string copy = stem;
    for (int i = 2; !shop_.files.MakeNew(copy); ++i) copy = fmt::format("{}-{}", stem, i);
    SharedFile file(shop_.files.PathOf(copy), Access::Write, Deny::All);
    file.WriteAt(0, shop_.flat.Read(name));
    file.Flush();
    file.Close();
    repaired_.copies.push_back(copy);
  }

  ShopView& shop_;
  std::span<const Kind> kinds_;
  const std::function<void()>& beforeWriting_;
  std::set<std::string> copied_;
  Repaired repaired_;
};

}  // namespace

HalfRepaired::HalfRepaired(const std::exception& failure, const std::vector<std::string>& copies)
    : WordedError(failure.what(),
                  fmt::format("{}\n\nThe repair has ended in its middle. As they were before it, the files "
                              "lie in the shop's directory as: {}.",
                              WordsFor(failure), fmt::join(copies, ", "))) {}

Repaired RepairShop(ShopView& shop, std::span<const Kind> kinds, Deed deed, const std::function<void()>& beforeWriting,
                    const TellKind& tellKind) {
  Repair repair(shop, kinds, beforeWriting);
  repair.HoldAll();
  return repair.Run(deed, tellKind);
}

}  // namespace lantos
