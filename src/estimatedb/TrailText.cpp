#include "estimatedb/TrailText.h"

#include <nlohmann/json.hpp>

#include "frame/Dates.h"
#include "frame/Text.h"

namespace lantos {

namespace {

using nlohmann::ordered_json;

ordered_json CellText(const Value& value) {
  if (const auto* number = std::get_if<std::int64_t>(&value)) return *number;
  if (const auto* fraction = std::get_if<double>(&value)) return *fraction;
  if (const auto* date = std::get_if<DateValue>(&value)) return FormatIsoDate(date->day);
  if (const auto* text = std::get_if<std::string>(&value)) return ToUtf8(*text);
  return nullptr;
}

Value CellOf(const ordered_json& cell) {
  if (cell.is_number_integer()) return cell.get<std::int64_t>();
  if (cell.is_number()) return cell.get<double>();
  if (cell.is_string()) return FromUtf8(cell.get<std::string>());
  return {};
}

TrailRow RowOf(const ordered_json& object) {
  TrailRow row;
  for (const auto& [column, cell] : object.items()) {
    if (!cell.is_null()) row.columns.emplace_back(FromUtf8(column), CellOf(cell));
  }
  return row;
}

}  // namespace

// The engine makes Unicode of what it is given in the page, so the text crosses over in the page too.
std::string TrailText(const std::vector<TrailRow>& rows) {
  if (rows.empty()) return "";
  ordered_json list = ordered_json::array();
  for (const TrailRow& row : rows) {
    ordered_json object = ordered_json::object();
    for (const auto& [column, value] : row.columns) object[ToUtf8(column)] = CellText(value);
    list.push_back(std::move(object));
  }
  return FromUtf8(list.dump(-1, ' ', false, ordered_json::error_handler_t::replace));
}

std::vector<TrailRow> TrailRows(std::string_view text) {
  const ordered_json list = ordered_json::parse(ToUtf8(text), nullptr, false);
  std::vector<TrailRow> rows;
  if (!list.is_array()) return rows;
  for (const ordered_json& object : list) {
    if (object.is_object()) rows.push_back(RowOf(object));
  }
  return rows;
}

}  // namespace lantos
