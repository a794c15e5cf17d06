#pragma once

#include <nlohmann/json.hpp>

#include "ui/Drive.h"

namespace lantos::ui {

// Members in the order in which they are put in.
using Json = nlohmann::ordered_json;

// Text of the program's page as JSON has it, line ends as "\n".
std::string JsonText(std::string_view text);

Json ToJson(const Control& control, const ControlState& state);
Json ToJson(const MenuItem& item);
// The form with all its controls and menu entries, read through the hand.
Json ToJson(const Form& form, Hand& hand);

}  // namespace lantos::ui
