#include "framework/clipboard.h"

#include <utility>

namespace sumlet {
namespace {

ClipboardHandlers& CurrentHandlers() {
  static String ownText;
  static ClipboardHandlers handlers{[] { return ownText; }, [](std::string_view text) { ownText = text; }};
  return handlers;
}

}  // namespace

String ClipboardText() { return CurrentHandlers().Text(); }

void SetClipboardText(std::string_view text) { CurrentHandlers().SetText(text); }

void SetClipboardHandlers(ClipboardHandlers handlers) { CurrentHandlers() = std::move(handlers); }

}  // namespace sumlet
