#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "caretaker/check/ShopView.h"
#include "records/Record.h"

namespace lantos {

// The texts and dates of the flat files, for whoever looks at all of them alike.
struct FieldsOfFile {
  std::string_view file;
  std::size_t length = 0;  // of a record, in bytes
  struct Named {
    std::string_view name;
    std::size_t offset = 0, width = 0;
  };
  std::vector<Named> texts;
  std::vector<Named> dates;  // four bytes, FileDates
};

const std::vector<FieldsOfFile>& FieldTable();

}  // namespace lantos
