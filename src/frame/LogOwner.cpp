#include "frame/LogOwner.h"

#include <sys/xattr.h>

#include <array>

namespace lantos {

namespace {

constexpr const char* kAttribute = "user.lantos.owner";
constexpr std::size_t kLongest = 1024;

}  // namespace

void SignLog(const std::filesystem::path& log, const LogOwner& owner) noexcept {
  try {
    const auto line = [](const std::string& name) { return name.substr(0, name.find('\n')); };
    const std::string value = line(owner.workstation) + "\n" + line(owner.user);
    if (value.size() <= kLongest) ::lsetxattr(log.c_str(), kAttribute, value.data(), value.size(), 0);
  } catch (const std::exception&) {  // without memory for it, nobody's
  }
}

LogOwner OwnerOfLog(const std::filesystem::path& log) {
  std::array<char, kLongest> value{};
  const ssize_t length = ::lgetxattr(log.c_str(), kAttribute, value.data(), value.size());
  if (length <= 0) return {};
  const std::string text(value.data(), static_cast<std::size_t>(length));
  const std::size_t end = text.find('\n');
  if (end == std::string::npos) return {};
  return {text.substr(0, end), text.substr(end + 1)};
}

}  // namespace lantos
