#include "framework/ui/browser.h"

#include <QDesktopServices>
#include <QUrl>

#include "framework/show_url.h"

namespace sumlet {
namespace {

// Strict: the tolerant reading would encode a percent sign that is there by mistake, and open another page.
void OpenInBrowser(std::string_view address) {
  const QByteArray bytes(address.data(), static_cast<qsizetype>(address.size()));
  const QUrl url = QUrl::fromEncoded(bytes, QUrl::StrictMode);
  if (url.isValid() && !url.isRelative()) QDesktopServices::openUrl(url);
}

}  // namespace

void InstallBrowser() { SetURLHandler(OpenInBrowser); }

}  // namespace sumlet
