// The message with which a start hands over to the running program, as bytes. The sockets that carry it are the
// business of single_instance.h, for the sending side, and start_requests.h, for the receiving one.
//
// The message is "start", then a space and the token where the start has one, then a line feed.
#pragma once

#include <string_view>

#include "framework/text/text.h"

namespace sumlet {

inline constexpr std::string_view startRequest = "start";
inline constexpr std::string_view startAnswer = "started\n";
inline constexpr std::size_t longestToken = 256;                                           // bytes
inline constexpr std::size_t longestRequest = startRequest.size() + 1 + longestToken + 1;  // bytes, with the line feed

// Whether `text` can be handed on as a token: printable ASCII without spaces, 1 to longestToken bytes.
[[nodiscard]] bool IsToken(std::string_view text);

// The message for `token`; without it where it is no token.
[[nodiscard]] String RequestWith(std::string_view token);

enum class RequestState {
  Unfinished,  // its line feed is still to come
  Request,
  Nonsense  // another line, or too long for a message
};

// What the bytes are that have been received of a peer so far. For a Request, `token` is the part of `received` that is
// its token, empty without one; bytes behind the line feed are ignored. Otherwise `token` is left alone.
[[nodiscard]] RequestState ReadRequest(std::string_view received, std::string_view& token);

}  // namespace sumlet
