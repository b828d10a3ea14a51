#include "framework/show_url.h"

#include <utility>

namespace sumlet {
namespace {

URLHandler& CurrentURLHandler() {
  static URLHandler handler;
  return handler;
}

}  // namespace

void ShowURL(std::string_view address) {
  if (const URLHandler& handler = CurrentURLHandler()) handler(address);
}

URLHandler SetURLHandler(URLHandler handler) { return std::exchange(CurrentURLHandler(), std::move(handler)); }

}  // namespace sumlet
