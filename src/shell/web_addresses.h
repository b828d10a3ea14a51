// The addresses that the program hands to the desktop, for ShowURL. The hosts are set when the program is built.
#pragma once

#include "framework/text/text.h"

namespace sumlet::WebAddresses {

[[nodiscard]] String Website();
[[nodiscard]] String Feedback();
// Facebook's share page, with the product's page as what is shared.
[[nodiscard]] String Share();
// The product's page in the store; its scheme opens the store's own program.
[[nodiscard]] String Store();
// The description of the line language: the installed file, that of the source tree that the program was built in, or a
// page of the maker's site where there is neither.
[[nodiscard]] String LanguageReference();

}  // namespace sumlet::WebAddresses
