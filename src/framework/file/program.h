// Running another program.
#pragma once

#include <chrono>
#include <vector>

#include "framework/text/text.h"

namespace sumlet {

enum class ProgramEnd { NotFound, Ended, GivenUp };

// Runs a program and returns when it has ended or `patience` is over; what is left then of its process group
// is killed. `command` is its name, looked up in the user's PATH, and its arguments, handed over as they are: no shell
// reads them. It reads nothing, what it prints is dropped, and on Linux it gets 1 GiB of memory and writes files of 256
// MiB at most. How it ended is not told: the tools that this is for give no reliable exit status.
ProgramEnd RunProgram(const std::vector<String>& command, std::chrono::milliseconds patience);

}  // namespace sumlet
