// Opens web addresses in the user's browser. A handler does it: the window program asks the desktop, a test records the
// address.
#pragma once

#include <functional>
#include <string_view>

namespace sumlet {

// Opens `address`, a complete and percent-encoded URL. Returns immediately and does not report failure. Does nothing
// without a handler.
void ShowURL(std::string_view address);

using URLHandler = std::function<void(std::string_view address)>;
// Returns the previous handler.
URLHandler SetURLHandler(URLHandler handler);

}  // namespace sumlet
