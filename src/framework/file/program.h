// Runs other programs.
#pragma once

#include <chrono>
#include <vector>

#include "framework/text/text.h"

namespace sumlet {

enum class ProgramEnd { NotFound, Ended, GivenUp };

// Runs a program without a shell. Returns when it has ended or `timeout` has passed, and kills the rest of its process
// group. `command` is the program's name, looked up in PATH, and its arguments. Its standard input is empty and its
// output discarded. On Linux it is limited to 1 GiB of memory and to files of 256 MiB. Does not report the exit status,
// which is unreliable for the tools that this function runs.
ProgramEnd RunProgram(const std::vector<String>& command, std::chrono::milliseconds timeout);

}  // namespace sumlet
