#include "ui/SpokenName.h"

#include <algorithm>
#include <iterator>

#include "frame/Text.h"
#include "ui/Form.h"
#include "ui/Mnemonic.h"

namespace lantos::ui {

namespace {

struct DesignedLabel {
  std::string_view form;
  std::string_view control;
  std::string_view text;
};
constexpr DesignedLabel kDesignedLabels[] = {
#include "ui/FieldLabels.inc"
};

// "&Save" is "Save", "Name:" is "Name".
std::string Spoken(std::string_view text) {
  std::string spoken = WithoutMnemonic(text);
  spoken = Trim(spoken.substr(0, spoken.find(" <")));
  while (spoken.ends_with(':')) spoken.pop_back();
  return spoken;
}

// Of a field, the label of the form right before it.
std::string LabelBefore(const Control& control) {
  const auto& controls = control.Owner().Controls();
  const auto at = std::find(controls.begin(), controls.end(), &control);
  if (at == controls.end() || at == controls.begin()) return {};
  const auto* label = dynamic_cast<const Label*>(*std::prev(at));
  return label != nullptr && label->Container() == control.Container() ? Spoken(label->Caption()) : std::string();
}

std::string FrameAround(const Control& control) {
  for (const Frame* frame = control.Container(); frame != nullptr; frame = frame->Container()) {
    const std::string name = Spoken(frame->SpokenName().empty() ? frame->Caption() : frame->SpokenName());
    if (!name.empty()) return name;
  }
  return {};
}

// Of the lines below a first one, which has the label: "Comments 2".
std::string AfterFirstMember(const Control& control) {
  int place = 0;
  for (const Control* member : control.Owner().Controls()) {
    if (member->Name() != control.Name() || member->Index() < 0) continue;
    if (member == &control) break;
    ++place;
  }
  if (place == 0) return {};
  for (const Control* member : control.Owner().Controls()) {
    if (member->Name() == control.Name()) return SpokenNameOf(*member) + " " + std::to_string(place + 1);
  }
  return {};
}

}  // namespace

std::string_view DesignedLabelOf(std::string_view form, std::string_view control) {
  const auto found = std::find_if(std::begin(kDesignedLabels), std::end(kDesignedLabels),
                                  [&](const auto& label) { return label.form == form && label.control == control; });
  return found == std::end(kDesignedLabels) ? std::string_view() : found->text;
}

std::string SpokenNameOf(const Control& control) {
  if (!control.SpokenName().empty()) return control.SpokenName();
  if (const auto* captioned = dynamic_cast<const Captioned*>(&control)) return Spoken(captioned->Caption());
  std::string name = Spoken(DesignedLabelOf(control.Owner().Name(), control.FullName()));
  if (name.empty()) name = LabelBefore(control);
  if (name.empty()) name = FrameAround(control);
  if (name.empty()) name = Spoken(control.ToolTip());
  if (name.empty()) name = AfterFirstMember(control);
  return name.empty() ? Spoken(control.Owner().Caption()) : name;
}

}  // namespace lantos::ui
