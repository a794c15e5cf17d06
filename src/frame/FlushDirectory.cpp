#include "frame/FlushDirectory.h"

#include <fcntl.h>
#include <unistd.h>

namespace lantos {

void FlushDirectory(const std::filesystem::path& directory) {
  const int descriptor = ::open(directory.empty() ? "." : directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  ::fsync(descriptor);
  ::close(descriptor);
}

}  // namespace lantos
