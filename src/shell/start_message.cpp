#include "shell/start_message.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <system_error>

namespace sumlet {
namespace {

constexpr std::size_t longestSize = 7;                                                     // digits of longestFiles
constexpr std::size_t longestLine = startRequest.size() + longestSize + 1 + longestToken;  // without its line feed

struct FirstLine {
  std::size_t size = 0;  // of what follows the line
  std::string_view token;
};

// `line` is without its line feed.
std::optional<FirstLine> ParseLine(std::string_view line) {
  if (!line.starts_with(startRequest)) return {};
  line.remove_prefix(startRequest.size());
  FirstLine parsed;
  const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), parsed.size);
  if (error != std::errc() || parsed.size > longestFiles) return {};
  const auto digits = static_cast<std::size_t>(end - line.data());
  if (line.front() == '0' && digits > 1) return {};
  line.remove_prefix(digits);
  if (line.empty()) return parsed;
  parsed.token = line.substr(1);
  if (line.front() != ' ' || !IsToken(parsed.token)) return {};
  return parsed;
}

std::vector<String> SplitFiles(std::string_view files) {
  std::vector<String> split;
  for (std::size_t end = 0; !files.empty(); files.remove_prefix(end + 1)) {
    end = files.find('\0');
    split.emplace_back(files.substr(0, end));
  }
  return split;
}

}  // namespace

bool IsToken(std::string_view text) {
  return !text.empty() && text.size() <= longestToken &&
         std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c < '\x7F'; });
}

std::optional<String> MessageFor(const StartRequest& request) {
  String files;
  for (const String& file : request.files) {
    files.append(file).push_back('\0');
    if (files.size() > longestFiles) return {};
  }
  String message(startRequest);
  message += std::to_string(files.size());
  if (IsToken(request.token)) message.append(" ").append(request.token);
  return message + "\n" + files;
}

RequestState ReadRequest(std::string_view received, StartRequest& request) {
  const std::size_t lineEnd = received.substr(0, longestLine + 1).find('\n');
  if (lineEnd == std::string_view::npos)
    return received.size() <= longestLine ? RequestState::Unfinished : RequestState::Invalid;
  const std::optional<FirstLine> line = ParseLine(received.substr(0, lineEnd));
  if (!line) return RequestState::Invalid;
  const std::string_view files = received.substr(lineEnd + 1, line->size);
  if (files.size() < line->size) return RequestState::Unfinished;
  if (!files.empty() && files.back() != '\0') return RequestState::Invalid;
  request = {String(line->token), SplitFiles(files)};
  return RequestState::Request;
}

}  // namespace sumlet
