#pragma once

#include <functional>
#include <optional>

#include "frame/Environment.h"
#include "records/Record.h"
#include "ui/Desktop.h"

namespace lantos {

// TQSYSTEM.DAT: one record, the shop's configuration and the home of the running numbers.
namespace sysrec {
inline constexpr LongField last_workorder_number{0};  // the next number to hand out, as all five
inline constexpr LongField last_estimate_number{last_workorder_number.End()};
inline constexpr OpaqueField korvel1{last_estimate_number.End(), 4};
inline constexpr LongField last_customer_number{korvel1.End()};
inline constexpr LongField last_employee_number{last_customer_number.End()};
inline constexpr OpaqueField korvel2{last_employee_number.End(), 4};
inline constexpr LongField tax_rate_parts{korvel2.End()};  // Millionths; below 1 is not taxed
inline constexpr LongField tax_rate_labor{tax_rate_parts.End()};
inline constexpr LongField tax_rate_sublet{tax_rate_labor.End()};
inline constexpr LongField tax_rate_waste{tax_rate_sublet.End()};
inline constexpr LongField shop_rate{tax_rate_waste.End()};  // Cents an hour
inline constexpr TextField company_name{shop_rate.End(), 32};
inline constexpr TextField company_address{company_name.End(), 33};
inline constexpr TextField company_city{company_address.End(), 21};
inline constexpr TextField company_state{company_city.End(), 3};
inline constexpr TextField company_zip{company_state.End(), 11};
inline constexpr TextField company_phone1{company_zip.End(), 15};
inline constexpr TextField company_phone2{company_phone1.End(), 15};
inline constexpr TextField fed_id_number{company_phone2.End(), 21};
inline constexpr TextField state_id_number{fed_id_number.End(), 21};
inline constexpr TextField local_id_number{state_id_number.End(), 21};
inline constexpr LongField markups[4] = {  // Cost, Wholesale, Resale, Retail; Millionths
    {local_id_number.End()},
    {local_id_number.End() + 4},
    {local_id_number.End() + 8},
    {local_id_number.End() + 12}};
inline constexpr TextField hand_msg1{markups[3].End(), 79};
inline constexpr TextField hand_msg2{hand_msg1.End(), 79};
inline constexpr OpaqueField korvel3{hand_msg2.End(), 112 + 1 + 4 + 5 + 158 + 8};
inline constexpr LongField labor_surcharge_percent{korvel3.End()};  // negative: a flat sum in hundredths of a cent
inline constexpr LongField parts_surcharge_percent{labor_surcharge_percent.End()};
inline constexpr TextField surcharge_description{parts_surcharge_percent.End(), 79};
inline constexpr TextField fleet_terms{surcharge_description.End(), 79};
inline constexpr TextField state_reg_number{fleet_terms.End(), 21};
inline constexpr OpaqueField korvel4{state_reg_number.End(), 5 + 2 + 5 + 5 + 2};
inline constexpr TextField shell_command_line{korvel4.End(), 79};
inline constexpr OpaqueField korvel5{shell_command_line.End(), 1};
inline constexpr LongField fleet_late_charge_percent{korvel5.End()};
inline constexpr OpaqueField korvel6{fleet_late_charge_percent.End(), 1};
inline constexpr TextField extra_company_name{korvel6.End(), 41};
inline constexpr OpaqueField korvel7{extra_company_name.End(), 2};
inline constexpr ByteField surcharge_is_sublet{korvel7.End()};  // 'Y' for yes
inline constexpr OpaqueField korvel8{surcharge_is_sublet.End(), 4};
static_assert(labor_surcharge_percent.offset == 699);
static_assert(korvel8.End() == 1038);
}  // namespace sysrec
using SystemRecord = Record<sysrec::korvel8.End()>;

// As many digits as running numbers are shown with. A damaged record may bear a higher one, from which no counter is to
// go on.
inline constexpr std::int32_t kHighestNumber = 999999;

inline constexpr std::string_view kSystemFile = "TQSYSTEM.DAT";

class modSystem {
 public:
  modSystem(Environment& environment, ui::Desktop& desktop) : environment_(environment), desktop_(desktop) {}
  modSystem(const modSystem&) = delete;

  SystemRecord SysRec;

  // Reads the record into SysRec. A file that is to stay open is so with no sharing, and its handle is returned; else
  // 0. A locked file is tried 100 times, then the person is asked; Cancel there ends the whole program.
  enum class Then { Close, StayOpen };
  FileHandle ReadSystem(Then then = Then::Close);
  // Writes SysRec to the handle, or to the file when the handle is kNoHandle, and closes.
  void WriteSystem(FileHandle handle = kNoHandle);
  // Hands out a running number: the value found, which is then raised by 1 in the file, all under one lock.
  // At the end of the counter's range nothing is taken: std::overflow_error, which says so.
  // Whoever is told of the number beforehand hears of it ahead of the write; what it throws leaves the number untaken.
  using Told = std::function<void(std::int32_t number)>;
  std::int32_t TakeNumber(LongField counter, const Told& beforehand = {});
  // The same where the counter may lie behind the files, in a record that was emptied or came back from a backup. A
  // number that isTaken knows as somebody's, and one below 1, isn't handed out: the person is told and offered the next
  // free one behind the highest there is, from which the counter goes on: a gap may be the number of a record that is
  // gone from the files but not from paper. Nothing when the person doesn't want it.
  using IsTaken = std::function<bool(std::int32_t number)>;
  using Highest = std::function<std::int32_t()>;
  struct Taking {
    std::optional<std::int32_t> found;  // a number that was taken before, and turned out to be somebody's
    Told beforehand;                    // not told of numbers that are somebody's
    Highest highest;                    // what is offered lies behind it
  };
  std::optional<std::int32_t> TakeFreeNumber(LongField counter, const IsTaken& isTaken, const Taking& taking);
  // Reads the record, has it changed and writes it, all under one lock: nothing that others store meanwhile is lost,
  // be it a running number. What change throws leaves the file as it was.
  void Update(const std::function<void(SystemRecord& record)>& change);

 private:
  std::int32_t TakeNumberFrom(LongField counter, std::int32_t least, const Told& beforehand);
  bool OffersNext(LongField counter, std::int32_t number, std::int32_t next);
  // In order, a failing one again and again; the person's Cancel ends the process.
  template <class... Statements>
  void RetryOrEnd(Statements... statements);

  Environment& environment_;
  ui::Desktop& desktop_;
};

}  // namespace lantos
