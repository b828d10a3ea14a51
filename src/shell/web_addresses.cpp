#include "shell/web_addresses.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QString>
#include <QUrl>

#include "framework/text/bytes.h"
#include "shell/addresses.h"

namespace sumlet::WebAddresses {

using namespace Addresses;

String Website() { return String(makerSite) + "/sumlet.html"; }

String Feedback() { return String(makerSite) + "/contact.html?s=" + EncodeURLComponent("Sumlet"); }

String Share() { return String(shareSite) + "/sharer.php?u=" + EncodeURLComponent(String(makerSite) + "/sumlet/"); }

String Store() { return String(storeSite) + "/us/app/sumlet/" + EncodeURLComponent(storeNumber) + "?ls=1&mt=12"; }

String LanguageReference() {
  const QDir programs(QCoreApplication::applicationDirPath());
  for (const char* folder : {installedDocuments, "../../docs"}) {  // a preset builds in build/NAME of the source tree
    const QFileInfo file(programs, QLatin1String(folder) + QLatin1String("/language.md"));
    if (file.isFile()) return QUrl::fromLocalFile(file.canonicalFilePath()).toEncoded().toStdString();
  }
  return String(makerSite) + "/sumlet/language.html";
}

}  // namespace sumlet::WebAddresses
