// ClosedEquations: the equations whose windows the user has closed in this run, so that they can be opened again.
#pragma once

namespace sumlet {

class winSumlet;

namespace ClosedEquations {

// Keeps the text, the name and the place of a window that is about to close, unless its text is blank. Forgets the
// oldest when there are more than 20, or more than 64 MiB of them.
void Add(const winSumlet& window);

[[nodiscard]] bool IsEmpty();

// Opens the one that was closed last, in front, in the text size of new windows. Does nothing when there is none.
void Reopen();

}  // namespace ClosedEquations
}  // namespace sumlet
