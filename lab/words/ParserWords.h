#pragma once

#include <string>

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace vornlab {

// What the parser of a command line has to say, in the words of these programs.

// The names of the program's commands, with commas between; without those that are no person's to type.
std::string namesOfCommands(const CLI::App& program);

// Why the words of a command line make no sense: which word, what was expected, and where to read more. It repeats
// words of the line, so whoever prints it covers what is secret.
std::string inOwnWords(const CLI::App& program, const CLI::ParseError& error);

}  // namespace vornlab
