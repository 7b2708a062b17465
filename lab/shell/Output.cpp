#include "lab/shell/Output.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "lab/client/CoveredJson.h"
#include "lab/shell/TextColumns.h"
#include "secrets/SecretMask.h"

namespace vornlab {
namespace {

using nlohmann::ordered_json;
using vorn::SecretMask;

int firstError = 0;

// Asked at once: what was not written is forgotten with the attempt, and later ones may succeed.
void noteUnless(bool isWritten, std::FILE* stream = stdout) {
  if (!isWritten && stream == stdout && firstError == 0) firstError = errno;
}

void printLine(std::string_view line, std::FILE* stream = stdout) {
  noteUnless(std::fprintf(stream, "%s\n", onTerminal(line).c_str()) >= 0, stream);
}

// Covered as a whole, since a passcode may stand on the line behind its label.
void printLines(std::string_view text, std::FILE* stream) {
  const std::string covered = SecretMask::covered(text);
  for (std::size_t begin = 0; begin < covered.size();) {
    const std::size_t end = std::min(covered.find('\n', begin), covered.size());
    printLine(std::string_view(covered).substr(begin, end - begin), stream);
    begin = end + 1;
  }
}

}  // namespace

void say(std::string_view line) { printLine(SecretMask::covered(line)); }

void sayAsIs(std::string_view line) { printLine(line); }

void complain(std::string_view text, std::string_view program) {
  printLines(program.empty() ? std::string(text) : std::string(program) + ": " + std::string(text), stderr);
}

void sayLines(std::string_view text) { printLines(text, stdout); }

void sayJsonLine(const ordered_json& object) { sayJsonLineAsIs(coveredJson(object)); }

void sayJsonLineAsIs(const ordered_json& object) {
  printLine(jsonOnTerminal(object.dump(-1, ' ', false, ordered_json::error_handler_t::replace)));
  flushOutput();
}

void sayBytes(std::string_view bytes) {
  noteUnless(std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size());
}

void flushOutput() { noteUnless(std::fflush(stdout) == 0); }

int outputError() { return firstError; }

}  // namespace vornlab
