// Text out of the bytes of a file of unknown encoding.
#pragma once

#include "framework/text/text.h"

namespace sumlet {

// The text in UTF-8, without a byte order mark. A mark of UTF-8 or UTF-16 at the start is honoured. Without one the
// bytes are UTF-8, and those that are no UTF-8 are taken for Windows-1252, so that older files open too; five bytes
// that mean nothing there, and half surrogates, become U+FFFD.
[[nodiscard]] String DecodeText(String bytes);

}  // namespace sumlet
