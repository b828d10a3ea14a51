#include "shell/web_addresses.h"

#include "framework/text/bytes.h"
#include "shell/addresses.h"

namespace sumlet::WebAddresses {

using namespace Addresses;

String Website() { return String(makerSite) + "/sumlet.html"; }

String Feedback() { return String(makerSite) + "/contact.html?s=" + EncodeURLComponent("Sumlet"); }

String Share() { return String(shareSite) + "/sharer.php?u=" + EncodeURLComponent(String(makerSite) + "/sumlet/"); }

String Store() { return String(storeSite) + "/us/app/sumlet/" + EncodeURLComponent(storeNumber) + "?ls=1&mt=12"; }

}  // namespace sumlet::WebAddresses
