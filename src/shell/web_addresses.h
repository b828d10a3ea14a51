// The addresses that the program hands to the browser, for ShowURL. The hosts are set when the program is built.
#pragma once

#include "framework/text/text.h"

namespace sumlet::WebAddresses {

[[nodiscard]] String Website();
[[nodiscard]] String Feedback();
// Facebook's share page, with the product's page as what is shared.
[[nodiscard]] String Share();
// The product's page in the store; its scheme opens the store's own program.
[[nodiscard]] String Store();

}  // namespace sumlet::WebAddresses
