// SingleInstance: of one user's starts of the program with one settings folder, one runs, and the others hand over to
// it. Starts with different settings folders do not know of each other.
//
// Needs neither an application object nor a session bus, so that a start that hands over is over at once.
#pragma once

#include <chrono>
#include <filesystem>
#include <string_view>
#include <vector>

#include "framework/file/descriptor.h"

namespace sumlet {

enum class Start {
  First,       // this process is the running program now
  HandedOver,  // another one is, and it has acknowledged: end with status 0
  Unanswered,  // another one is, but it does not answer: end with status 1
  Alone        // no folder takes a lock or a socket: run without being found by later starts
};

struct Claim {
  Start start = Start::Alone;
  Descriptor requests;  // for the first: the socket at which later starts ask; see StartRequests
  Descriptor lock;      // for the first: keep it open until the process ends
};

// The files by which the starts of one user with one settings folder find each other, the preferred ones first.
struct MeetingPlace {
  std::vector<std::filesystem::path> locks;
  std::vector<std::filesystem::path> sockets;
};

// The place for the settings folder of this environment. Creates that folder.
[[nodiscard]] MeetingPlace MeetingPlaceOfSettings();

// Of any number of processes that claim a place at the same instant exactly one is the first, until its end, however it
// ends. The others send it `message` (start_message.h). Waits for an answer no longer than `patience`: the running
// program may itself be starting up or quitting.
[[nodiscard]] Claim ClaimInstance(const MeetingPlace& place, std::string_view message,
                                  std::chrono::milliseconds patience);

// Whether the process at the other end of a connected local socket belongs to the user of this one.
[[nodiscard]] bool IsOwnPeer(const Descriptor& socket);

}  // namespace sumlet
