// The web addresses that the program opens. CMake options set their hosts.
#pragma once

#include "framework/text/text.h"

namespace sumlet::WebAddresses {

[[nodiscard]] String Website();
[[nodiscard]] String Feedback();
// Facebook's page for sharing the product's page.
[[nodiscard]] String Share();
// The product's page in the store; its scheme opens the store's own program.
[[nodiscard]] String Store();
// The description of the line language: the installed file, else the one in the source tree of the build, else a page
// of the maker's site.
[[nodiscard]] String LanguageReference();

}  // namespace sumlet::WebAddresses
