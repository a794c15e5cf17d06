#include "contents/LineNumbers.h"

#include <algorithm>

#include "contents/AmountFields.h"
#include "estimatedb/engine/DatabaseError.h"

namespace lantos {

namespace {

constexpr int kTries = 3;

}  // namespace

std::int32_t NumberForNewLine(Recordset& stored, std::string_view column, std::int32_t nextOfList) {
  std::int32_t highest = 0;
  for (; !stored.Eof(); stored.MoveNext()) highest = std::max(highest, stored.Long(column));
  stored.Close();
  return highest < nextOfList ? nextOfList : Sum(highest, 1);
}

void TakeNumberAndStore(const std::function<void()>& transaction) {
  for (int tries = 1;; ++tries) {
    try {
      return transaction();
    } catch (const DatabaseError& error) {
      if (error.Kind() != DatabaseErrorKind::Duplicate || tries == kTries) throw;
    }
  }
}

}  // namespace lantos
