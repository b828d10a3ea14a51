// Browser: opens web addresses with the desktop's program for them.
#pragma once

namespace sumlet {

// From here on ShowURL hands addresses to the desktop. What is no valid URL with a scheme is dropped.
void InstallBrowser();

}  // namespace sumlet
