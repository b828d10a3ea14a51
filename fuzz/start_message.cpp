// The hand-over message: accepts only messages that a start writes, whatever bytes a peer sends, in any pieces. The
// token and the files arrive unchanged.
#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>

#include "check.h"
#include "framework/text/text.h"
#include "shell/start_message.h"

namespace sumlet {
namespace {

void CheckReceived(std::string_view received) {
  const StartRequest untouched{"untouched", {"untouched"}};
  StartRequest request = untouched;
  const RequestState state = ReadRequest(received, request);
  if (state == RequestState::Request) {
    Check(request.token.empty() || IsToken(request.token), "a request has a token or none");
    const std::optional<String> message = MessageFor(request);
    Check(message.has_value(), "a request is not too long");
    Check(received.starts_with(*message), "a request is what a start writes");
  } else {
    Check(request == untouched, "what is no request leaves the request alone");
  }

  // A slow peer sends byte by byte: once made, a decision does not change.
  for (std::size_t length = 0; length < received.size(); ++length) {
    StartRequest early = untouched;
    const RequestState then = ReadRequest(received.substr(0, length), early);
    if (then == RequestState::Unfinished) continue;
    Check(then == state, "more bytes do not change a decision");
    Check(early == request, "nor the request");
    break;
  }
}

// The first line of `input` as the token, the others as the files.
void CheckSent(std::string_view input) {
  StartRequest sent;
  bool isFirst = true;
  for (std::size_t end = 0; !input.empty(); input.remove_prefix(end), isFirst = false) {
    end = std::min(input.find('\n'), input.size() - 1) + 1;
    String line(input.substr(0, end));
    std::erase(line, '\0');
    isFirst ? sent.token = line : sent.files.emplace_back(line);
  }
  StartRequest read;
  Check(ReadRequest(MessageFor(sent).value(), read) == RequestState::Request, "what a start writes is a request");
  Check(read.files == sent.files, "the files arrive");
  Check(read.token == (IsToken(sent.token) ? sent.token : ""), "the token arrives, or none");
}

}  // namespace

void CheckInput(std::string_view input) {
  CheckReceived(input);
  CheckSent(input);
}

}  // namespace sumlet
