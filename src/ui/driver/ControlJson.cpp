#include "ui/driver/ControlJson.h"

#include "frame/Dates.h"
#include "frame/Text.h"

namespace lantos::ui {

namespace {

Json ColorOrNull(const std::optional<Color>& color) { return color ? Json(ToHex(*color)) : Json(nullptr); }

Json RowsJson(const std::vector<ListRow>& rows) {
  Json list = Json::array();
  for (const ListRow& row : rows) {
    list.push_back(
        {{"text", JsonText(row.text)}, {"data", row.data}, {"checked", row.checked}, {"selected", row.selected}});
  }
  return list;
}

Json GridRowsJson(const Grid& grid, const ControlState& state) {
  Json list = Json::array();
  int number = 0;
  for (const GridRow& row : *state.cells) {
    Json cells = Json::object();
    for (std::size_t i = 0; i < grid.Columns().size(); ++i) {
      cells[ToUtf8(grid.Columns()[i].name)] = i < row.cells.size() ? JsonText(row.cells[i]) : "";
    }
    list.push_back({{"cells", std::move(cells)}, {"data", row.data}, {"selected", number == state.selected}});
    ++number;
  }
  return list;
}

void PutMenus(Json& controls, const std::vector<std::unique_ptr<MenuItem>>& items) {
  for (const auto& item : items) {
    controls[ToUtf8(item->FullName())] = ToJson(*item);
    PutMenus(controls, item->Items());
  }
}

}  // namespace

std::string JsonText(std::string_view text) { return ToUtf8(WithLineFeeds(text)); }

Json ToJson(const Control& control, const ControlState& state) {
  Json json = {{"type", std::string(control.Type())}, {"visible", state.visible}, {"enabled", state.enabled}};
  if (state.text) json["text"] = JsonText(*state.text);
  if (state.caption) json["caption"] = JsonText(*state.caption);
  if (state.checked) json["checked"] = *state.checked;
  json["bold"] = control.Bold();
  json["backcolor"] = ColorOrNull(control.BackColor());
  json["tooltip"] = JsonText(control.ToolTip());
  if (state.rows) json["rows"] = RowsJson(*state.rows);
  if (const auto* grid = dynamic_cast<const Grid*>(&control); grid != nullptr && state.cells) {
    json["rows"] = GridRowsJson(*grid, state);
  }
  if (state.selected) json["selected"] = *state.selected;
  if (state.caret) json["caret"] = *state.caret;
  if (state.date) json["date"] = FormatIsoDate(*state.date);
  if (state.locked) json["locked"] = *state.locked;
  if (state.value) json["value"] = *state.value;
  json["name"] = JsonText(state.name);
  json["tag"] = JsonText(control.Tag());
  return json;
}

Json ToJson(const MenuItem& item) {
  return {{"type", "Menu"},
          {"visible", item.Visible()},
          {"enabled", item.Enabled()},
          {"caption", JsonText(item.Caption())},
          {"checked", item.Checked()}};
}

Json ToJson(const Form& form, Hand& hand) {
  Json controls = Json::object();
  for (const Control* control : form.Controls())
    controls[ToUtf8(control->FullName())] = ToJson(*control, hand.Read(*control));
  PutMenus(controls, form.Menus());
  return {{"form", ToUtf8(form.Name())},
          {"caption", JsonText(form.Caption())},
          {"visible", form.Visible()},
          {"backcolor", ColorOrNull(form.BackColor())},
          {"controls", std::move(controls)}};
}

}  // namespace lantos::ui
