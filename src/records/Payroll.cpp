#include "records/Payroll.h"

#include <fmt/core.h>

#include <algorithm>
#include <stdexcept>
#include <unordered_set>

#include "frame/Numbers.h"
#include "records/Contention.h"
#include "records/GivenUp.h"
#include "records/Patience.h"

namespace lantos {

namespace {

bool LiesWithin(FileLink link, std::uint64_t length) {
  return link >= 0 && static_cast<std::uint64_t>(link) + PayRecord::kLength <= length;
}

PayChain Walk(const SharedFile& file, std::int32_t employee, FileLink head) {
  PayChain chain;
  std::unordered_set<FileLink> passed;
  const std::uint64_t length = file.Length();
  for (FileLink link = head; link != kNoLink;) {
    if (!passed.insert(link).second) {
      chain.damage = fmt::format("one leads back to the record at {}, which stands before it.", link);
      return chain;
    }
    if (!LiesWithin(link, length)) {
      chain.damage = fmt::format("one leads to {}, where the file has no record.", link);
      return chain;
    }
    PayEntry entry{{}, link};
    ReadRecord(file, link, entry.record);
    const std::int32_t owner = entry.record.Get(payrecord::EmployeeNumber);
    if (owner == kDeletedPay) return chain;
    if (owner != employee) {
      chain.damage = fmt::format("one leads to a record of employee {}.", FormatZeros(owner, 6));
      return chain;
    }
    link = entry.record.Get(payrecord::NextRecord);
    chain.entries.push_back(std::move(entry));
  }
  return chain;
}

// Links may have changed since, by what was deleted meanwhile.
bool IsTheSame(const PayEntry& a, const PayEntry& b) {
  PayRecord other = b.record;
  other.Put(payrecord::NextRecord, a.record.Get(payrecord::NextRecord));
  return a.place == b.place && a.record == other;
}

}  // namespace

FileLink Payroll::HeadOf(std::int32_t employee) {
  employees_.LoadEmployees();
  const EmployeeRecord* record = employees_.Find(employee);
  return record == nullptr ? kNoLink : record->Get(employee::PayrollHead);
}

// Before anything is marked: a head that stays where it is would hide all that stands behind it.
void Payroll::SetHead(std::int32_t employee, FileLink head) {
  if (employees_.SetPayrollHead(employee, head) == modEmployees::Updated::Yes) return;
  throw std::runtime_error("Employee " + FormatZeros(employee, 6) + " isn't on file any more.");
}

PayChain Payroll::Load(std::int32_t employee) {
  OpenedFile file(environment_.openFiles);
  OpenPatiently(file, environment_, kPayrollFile, Access::Read, Deny::None);
  return Walk(*file, employee, HeadOf(employee));
}

void Payroll::Remove(std::int32_t employee, const std::vector<PayEntry>& marked,
                     const std::function<void(const PayEntry& entry)>& removed) {
  OpenedFile file(environment_.openFiles);
  Contention contention(contention::kSavePayroll, desktop_, environment_);
  if (!contention.Run([&] { file.Open(kPayrollFile, Access::ReadWrite, Deny::All); })) {
    throw GivenUp("The pay records were left as they are.");
  }
  environment_.log.Write(fmt::format("frmEmpPRHist/Save: Opened {} (update,fp={})", kPayrollFile, file.Handle()));
  PayEntry predecessor;
  auto chain = Walk(*file, employee, HeadOf(employee));
  for (PayEntry& entry : chain.entries) {
    const bool isMarked =
        std::any_of(marked.begin(), marked.end(), [&entry](const PayEntry& each) { return IsTheSame(each, entry); });
    if (!isMarked) {
      predecessor = entry;
      continue;
    }
    const FileLink successor = entry.record.Get(payrecord::NextRecord);
    if (predecessor.place == kNoLink) {
      SetHead(employee, successor);
    } else {
      predecessor.record.Put(payrecord::NextRecord, successor);
      WriteRecord(*file, predecessor.place, predecessor.record);
    }
    entry.record.Put(payrecord::EmployeeNumber, kDeletedPay);
    WriteRecord(*file, entry.place, entry.record);
    removed(entry);
  }
  file.Close();
  environment_.files.FlushFile(kPayrollFile);
}

}  // namespace lantos
