// What the library does about fork().
#pragma once

namespace vor {
inline namespace serv {

// Sees to it, from the first call on, that a child finds no lock held and computes on its own thread.
// Called wherever the first lock or the first thread of a process may come from; nothing is done at load.
[[gnu::visibility("hidden")]] void survive_fork();

} // namespace serv
} // namespace vor
