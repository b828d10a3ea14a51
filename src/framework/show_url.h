// Web addresses for the user's browser. Who opens them is decided at start: the window program asks the desktop, a test
// reads the address.
#pragma once

#include <functional>
#include <string_view>

namespace sumlet {

// Hands an address over and returns at once. `address` is a whole URL, scheme included, every part of it already
// percent-encoded. A failure is not told. Without a handler nothing happens.
void ShowURL(std::string_view address);

using URLHandler = std::function<void(std::string_view address)>;
// Gives back the handler that was in place.
URLHandler SetURLHandler(URLHandler handler);

}  // namespace sumlet
