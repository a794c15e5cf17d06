#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "estimatedb/OldTables.h"

namespace lantos {

// The tables of a Jet database, by the commands of the package mdbtools, which is asked for when it is wanted.
class MdbTools : public OldTables {
 public:
  // While a command is silent look is called now and then; what it throws ends the command.
  MdbTools(std::filesystem::path file, std::function<void()> look) : file_(std::move(file)), look_(std::move(look)) {}

  std::vector<std::string> Names() override;
  std::int64_t CountOf(const std::string& table) override;
  void Read(const std::string& table, const std::function<void(OldRow&&)>& take) override;

  // What the commands complained of, though they went on: each once, in UTF-8.
  const std::vector<std::string>& Complaints() const { return complaints_; }

 private:
  void Run(std::vector<std::string> words, const std::function<void(std::string_view)>& take);
  std::string OutputOf(std::vector<std::string> words);

  std::filesystem::path file_;
  std::function<void()> look_;
  std::vector<std::string> complaints_;
};

}  // namespace lantos
