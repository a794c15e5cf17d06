#include "records/CustomerFiles.h"

#include <vector>

#include "frame/Numbers.h"
#include "records/GivenUp.h"
#include "records/RecordArray.h"

namespace lantos {

namespace {

constexpr std::size_t kBlockTags = 176;
constexpr std::uint64_t kTagLength = CustomerTag::kLength;

}  // namespace

CustomerFiles::CustomerFiles(Environment& environment, ui::Desktop& desktop)
    : environment_(environment),
      desktop_(desktop),
      tagFile_(environment.openFiles),
      masterFile_(environment.openFiles),
      tagContention_(contention::kWriteCustomerTag, desktop, environment),
      masterContention_(contention::kWriteCustomer, desktop, environment),
      ahead_(environment) {}

// The turn comes first, so that nothing is held open while the person is asked about it; it needs a tag file.
bool CustomerFiles::Open() {
  const auto openTags = [&] { tagFile_.Open(kCustomerTagFile, Access::Write, Deny::None); };
  if (!environment_.files.IsThere(kCustomerTagFile)) {
    if (!tagContention_.Run(openTags)) return false;
    tagFile_.Close();
  }
  const std::filesystem::path tags = environment_.files.PathOf(kCustomerTagFile);
  turns_.emplace(tags, environment_.clock);
  turn_.emplace(*turns_, desktop_, kCustomerTagFile);
  tagContention_.LetGoWhileAsked(*turn_);
  masterContention_.LetGoWhileAsked(*turn_);
  if (!tagContention_.Run(openTags)) return false;
  if (!masterContention_.Run([&] { masterFile_.Open(kCustomerFile, Access::Write, Deny::None); })) return false;
  // What is open for writing can be opened for reading too: nobody can deny it any more.
  tags_.emplace(tags, Access::Read, Deny::None);
  masters_.emplace(environment_.files.PathOf(kCustomerFile), Access::Read, Deny::None);
  return true;
}

bool CustomerFiles::HasTagFrom(std::size_t place, std::int32_t number) const {
  if (number == 0) return false;  // an empty slot's, and what is read behind the end
  std::vector<CustomerTag> block(kBlockTags);
  const std::uint64_t length = tags_->Length();
  for (std::uint64_t offset = place * kTagLength; offset < length; offset += kBlockTags * kTagLength) {
    ReadRecords(*tags_, offset, std::span(block));
    for (const CustomerTag& tag : block) {
      if (tag.Get(customertag::Number) == number) return true;
    }
  }
  return false;
}

// The place in the array serves as the place in the file, and is, as long as no empty slot lies ahead of it in the file
// and no other copy has put its own there. Empty slots are made by other programs alone. A tag behind them is written
// that much further ahead all the same, as the other programs do it: on purpose.
CustomerFiles::Places CustomerFiles::PlacesOf(const CustomerTag& tag, std::size_t place) const {
  const std::int32_t number = tag.Get(customertag::Number);
  Places places{place * kTagLength, tag.Get(customertag::Offset)};
  const std::int32_t there = NumberOfTagAt(places.tag);
  if (there != 0 && there != number) {
    const FoundTag found = FindTag(number);
    if (!found.isThere || found.emptyAhead != found.offset - places.tag) places.tag = found.offset;
  }
  if (places.master < 0 || !MayLieAt(places.master, number)) {
    CustomerTag onFile;
    tags_->ReadAt(places.tag, onFile.Bytes());
    places.master = onFile.Get(customertag::Number) == number ? onFile.Get(customertag::Offset) : kNoLink;
  }
  if (places.master < 0 || !MayLieAt(places.master, number)) places.master = EndOfMasters();
  return places;
}

CustomerFiles::Places CustomerFiles::PlacesOfNew(std::size_t place) const {
  const std::uint64_t end = EndOfTags();
  const std::uint64_t wanted = place * kTagLength;
  const bool isEmptySlot = wanted < end && NumberOfTagAt(wanted) == 0;
  return {isEmptySlot ? wanted : end, EndOfMasters()};
}

CustomerRecord CustomerFiles::MasterAt(FileLink offset) const {
  CustomerRecord master;
  ReadRecord(*masters_, offset, master);
  return master;
}

// 0 past the end of the file, too.
std::int32_t CustomerFiles::NumberOfTagAt(std::uint64_t offset) const {
  CustomerTag tag;
  tags_->ReadAt(offset, tag.Bytes());
  return tag.Get(customertag::Number);
}

CustomerFiles::FoundTag CustomerFiles::FindTag(std::int32_t number) const {
  FoundTag found;
  for (const std::uint64_t end = EndOfTags(); found.offset < end; found.offset += kTagLength) {
    const std::int32_t there = NumberOfTagAt(found.offset);
    found.isThere = there == number;
    if (found.isThere) break;
    if (there == 0) found.emptyAhead += kTagLength;
  }
  return found;
}

// A record of zeros, as past the end of the file, is nobody's.
bool CustomerFiles::MayLieAt(FileLink offset, std::int32_t number) const {
  const std::int32_t there = MasterAt(offset).Get(customer::Number);
  return there == number || there == 0;
}

// A tag that somebody's death cut short is written over.
std::uint64_t CustomerFiles::EndOfTags() const { return tags_->Length() / kTagLength * kTagLength; }

FileLink CustomerFiles::EndOfMasters() const { return LinkAtEnd(masters_->Length(), kCustomerFile); }

CustomerFiles::Outcome CustomerFiles::Write(const Places& places, const CustomerTag& tag, const CustomerRecord& master,
                                            Written& written) {
  const auto isOvertaken = [this, retakes = turn_->Retakes()] { return turn_->Retakes() != retakes; };
  const auto writeTag = [&] {
    if (!isOvertaken()) tagFile_->WriteAt(places.tag, tag.Bytes());
  };
  const std::optional<CustomerTag> before = TagBefore(places.tag);
  NoteAhead(places, tag, before, master);
  if (!tagContention_.Run(writeTag)) return Outcome::Ended;
  if (isOvertaken()) return Outcome::LookAgain;
  written = Written::Tag;
  masterContention_.BeforeAsking([&] {
    if (written == Written::Tag && PutTagBack(places.tag, tag, before)) written = Written::Nothing;
  });
  const auto writeMaster = [&] {
    if (!isOvertaken()) WriteRecord(*masterFile_, places.master, master);
  };
  const bool isOver = masterContention_.Run(writeMaster);
  masterContention_.BeforeAsking(nullptr);
  if (!isOver && written == Written::Tag) {
    throw GivenUp("Customer " + FormatZeros(tag.Get(customertag::Number), 6) + " was stored in " +
                  std::string(kCustomerTagFile) + ", but not in " + std::string(kCustomerFile) + ", and " +
                  std::string(kCustomerTagFile) +
                  " could not be put back.\rSave the customer again once both files can be written.");
  }
  if (!isOver) return Outcome::Ended;
  if (isOvertaken()) return Outcome::LookAgain;
  written = Written::Both;
  return Outcome::Ended;
}

// Where one of the two stays as it is, nothing can be half done.
void CustomerFiles::NoteAhead(const Places& places, const CustomerTag& tag, const std::optional<CustomerTag>& tagBefore,
                              const CustomerRecord& master) const {
  const auto offset = static_cast<std::uint64_t>(places.master);
  CustomerRecord masterBefore;
  const std::size_t read = masters_->ReadAt(offset, masterBefore.Bytes());
  if (tagBefore == tag || (read == CustomerRecord::kLength && masterBefore == master)) return;
  ahead_.Note("Customer " + FormatZeros(tag.Get(customertag::Number), 6),
              {{std::string(kCustomerTagFile), places.tag, tagBefore ? TextOf(*tagBefore) : "", TextOf(tag)},
               {std::string(kCustomerFile), offset, TextOf(masterBefore).substr(0, read), TextOf(master)}});
}

std::optional<CustomerTag> CustomerFiles::TagBefore(std::uint64_t offset) const {
  CustomerTag tag;
  if (tags_->ReadAt(offset, tag.Bytes()) == kTagLength) return tag;
  return std::nullopt;
}

// Nothing is cut off that other programs have put behind it.
bool CustomerFiles::PutTagBack(std::uint64_t offset, const CustomerTag& written,
                               const std::optional<CustomerTag>& before) {
  try {
    if (TagBefore(offset) != written) return false;
    if (before) {
      tagFile_->WriteAt(offset, before->Bytes());
    } else if (tags_->Length() == offset + kTagLength) {
      tagFile_->Truncate(offset);
    } else {
      return false;
    }
    return true;
  } catch (const FileError& error) {
    environment_.log.Write(error.what());
    return false;
  }
}

void CustomerFiles::Close() {
  tags_.reset();
  masters_.reset();
  turn_.reset();
  turns_.reset();
  tagFile_.Close();
  environment_.files.FlushFile(kCustomerTagFile);
  masterFile_.Close();
  environment_.files.FlushFile(kCustomerFile);
}

}  // namespace lantos
