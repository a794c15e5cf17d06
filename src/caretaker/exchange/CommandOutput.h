#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace lantos {

// Another program that could not be run, or that failed; what() is for the person, in UTF-8.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class CommandMissing : public CommandError {
 public:
  using CommandError::CommandError;
};

// A variable of the environment and its value.
struct Variable {
  std::string name;
  std::string value;
};

// Runs a program of the PATH, without a shell and with nothing to read: words has its name and its arguments, and the
// variables go over those that are there. take hears what it prints as it comes; while it is silent look is called a
// few times a second, and whatever either throws ends the program. Returns what it said on its error stream, cut at
// 1,000 bytes. Throws CommandMissing where it isn't there, CommandError where it ends with anything but 0.
std::string RunCommand(const std::vector<std::string>& words, const std::vector<Variable>& variables,
                       const std::function<void(std::string_view)>& take, const std::function<void()>& look);

}  // namespace lantos
