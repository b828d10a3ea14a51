// The command line of a program: options, then the names of files.
#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace sumlet {

struct Option {
  std::string_view name;  // with its hyphens
  bool hasValue = false;  // the value is the next argument, or the rest of this one if the name is a single letter
};

struct Program {
  const char* name;
  const char* version;
  const char* help;                      // what --help prints, with its line feeds
  std::span<const Option> options = {};  // besides --help, -h and --version
};

struct GivenOption {
  std::string_view name;
  const char* value;  // nullptr for an option without a value
};

struct CommandLine {
  std::vector<const char*> names;      // pointers into the arguments
  std::vector<GivenOption> options;    // in the order of the arguments
  std::optional<int> exitStatus = {};  // set if the process must end
};

// Reads arguments[1] up to arguments[count - 1]. Handles --help and --version, rejects unknown options and missing
// values with status 2, and takes "-" and everything after "--" as names.
[[nodiscard]] CommandLine ReadCommandLine(const Program& program, int count, char** arguments);

// Writes to the standard output and flushes it, so that results and messages keep their order in a terminal. On
// failure, returns false and writes the reason to the standard error.
[[nodiscard]] bool Print(const Program& program, std::string_view text);

// Writes "program: subject: reason" to the standard error, without control characters if that is a terminal.
void Complain(const Program& program, const char* subject, const char* reason);

// Writes "program: message" and a hint at --help to the standard error. Returns the exit status for wrong usage.
[[nodiscard]] int RefuseUsage(const Program& program, std::string_view message);

}  // namespace sumlet
