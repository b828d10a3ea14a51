// One running program for each user and settings folder: a second start hands its files over to the running program.
//
// Requires neither an application object nor a session bus, so that a start that hands over ends at once.
#pragma once

#include <chrono>
#include <filesystem>
#include <string_view>
#include <vector>

#include "framework/file/descriptor.h"

namespace sumlet {

enum class Start {
  First,       // this process becomes the running program
  HandedOver,  // the running program has acknowledged: end with status 0
  Unanswered,  // there is a running program, but it does not answer: end with status 1
  Alone        // no folder accepts a lock or a socket: run, but later starts will not find this process
};

struct Claim {
  Start start = Start::Alone;
  Descriptor requests;  // of First: the socket to which later starts connect; see StartRequests
  Descriptor lock;      // of First: keep it open until the process ends
};

// The files by which the processes of one user and settings folder find each other, in order of preference.
struct InstancePaths {
  std::vector<std::filesystem::path> locks;
  std::vector<std::filesystem::path> sockets;
};

// Returns the paths for the settings folder of this environment. Creates that folder.
[[nodiscard]] InstancePaths PathsForSettings();

// Makes exactly one of several processes the first, until that process ends in any way. The others send it `message`
// (start_message.h) and wait for an answer, at most `timeout`: the running program may itself be starting or quitting.
[[nodiscard]] Claim ClaimInstance(const InstancePaths& paths, std::string_view message,
                                  std::chrono::milliseconds timeout);

// Whether the process at the other end of a connected local socket belongs to the user of this one.
[[nodiscard]] bool IsPeerOfSameUser(const Descriptor& socket);

}  // namespace sumlet
