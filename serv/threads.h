// The cached serial or parallel answer, and the library's two spin locks.
#pragma once

extern "C" {
int vor_serv_in_serial(); // 1 serial, 0 parallel; decided at the first call, then one load
// The memory manager's lock, held across malloc and free there. Spin locks, not recursive.
void vor_serv_lock();
void vor_serv_unlock();
// The lock of the descriptor slots, held for the claim and the release of a slot only.
void vor_serv_dft_lock();
void vor_serv_dft_unlock();
}

namespace vor {
inline namespace serv {

// From here on the answer is serial: in the child of a fork, before anything else runs there.
[[gnu::visibility("hidden")]] void stay_serial();

} // namespace serv
} // namespace vor
