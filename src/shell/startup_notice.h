// Ends the desktop's notice, such as a busy pointer, that this program is starting.
#pragma once

namespace sumlet {

// For a start that has handed over and shows no window. On X11 the desktop would otherwise show the notice until a
// timeout; the toolkit ends it only when a window opens. Does nothing if there is no notice. May end the process with
// status 0 if the display does not answer.
void EndStartupNotice();

}  // namespace sumlet
