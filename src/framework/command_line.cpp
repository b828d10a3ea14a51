// Uses C streams, because most runs take about a millisecond and the set-up of C++ streams would be a part of that.
#include "framework/command_line.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "framework/terminal.h"
#include "framework/text/text.h"

namespace sumlet {
namespace {

constexpr int failure = 2;

// The option that `argument` names, with or without an attached value; nullptr for none.
const Option* FindOption(const Program& program, std::string_view argument) {
  const auto matches = [&](const Option& option) {
    return argument == option.name || (option.hasValue && option.name.size() == 2 && argument.starts_with(option.name));
  };
  const auto found = std::find_if(program.options.begin(), program.options.end(), matches);
  return found == program.options.end() ? nullptr : &*found;
}

// Executes an option that every program has. Refuses any other. Returns the exit status.
int RunStandardOption(const Program& program, std::string_view option) {
  if (option == "--help" || option == "-h") return Print(program, program.help) ? 0 : failure;
  if (option == "--version") return Print(program, String(program.name) + " " + program.version + "\n") ? 0 : failure;
  return RefuseUsage(program, "unknown option " + String(option));
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
    } else if (const Option* option = FindOption(program, argument); option == nullptr) {
      line.exitStatus = RunStandardOption(program, argument);
      return line;
    } else if (!option->hasValue) {
      line.options.push_back({option->name, nullptr});
    } else if (argument != option->name) {
      line.options.push_back({option->name, arguments[i] + option->name.size()});
    } else if (++i < count) {
      line.options.push_back({option->name, arguments[i]});
    } else {
      line.exitStatus = RefuseUsage(program, "option " + String(option->name) + " requires a value");
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
  std::fprintf(stderr, "%s: %s: %s\n", program.name, TextFor(stderr, subject).c_str(), reason);
}

int RefuseUsage(const Program& program, std::string_view message) {
  std::fprintf(stderr, "%s: %s\nTry %s --help.\n", program.name, TextFor(stderr, message).c_str(), program.name);
  return failure;
}

}  // namespace sumlet
