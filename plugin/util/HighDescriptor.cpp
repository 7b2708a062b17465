#include "util/HighDescriptor.h"

#include <fcntl.h>
#include <unistd.h>

namespace vorn {

int highDescriptor(int descriptor) {
  if (descriptor < 0) return -1;
  if (descriptor > STDERR_FILENO) {
    ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
    return descriptor;
  }
  const int high = ::fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  ::close(descriptor);
  return high;
}

}  // namespace vorn
