// The equation window in the window session: what of it is stored, and how it comes back.
#include "equationwindow/win_sumlet.h"
#include "framework/text/bytes.h"
#include "framework/text/variant.h"

namespace sumlet {

void winSumlet::StoreRecord(KeyList& record) const {
  record.AddItem("size", Int32ToVariant(TextSize));
  record.AddItem("name", StringToVariant(FromTemplate));
  record.AddItem("equation", StringToVariant(EncodeURLComponent(textInput().Text())));
  const bool full = IsFullScreen();
  record.AddItem("fullscreen", BooleanToVariant(full));
  record.AddItem("left", Int32ToVariant(full ? NonFullscreenLeft : Left()));
  record.AddItem("top", Int32ToVariant(full ? NonFullscreenTop : Top()));
  record.AddItem("width", Int32ToVariant(full ? NonFullscreenWidth : Width()));
  record.AddItem("height", Int32ToVariant(full ? NonFullscreenHeight : Height()));
}

void winSumlet::RestoreFrom(const MyWindowManager::Record& record) {
  const auto number = [&record](std::string_view key, Int32 fallback) {
    return VariantToInt32(record.LoadItem(key, Int32ToVariant(fallback)));
  };
  const auto text = [&record](std::string_view key) {
    return VariantToString(record.LoadItem(key, StringToVariant({})));
  };

  auto* window = new winSumlet(false);
  window->TextSize = number("size", window->TextSize);
  window->SetLeft(number("left", 20));
  window->SetTop(number("top", 20));
  window->SetWidth(number("width", smallestSize));
  window->SetHeight(number("height", smallestSize));
  if (VariantToBoolean(record.LoadItem("fullscreen", BooleanToVariant(false)))) window->delayToggleFullscreen();
  window->SetEquation(text("name"), DecodeURLComponent(text("equation")));
  window->Show();
  window->ArrangeControls();  // the result is wrapped only now that its area has its width
}

}  // namespace sumlet
