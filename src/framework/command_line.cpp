// Keeps to the C library's streams, which cost nothing before they are used: most runs are over in a millisecond.
#include "framework/command_line.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "framework/text/text.h"

namespace sumlet {
namespace {

constexpr int failure = 2;

int RunOption(const Program& program, std::string_view option) {
  if (option == "--help") return Print(program, program.help) ? 0 : failure;
  if (option == "--version") return Print(program, String(program.name) + " " + program.version + "\n") ? 0 : failure;
  std::fprintf(stderr, "%s: unknown option %.*s\nTry %s --help.\n", program.name, static_cast<int>(option.size()),
               option.data(), program.name);
  return failure;
}

}  // namespace

CommandLine ReadCommandLine(const Program& program, int count, char** arguments) {
  CommandLine line;
  bool areOptionsOver = false;
  for (int i = 1; i < count; ++i) {
    const std::string_view argument = arguments[i];
    if (areOptionsOver || !argument.starts_with('-') || argument == "-") {
      line.names.push_back(arguments[i]);
    } else if (argument == "--") {
      areOptionsOver = true;
    } else if (argument == program.sessionOption) {
      if (++i < count) line.session = arguments[i];
    } else {
      line.exitStatus = RunOption(program, argument);
      return line;
    }
  }
  return line;
}

bool Print(const Program& program, std::string_view text) {
  if (std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0) return true;
  Complain(program, "standard output", std::strerror(errno));
  return false;
}

void Complain(const Program& program, const char* subject, const char* reason) {
  std::fprintf(stderr, "%s: %s: %s\n", program.name, subject, reason);
}

}  // namespace sumlet
