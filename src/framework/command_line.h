// The command line of a program: options that are answered at once, then the names of files.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace sumlet {

struct Program {
  const char* name;
  const char* version;
  const char* help;                     // what --help prints, with its line feeds
  std::string_view sessionOption = {};  // the option whose value, the next argument, names the session; empty for none
};

struct CommandLine {
  std::vector<const char*> names;      // pointers into the arguments
  const char* session = nullptr;       // value of the session option, if it is there
  std::optional<int> exitStatus = {};  // set when the process has nothing more to do
};

// Reads arguments[1] up to arguments[count - 1]. Answers --help and --version on the standard output, refuses other
// options on the standard error with status 2, and takes "-" and everything behind "--" for names.
[[nodiscard]] CommandLine ReadCommandLine(const Program& program, int count, char** arguments);

// Writes to the standard output at once, so that results and messages keep their order in a terminal. False when that
// cannot be; the standard error has the reason then.
[[nodiscard]] bool Print(const Program& program, std::string_view text);

// Writes "program: subject: reason" to the standard error.
void Complain(const Program& program, const char* subject, const char* reason);

}  // namespace sumlet
