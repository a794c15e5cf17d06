#include "ui/driver/Line.h"

#include <algorithm>
#include <limits>
#include <span>

#include "frame/PathText.h"
#include "frame/Text.h"

namespace lantos::ui {

namespace {

using nlohmann::json;

enum class Kind { Text, TextOrNull, Number, Numbers, Flag };
struct Member {
  std::string_view name;
  Kind kind;
  bool required = true;
};
struct Shape {
  std::string_view subject;
  std::span<const Member> members;
};

constexpr Member kControl = {"control", Kind::Text};
constexpr Member kClick[] = {kControl,
                             {"row", Kind::Number, false},
                             {"column", Kind::Text, false},
                             {"button", Kind::Text, false},
                             {"double", Kind::Flag, false}};
constexpr Member kSelect[] = {
    kControl, {"row", Kind::Number, false}, {"rows", Kind::Numbers, false}, {"text", Kind::Text, false}};
constexpr Member kCheck[] = {kControl, {"value", Kind::Flag}, {"row", Kind::Number, false}};
constexpr Member kType[] = {kControl, {"text", Kind::Text}};
constexpr Member kInsert[] = {kControl, {"text", Kind::Text}, {"at", Kind::Number}};
constexpr Member kKey[] = {{"key", Kind::Text}};
constexpr Member kPick[] = {kControl, {"date", Kind::Text}, {"double", Kind::Flag, false}};
constexpr Member kMenu[] = {{"item", Kind::Text}};
constexpr Member kChoose[] = {{"item", Kind::TextOrNull}};
constexpr Member kAnswer[] = {{"button", Kind::Text}};
constexpr Member kWait[] = {{"ms", Kind::Number}};
constexpr Member kNow[] = {{"at", Kind::Text}};
constexpr Member kScreenshot[] = {{"to", Kind::Text}};

constexpr Shape kDeeds[] = {{"click", kClick},   {"select", kSelect}, {"check", kCheck},   {"type", kType},
                            {"insert", kInsert}, {"leave", {}},       {"key", kKey},       {"pick", kPick},
                            {"menu", kMenu},     {"choose", kChoose}, {"answer", kAnswer}, {"close", {}},
                            {"print", {}},       {"wait", kWait},     {"now", kNow}};

bool IsSmallNumber(const json& value) {
  if (!value.is_number_integer()) return false;
  // Read as signed, the greatest unsigned numbers would pass for small negative ones.
  if (value.is_number_unsigned() && value.get<std::uint64_t>() > std::numeric_limits<int>::max()) return false;
  const auto number = value.get<std::int64_t>();
  return number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max();
}

bool Fits(const json& value, Kind kind) {
  switch (kind) {
    case Kind::Text:
      return value.is_string();
    case Kind::TextOrNull:
      return value.is_string() || value.is_null();
    case Kind::Number:
      return IsSmallNumber(value);
    case Kind::Numbers:
      return value.is_array() && std::all_of(value.begin(), value.end(), IsSmallNumber);
    case Kind::Flag:
      return value.is_boolean();
  }
  return false;
}

std::string Quoted(std::string_view text) { return "'" + std::string(text) + "'"; }

void CheckMembers(const json& line, const std::string& leading, std::span<const Member> members) {
  for (const auto& item : line.items()) {
    const std::string& name = item.key();
    if (name == leading) continue;
    const auto member = std::find_if(members.begin(), members.end(), [&](const Member& m) { return m.name == name; });
    if (member == members.end()) throw Refusal("unknown member " + Quoted(FromUtf8(name)));
    if (!Fits(item.value(), member->kind)) throw Refusal("member " + Quoted(name) + " has a value of the wrong kind");
  }
  for (const Member& member : members) {
    if (member.required && !line.contains(member.name)) throw Refusal("member " + Quoted(member.name) + " is missing");
  }
}

std::span<const Member> MembersOfDeed(const std::string& subject) {
  const auto shape =
      std::find_if(std::begin(kDeeds), std::end(kDeeds), [&](const Shape& s) { return s.subject == subject; });
  if (shape == std::end(kDeeds)) throw Refusal("there is nothing like " + Quoted(subject) + " to do");
  return shape->members;
}

}  // namespace

Line::Line(std::string_view text) {
  json_ = json::parse(text, nullptr, /*allow_exceptions=*/false);
  if (!json_.is_object()) throw Refusal("the line is no JSON object");
  question_ = json_.contains("get");
  const std::string leading = question_ ? "get" : "do";
  if (!json_.contains(leading)) throw Refusal("the line has neither 'do' nor 'get'");
  if (!json_.at(leading).is_string()) throw Refusal("member " + Quoted(leading) + " has a value of the wrong kind");
  subject_ = FromUtf8(json_.at(leading).get<std::string>());
  if (!question_) {
    CheckMembers(json_, leading, MembersOfDeed(subject_));
  } else {
    CheckMembers(json_, leading,
                 subject_ == "screenshot" ? std::span<const Member>(kScreenshot) : std::span<const Member>());
  }
}

std::string Line::Text(std::string_view member) const {
  return FromUtf8(json_.at(std::string(member)).get<std::string>());
}

std::string Line::WholeText(std::string_view member) const {
  return TextOfPath(json_.at(std::string(member)).get<std::string>());
}

int Line::Number(std::string_view member) const { return json_.at(std::string(member)).get<int>(); }

std::vector<int> Line::Numbers(std::string_view member) const {
  return json_.at(std::string(member)).get<std::vector<int>>();
}

bool Line::Flag(std::string_view member, bool whenAbsent) const {
  return Has(member) ? json_.at(std::string(member)).get<bool>() : whenAbsent;
}

}  // namespace lantos::ui
