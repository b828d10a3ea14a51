// ClosedEquations: the equations whose windows the user has closed in this run, so that they can be opened again.
#pragma once

namespace sumlet {

class winSumlet;

namespace ClosedEquations {

// Keeps the text, name, position and size of a window that is about to close, unless its text is blank. Drops the
// oldest equations when there are more than 20 or when they exceed 64 MiB.
void Add(const winSumlet& window);

[[nodiscard]] bool IsEmpty();

// Opens the most recently closed equation in front, with the text size of new windows. Does nothing if there is none.
void Reopen();

}  // namespace ClosedEquations
}  // namespace sumlet
