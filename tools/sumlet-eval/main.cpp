// sumlet-eval: evaluates equations on the command line and prints what the window's result area would show.
//
// Most texts are small, so most of the running time is the start of the process: this file keeps to the C library's
// streams, which cost nothing before they are used, and reads each text in as few calls as it can.
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <new>
#include <optional>
#include <string_view>
#include <vector>

#include "engine/math_class.h"
#include "engine/result_text.h"
#include "framework/command_line.h"

namespace sumlet {
namespace {

// Ordered by weight: the heaviest outcome of all texts is the exit status.
enum class Outcome { value = 0, error = 1, failure = 2 };

constexpr char help[] =
    "Usage: sumlet-eval [FILE...]\n"
    "Evaluates each FILE as one equation and prints its result, the value of the last line or the first error.\n"
    "Without a FILE, or where FILE is -, reads standard input. The results of several files are headed by their "
    "names.\n"
    "\n"
    "      --help     print this help and end\n"
    "      --version  print the version and end\n"
    "      --         take everything behind it as the name of a file\n"
    "\n"
    "Exit status: 0 when every text gave a value, 1 when any gave an error,\n"
    "2 when a file could not be read, the output could not be written, or an option is wrong.\n"
    "\n"
    "Example: printf 'x=2\\nx*21\\n' | sumlet-eval\n";

// Far more than anyone types, and small enough that an endless file such as /dev/zero ends in a message.
constexpr std::size_t largestText = std::size_t{256} << 20;

constexpr Program program{"sumlet-eval", SUMLET_VERSION, help};

// The whole content of `file` in `text`, or the reason why it cannot be had.
[[nodiscard]] const char* ReadAll(std::FILE* file, String& text) {
  std::array<char, 64 * 1024> buffer;  // not cleared: only what is read into is touched
  while (const std::size_t length = std::fread(buffer.data(), 1, buffer.size(), file)) {
    if (text.size() + length > largestText) return "The text is longer than 256 MiB";
    text.append(buffer.data(), length);
  }
  return std::ferror(file) != 0 ? std::strerror(errno) : nullptr;
}

// `name` "-" is standard input. Gives nothing when the text cannot be read, which has then been told.
[[nodiscard]] std::optional<String> ReadText(const char* name) {
  const bool isStandardInput = std::string_view(name) == "-";
  std::FILE* file = isStandardInput ? stdin : std::fopen(name, "rb");
  String text;
  const char* problem = nullptr;
  if (file == nullptr) {
    problem = std::strerror(errno);
  } else {
    std::setvbuf(file, nullptr, _IONBF, 0);  // the bytes go straight into the text
    problem = ReadAll(file, text);
    if (!isStandardInput) std::fclose(file);
  }
  if (problem != nullptr) {
    Complain(program, isStandardInput ? "standard input" : name, problem);
    return std::nullopt;
  }
  // A byte order mark tells the encoding and is no part of the equation.
  constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(byteOrderMark)) text.erase(0, byteOrderMark.size());
  return text;
}

[[nodiscard]] Outcome EvaluateText(const char* name, bool isHeaded) try {
  std::optional<String> text = ReadText(name);
  if (!text) return Outcome::failure;
  MathClass math(std::move(*text));
  const String result = math.Evaluate();
  String line;
  if (isHeaded) line.append(name).append(": ");
  line.append(ShownResult(math, result)).append("\n");
  if (!Print(program, line)) return Outcome::failure;
  return math.ResultIsError(result) ? Outcome::error : Outcome::value;
} catch (const std::bad_alloc&) {
  Complain(program, name, std::strerror(ENOMEM));
  return Outcome::failure;
}

[[nodiscard]] int Run(int count, char** arguments) {
  CommandLine line = ReadCommandLine(program, count, arguments);
  if (line.exitStatus) return *line.exitStatus;
  if (line.names.empty()) line.names.push_back("-");
  Outcome worst = Outcome::value;
  for (const char* name : line.names) worst = std::max(worst, EvaluateText(name, line.names.size() > 1));
  return static_cast<int>(worst);
}

}  // namespace
}  // namespace sumlet

int main(int count, char** arguments) { return sumlet::Run(count, arguments); }
