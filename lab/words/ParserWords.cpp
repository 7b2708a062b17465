#include "lab/words/ParserWords.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string_view>
#include <vector>

namespace vornlab {

std::string namesOfCommands(const CLI::App& program) {
  std::string names;
  for (const CLI::App* command : program.get_subcommands(nullptr)) {
    // Help leaves out what has no group, too.
    if (command->get_group().empty()) continue;
    names += (names.empty() ? "" : ", ") + command->get_name();
  }
  return names;
}

namespace {

// The command that was named, as far as its name was understood.
const CLI::App& innermost(const CLI::App& program) {
  const auto named = program.get_subcommands();
  return named.empty() ? program : innermost(*named.front());
}

// In the order of the line, which the parser's own text turns round.
std::vector<std::string> unknownWords(const CLI::App& program) {
  std::vector<std::string> words = program.remaining(true);
  std::erase(words, "--");
  return words;
}

std::string complaintOfExtras(const CLI::App& program) {
  std::string all;
  for (const std::string& word : unknownWords(program)) all += " " + word;
  return "nothing is known of" + all;
}

// Whoever forgot the command may have gone on with its options.
bool isOptionOfCommand(const CLI::App& program, const std::string& word) {
  const std::string name = word.substr(0, word.find('='));
  const auto commands = program.get_subcommands(nullptr);
  return name.starts_with('-') && std::any_of(commands.begin(), commands.end(), [&](const CLI::App* command) {
           return command->get_option_no_throw(name) != nullptr;
         });
}

std::string complaintOfCommand(const CLI::App& program) {
  const CLI::App& named = innermost(program);
  const std::string known = "; there are " + namesOfCommands(named);
  const std::vector<std::string> words = unknownWords(program);
  if (words.empty() || isOptionOfCommand(named, words.front())) return "a command is missing" + known;
  if (words.front().starts_with('-')) return complaintOfExtras(program);
  return "there is no command \"" + words.front() + "\"" + known;
}

// What the parser says of words that make no sense, in our own: it tells where, and we what was expected. Its
// texts have the form of its documented errors.
std::string complaintOf(const CLI::App& program, const CLI::ParseError& error) {
  const std::string said = error.what();
  const auto behind = [&said](std::string_view mark) {
    const std::size_t at = said.find(mark);
    return at == std::string::npos ? said : said.substr(at + mark.size());
  };
  const auto before = [&said](std::string_view mark) { return said.substr(0, said.find(mark)); };
  switch (static_cast<CLI::ExitCodes>(error.get_exit_code())) {
    case CLI::ExitCodes::ValidationError: return said;
    case CLI::ExitCodes::ExtrasError: return complaintOfExtras(program);
    case CLI::ExitCodes::ArgumentMismatch: return before(":") + " needs a value";
    case CLI::ExitCodes::ConversionError: return behind("Could not convert: ") + " is not understood";
    case CLI::ExitCodes::ExcludesError:
      return before(" excludes ") + " and " + behind(" excludes ") + " do not go together";
    case CLI::ExitCodes::RequiresError: return before(" requires ") + " needs " + behind(" requires ");
    case CLI::ExitCodes::RequiredError: break;
    default: return "the words make no sense";
  }
  if (said == "A subcommand is required") return complaintOfCommand(program);
  constexpr std::string_view kList = " from [";
  if (const std::size_t list = said.find(kList); list != std::string::npos) {
    const std::size_t begin = list + kList.size();
    return "one of " + said.substr(begin, said.find(']') - begin) + " is needed, and only one";
  }
  return before(" is required") + " is missing";
}

std::string commandOf(const CLI::App& program) {
  const auto named = program.get_subcommands();
  return named.empty() ? program.get_name() : program.get_name() + " " + commandOf(*named.front());
}

}  // namespace

std::string inOwnWords(const CLI::App& program, const CLI::ParseError& error) {
  return complaintOf(program, error) + "; " + commandOf(program) + " --help tells more";
}

}  // namespace vornlab
