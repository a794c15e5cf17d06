#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <string_view>

#include "caretaker/Stopping.h"

namespace lantos {

// How a command tells what it did: in lines for people, or as one JSON text for scripts.
enum class Telling { Plain, Json };

// The switch --json, which sets it; telling outlives the parsing.
void AddJsonSwitch(CLI::App& command, Telling& telling);

// A line of the output, in the program's page.
void TellLine(std::string_view line);
// The one text of the output. Texts in it are UTF-8 already; what isn't becomes a replacement mark.
void TellJson(const nlohmann::ordered_json& value);

// How far long work is, on one line of a terminal that is written anew; nothing where the error stream is none.
// Wherever it is told, the person can have stopped the work.
class ProgressBar {
 public:
  ProgressBar();
  ~ProgressBar();  // takes the line away
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  // what in the program's page; done of of, in whatever unit. An of of 0 is all of it. Throws Stopped.
  void Show(std::string_view what, std::uint64_t done, std::uint64_t of);
  // Where nothing is to be shown. Throws Stopped.
  void Look() const { stopping_.Look(); }

 private:
  const Stopping stopping_;
  bool isWatched_ = false;
  bool isShown_ = false;
};

}  // namespace lantos
