#include "records/MakesModels.h"

#include <algorithm>
#include <unordered_set>

#include "records/Patience.h"

namespace lantos {

namespace {

constexpr FileLink kStep = MakeModelRecord::kLength;
// The counts are 16-bit values, 65535 when empty.
constexpr std::size_t kLimit = 65535;

bool IsMake(const MakeModelRecord& record) {
  return record.Get(makemodel::Prev) == kNoLink && !record.View(makemodel::Name).empty();
}

MakeModelRecord NewRecord(std::string_view name, FileLink prev, FileLink next) {
  MakeModelRecord record;
  record.Put(makemodel::Name, name);
  record.Put(makemodel::Prev, prev);
  record.Put(makemodel::Next, next);
  return record;
}

// The file while it is held for an update.
class MakeModelFile {
 public:
  MakeModelFile(Environment& environment, std::string_view caller)
      : environment_(environment), file_(environment.openFiles) {
    OpenPatiently(file_, environment, kMakeModelFile, Access::ReadWrite, Deny::All);
    environment_.log.Write(std::string(caller) + ": Opened " + std::string(kMakeModelFile) +
                           " (update,fp=" + std::to_string(file_.Handle()) + ")");
  }

  FileLink End() { return LinkAtEnd(file_->Length(), kMakeModelFile); }
  MakeModelRecord Read(FileLink link) {
    MakeModelRecord record;
    ReadRecord(*file_, link, record);
    return record;
  }
  void Write(FileLink link, const MakeModelRecord& record) { WriteRecord(*file_, link, record); }
  // Where the make's record lies; kNoLink when there is none.
  FileLink Find(std::string_view make) {
    const FileLink end = End();
    for (FileLink link = 0; link < end; link += kStep) {
      const MakeModelRecord record = Read(link);
      if (IsMake(record) && record.View(makemodel::Name) == make) return link;
      if (end - link < kStep) break;
    }
    return kNoLink;
  }
  struct Place {
    FileLink link;    // kNoLink when there is no such model
    FileLink before;  // the make or model whose Next leads here
  };
  Place FindModel(std::string_view make, std::string_view model) {
    FileLink before = Find(make);
    if (before == kNoLink) return {kNoLink, kNoLink};
    std::unordered_set<FileLink> passed = {before};  // a damaged chain may come back
    FileLink link = Read(before).Get(makemodel::Next);
    while (link != kNoLink && passed.insert(link).second) {
      const MakeModelRecord record = Read(link);
      if (record.View(makemodel::Name) == model) return {link, before};
      before = link;
      link = record.Get(makemodel::Next);
    }
    return {kNoLink, before};
  }
  // A damaged link may point outside; a write there would blow the file up.
  bool IsInside(FileLink link) { return link >= 0 && link <= End() - kStep; }
  // Changes one link of the record at place, if there is one.
  void PutLink(FileLink place, LongField field, FileLink value) {
    if (!IsInside(place)) return;
    MakeModelRecord record = Read(place);
    record.Put(field, value);
    Write(place, record);
  }
  void Close() {
    file_.Close();
    environment_.files.FlushFile(kMakeModelFile);
  }

 private:
  Environment& environment_;
  OpenedFile file_;
};

}  // namespace

void MakesModels::LoadMakes() {
  makes_.clear();
  models_.clear();
  OpenedFile file(environment_.openFiles);
  OpenPatiently(file, environment_, kMakeModelFile, Access::Read, Deny::All);
  const FileLink count = LinkAtEnd(file->Length(), kMakeModelFile) / kStep;
  for (FileLink i = 0; i < count && makes_.size() < kLimit; ++i) {
    MakeModelRecord record;
    ReadRecord(*file, i * kStep, record);
    if (!IsMake(record)) continue;
    makes_.push_back({record.Get(makemodel::Name), record.Get(makemodel::Prev), record.Get(makemodel::Next)});
    LoadModels(*file, makes_.back(), i * kStep);
  }
}

// A chain that comes back to a record it has passed (damaged links) ends there.
void MakesModels::LoadModels(const SharedFile& file, const Make& make, FileLink place) {
  std::unordered_set<FileLink> passed = {place};
  MakeModelRecord record;
  for (FileLink link = make.Next; link != kNoLink && models_.size() < kLimit && passed.insert(link).second;) {
    ReadRecord(file, link, record);
    models_.push_back({make.Name, record.Get(makemodel::Name)});
    link = record.Get(makemodel::Next);
  }
}

bool MakesModels::HasMake(std::string_view make) const {
  return std::any_of(makes_.begin(), makes_.end(), [&](const Make& each) { return each.Name == make; });
}

bool MakesModels::HasModel(std::string_view make, std::string_view model) const {
  return std::any_of(models_.begin(), models_.end(),
                     [&](const Model& each) { return each.Make == make && each.Name == model; });
}

bool MakesModels::HasModels(std::string_view make) const {
  return std::any_of(models_.begin(), models_.end(), [&](const Model& each) { return each.Make == make; });
}

void MakesModels::AddMake(std::string_view name) {
  const std::string trimmed = Trim(name);
  MakeModelFile file(environment_, "AddMake");
  // The list in memory is as old as the start: another copy may have added it since.
  if (file.Find(trimmed) == kNoLink) file.Write(file.End(), NewRecord(trimmed, kNoLink, kNoLink));
  file.Close();
  makes_.push_back({trimmed, kNoLink, kNoLink});
}

void MakesModels::AddModel(std::string_view make, std::string_view model) {
  MakeModelFile file(environment_, "AddModel");
  const FileLink makeLink = file.Find(TrimView(make));
  if (makeLink == kNoLink) return;                                        // somebody else has deleted the make
  if (file.FindModel(TrimView(make), TrimView(model)).link != kNoLink) {  // or has added the model
    file.Close();
    models_.push_back({Trim(make), Trim(model)});
    return;
  }
  MakeModelRecord makeRecord = file.Read(makeLink);
  const FileLink oldHead = makeRecord.Get(makemodel::Next);
  const FileLink end = file.End();
  makeRecord.Put(makemodel::Next, end);
  file.Write(makeLink, makeRecord);
  // The old head keeps its Prev, which names the make: a shortcut that is to stay, since deletion looks at Next alone.
  file.Write(end, NewRecord(Trim(model), makeLink, oldHead));
  file.Close();
  models_.push_back({Trim(make), Trim(model)});
}

void MakesModels::DeleteModel(std::string_view make, std::string_view model) {
  MakeModelFile file(environment_, "DeleteModel");
  const auto [link, before] = file.FindModel(TrimView(make), TrimView(model));
  if (file.IsInside(link)) {
    const FileLink next = file.Read(link).Get(makemodel::Next);
    file.Write(link, NewRecord("", kNoLink, kNoLink));
    file.PutLink(next, makemodel::Prev, before);
    file.PutLink(before, makemodel::Next, next);
  }
  file.Close();
}

void MakesModels::DeleteMake(std::string_view make) {
  MakeModelFile file(environment_, "DeleteMake");
  const FileLink link = file.Find(TrimView(make));
  if (link != kNoLink) file.Write(link, NewRecord("", kNoLink, kNoLink));
  file.Close();
}

}  // namespace lantos
