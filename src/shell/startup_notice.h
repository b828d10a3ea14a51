// Ends the desktop's notice, such as a busy pointer, that this program is starting.
#pragma once

namespace sumlet {

// For a start that shows no window of its own, because it has handed over to the running program. On X11 the desktop
// otherwise shows the notice until its patience ends; the toolkit ends it only when a window comes up. Does nothing
// where the start has no notice. May end the process, with status 0, when the display does not answer.
void EndStartupNotice();

}  // namespace sumlet
