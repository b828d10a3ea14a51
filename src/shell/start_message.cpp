#include "shell/start_message.h"

#include <algorithm>

namespace sumlet {
namespace {

// `line` is without its line feed.
bool ReadLine(std::string_view line, std::string_view& token) {
  if (!line.starts_with(startRequest)) return false;
  line.remove_prefix(startRequest.size());
  if (!line.empty()) {
    if (line.front() != ' ' || !IsToken(line.substr(1))) return false;
    line.remove_prefix(1);
  }
  token = line;
  return true;
}

}  // namespace

bool IsToken(std::string_view text) {
  return !text.empty() && text.size() <= longestToken &&
         std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c < '\x7F'; });
}

String RequestWith(std::string_view token) {
  String request(startRequest);
  if (IsToken(token)) request.append(" ").append(token);
  return request + "\n";
}

RequestState ReadRequest(std::string_view received, std::string_view& token) {
  const std::size_t end = received.find('\n');
  if (end == std::string_view::npos)
    return received.size() <= longestRequest ? RequestState::Unfinished : RequestState::Nonsense;
  return ReadLine(received.substr(0, end), token) ? RequestState::Request : RequestState::Nonsense;
}

}  // namespace sumlet
