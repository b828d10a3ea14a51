// The message with which a start hands over to the running program, as bytes. single_instance.h sends it and
// start_requests.h receives it.
//
// The message is "start SIZE", then a space and the token where the start has one, then a line feed. SIZE bytes follow:
// the files' paths, each ended by a zero byte. SIZE is decimal, without leading zeros.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "framework/text/text.h"

namespace sumlet {

inline constexpr std::string_view startRequest = "start ";
inline constexpr std::string_view startAnswer = "started\n";
inline constexpr std::size_t longestToken = 256;                   // bytes
inline constexpr std::size_t longestFiles = std::size_t{1} << 20;  // bytes of all paths with their zero bytes

struct StartRequest {
  String token;               // the desktop's permission to come to the front; empty for none
  std::vector<String> files;  // absolute paths of the files to open: any bytes but zero, in any encoding

  friend bool operator==(const StartRequest&, const StartRequest&) = default;
};

// Whether `text` can be sent as a token: printable ASCII without spaces, 1 to longestToken bytes.
[[nodiscard]] bool IsToken(std::string_view text);

// The message for `request`, without a token that is invalid. Empty if the files take more than longestFiles.
[[nodiscard]] std::optional<String> MessageFor(const StartRequest& request);

enum class RequestState {
  Unfinished,  // more bytes are needed
  Request,
  Invalid  // not a valid message, or one that is too long
};

// Parses the bytes that a peer has sent so far. For a Request, fills `request`, and ignores bytes behind its end.
// Otherwise leaves `request` unchanged.
[[nodiscard]] RequestState ReadRequest(std::string_view received, StartRequest& request);

}  // namespace sumlet
