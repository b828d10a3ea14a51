// The hand-over socket's message: whatever a peer sends, in whatever pieces, is the message that a start writes or is
// refused, and a token that is taken goes into the environment as it came.
#include "shell/start_message.h"
#include "check.h"

namespace sumlet {
namespace {

void CheckReceived(std::string_view received) {
  constexpr std::string_view untouched = "untouched";
  std::string_view token = untouched;
  const RequestState state = ReadRequest(received, token);
  if (state == RequestState::Request) {
    Check(token.empty() || IsToken(token), "a request has a token or none");
    Check(received.starts_with(RequestWith(token)), "a request is what a start writes");
    Check(received.find('\n') < longestRequest, "a request is not too long");
  } else {
    Check(token == untouched, "what is no request has no token");
  }

  // One byte after the other, as a slow peer sends them: what has been decided once stays.
  for (std::size_t length = 0; length < received.size() && length <= longestRequest + 1; ++length) {
    std::string_view early;
    const RequestState then = ReadRequest(received.substr(0, length), early);
    if (then == RequestState::Unfinished) continue;
    Check(then == state, "more bytes do not change what has been decided");
    Check(then != RequestState::Request || early == token, "nor the token");
    break;
  }
}

void CheckSent(std::string_view token) {
  const String request = RequestWith(token);
  std::string_view read;
  Check(ReadRequest(request, read) == RequestState::Request, "what a start writes is a request");
  Check(read == (IsToken(token) ? token : ""), "the token arrives, or none");
  Check(request.size() <= longestRequest, "what a start writes is not too long");
}

}  // namespace

void CheckInput(std::string_view input) {
  CheckReceived(input);
  CheckSent(input);
}

}  // namespace sumlet
