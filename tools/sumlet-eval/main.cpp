// sumlet-eval: evaluates equations on the command line and prints what the window's result area would show.
//
// Most texts are small, so most of the running time is the start of the process. This file uses the C library's
// streams, which cost nothing until they are used, and reads each text in few calls.
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <new>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/math_class.h"
#include "framework/command_line.h"
#include "framework/terminal.h"
#include "framework/text/encoding.h"
#include "framework/text/text.h"
#include "lines_table.h"

namespace sumlet {
namespace {

// In the order of severity. The exit status is the most severe outcome of all texts.
enum class Outcome { value = 0, error = 1, failure = 2 };

constexpr char help[] =
    "Usage: sumlet-eval [--lines] [FILE...]\n"
    "       sumlet-eval [--lines] -e TEXT [-e TEXT]...\n"
    "Evaluates each FILE as one equation and prints its result, the value of the last line or the first error.\n"
    "Without a FILE, or where FILE is -, reads standard input. The results of several files are headed by their "
    "names.\n"
    "\n"
    "  -e TEXT        evaluate TEXT in place of a file; each further -e is the next line\n"
    "      --lines    print all lines with their numbers and values, in columns\n"
    "  -h, --help     print this help and end\n"
    "      --version  print the version and end\n"
    "      --         take everything behind it as the name of a file\n"
    "\n"
    "Exit status: 0 when every text gave a value, 1 when any gave an error,\n"
    "2 when a file could not be read, the output could not be written, or an option is wrong.\n"
    "\n"
    "Example: sumlet-eval -e x=2 -e 'x*21'\n";

// More than anyone types, but small enough to refuse an endless file such as /dev/zero.
constexpr std::size_t largestText = std::size_t{256} << 20;  // bytes

#ifdef _WIN32
constexpr char endOfInput[] = "Ctrl+Z and Return";
#else
constexpr char endOfInput[] = "Ctrl+D on an empty line";
#endif

constexpr Option options[] = {{"-e", true}, {"--lines"}};
constexpr Program program{"sumlet-eval", SUMLET_VERSION, help, options};

// The source of a text.
struct Source {
  const char* name;               // of the file; "-" for standard input, "-e" for a text from the command line
  const String* typed = nullptr;  // the text itself, if it comes from the command line
};

// Appends the content of `file` to `text`. Returns nullptr, or the reason why reading failed.
[[nodiscard]] const char* ReadAll(std::FILE* file, String& text) {
  std::array<char, 64 * 1024> buffer;  // not cleared: that would touch more memory than most texts need
  std::size_t length = buffer.size();
  // After fewer bytes the input has ended. Another read would make a terminal wait for more input.
  while (length == buffer.size()) {
    length = std::fread(buffer.data(), 1, buffer.size(), file);
    if (text.size() + length > largestText) return "The text is longer than 256 MiB";
    text.append(buffer.data(), length);
  }
  return std::ferror(file) != 0 ? std::strerror(errno) : nullptr;
}

// Returns nothing if the text cannot be read, after writing the reason to the standard error.
[[nodiscard]] std::optional<String> ReadText(const Source& source) {
  if (source.typed != nullptr) return DecodeText(*source.typed);
  const bool isStandardInput = std::string_view(source.name) == "-";
  std::FILE* file = isStandardInput ? stdin : std::fopen(source.name, "rb");
  String text;
  const char* problem = nullptr;
  if (file == nullptr) {
    problem = std::strerror(errno);
  } else {
    if (isStandardInput && IsTerminal(stdin)) std::fprintf(stderr, "Type an equation, then %s.\n", endOfInput);
    std::setvbuf(file, nullptr, _IONBF, 0);  // ReadAll has its own buffer
    problem = ReadAll(file, text);
    if (!isStandardInput) std::fclose(file);
  }
  if (problem == nullptr) return DecodeText(std::move(text));
  Complain(program, isStandardInput ? "standard input" : source.name, problem);
  return std::nullopt;
}

struct Layout {
  bool isHeaded = false;  // print the name of the source in front
  bool hasLines = false;  // print a table of all lines instead of the result
};

// Evaluates the equation of `math`. Returns the text to print, and sets `isError`.
[[nodiscard]] String Evaluate(MathClass& math, const char* name, const Layout& layout, bool& isError) {
  LinesTable table;
  if (layout.hasLines)
    math.LineObserver = [&table](Int32 line, std::string_view value) { table.AddValue(line, value); };
  const String result = math.Evaluate();
  isError = math.ResultIsError(result);
  const String shown = ShownResult(math, result);
  String heading;
  if (layout.isHeaded) heading.append(name).append(layout.hasLines ? ":" : ": ");
  if (!layout.hasLines) return TextFor(stdout, heading + shown) + "\n";
  if (isError) table.AddError(math.LastLineEvaluated, shown);
  if (layout.isHeaded) heading = TextFor(stdout, heading) + "\n";
  return heading + table.Rows(math.equationText);
}

[[nodiscard]] Outcome EvaluateText(const Source& source, const Layout& layout) try {
  std::optional<String> text = ReadText(source);
  if (!text) return Outcome::failure;
  MathClass math(std::move(*text));
  bool isError = false;
  if (!Print(program, Evaluate(math, source.name, layout, isError))) return Outcome::failure;
  return isError ? Outcome::error : Outcome::value;
} catch (const std::bad_alloc&) {
  Complain(program, source.name, std::strerror(ENOMEM));
  return Outcome::failure;
}

[[nodiscard]] int Run(int count, char** arguments) {
  const CommandLine line = ReadCommandLine(program, count, arguments);
  if (line.exitStatus) return *line.exitStatus;
  String typed;
  bool hasLines = false;
  for (const GivenOption& option : line.options) {
    if (option.value != nullptr) typed.append(option.value).append("\n");
    hasLines |= option.value == nullptr;
  }
  if (!typed.empty() && !line.names.empty()) return RefuseUsage(program, "-e and files exclude each other");
  std::vector<Source> sources;
  for (const char* name : line.names) sources.push_back({name});
  if (sources.empty()) sources.push_back(typed.empty() ? Source{"-"} : Source{"-e", &typed});
  Outcome worst = Outcome::value;
  for (const Source& source : sources) {
    worst = std::max(worst, EvaluateText(source, {.isHeaded = sources.size() > 1, .hasLines = hasLines}));
    if (std::ferror(stdout) != 0) break;
  }
  return static_cast<int>(worst);
}

}  // namespace
}  // namespace sumlet

int main(int count, char** arguments) { return sumlet::Run(count, arguments); }
