// Property lists on disk, which other programs may have written: what is read can be written, if XML has a form
// for its texts, and reads back the same.

#include "fuzz/Fuzzing.h"
#include "util/AtomicFile.h"
#include "util/PropertyList.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using vorn::fuzzing::check;
  static const vorn::fuzzing::TemporaryFile file;
  check(vorn::replaceFile(file.path(), std::string(reinterpret_cast<const char*>(data), size)),
        "the file is made");
  const vorn::Value read = vorn::readPropertyList(file.path());
  if (read.isAbsent() || !vorn::writePropertyList(read, file.path())) return 0;
  check(vorn::readPropertyList(file.path()) == read, "what was written reads back the same");
  return 0;
}
