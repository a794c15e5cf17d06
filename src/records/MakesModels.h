#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/Environment.h"
#include "frame/SharedFile.h"
#include "records/Record.h"

namespace lantos {

// TQMAKMOD.DAT: makes and models mixed, each make with a chain of its models.
namespace makemodel {
inline constexpr TextField Name{0, 21};
inline constexpr LongField Prev{Name.End()};  // kNoLink in a make
inline constexpr LongField Next{Prev.End()};
static_assert(Next.End() == 29);
}  // namespace makemodel
using MakeModelRecord = Record<makemodel::Next.End()>;

inline constexpr std::string_view kMakeModelFile = "TQMAKMOD.DAT";

struct Make {
  std::string Name;
  FileLink Prev = kNoLink;
  FileLink Next = kNoLink;
};
struct Model {
  std::string Make;
  std::string Name;
};

// None of these traps a failed open: after a moment's patience it surfaces as FileError.
class MakesModels {
 public:
  explicit MakesModels(Environment& environment) : environment_(environment) {}

  void LoadMakes();
  const std::vector<Make>& Makes() const { return makes_; }
  const std::vector<Model>& Models() const { return models_; }
  bool HasMake(std::string_view make) const;
  bool HasModel(std::string_view make, std::string_view model) const;
  bool HasModels(std::string_view make) const;

  // What another copy has added meanwhile isn't added again; it is known from then on.
  void AddMake(std::string_view name);
  void AddModel(std::string_view make, std::string_view model);
  void DeleteModel(std::string_view make, std::string_view model);
  void DeleteMake(std::string_view make);

 private:
  void LoadModels(const SharedFile& file, const Make& make, FileLink place);

  Environment& environment_;
  std::vector<Make> makes_;
  std::vector<Model> models_;
};

}  // namespace lantos
