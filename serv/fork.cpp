// fork(): a child has one thread, and whatever the others were doing it will never finish.
//
// Both locks are held over the fork, so that the tables behind them are whole in the child. Its OpenMP
// runtime believes in the parent's threads and would wait for them: the child stays on one thread.
//
// State: registered, set once by an atomic exchange.
#include "serv/fork.h"
#include "serv/threads.h"

#include <pthread.h>

// The start files that are left out define this; pthread_atfork tells the C library by it which object the
// handlers go away with. This one never does.
extern "C" {
[[gnu::weak, gnu::visibility("hidden")]] void* __dso_handle = nullptr;
}

namespace {

int registered = 0;

// In the order in which a thread may hold both.
void hold_locks() {
    vor_serv_dft_lock();
    vor_serv_lock();
}

void release_locks() {
    vor_serv_unlock();
    vor_serv_dft_unlock();
}

void start_child() {
    release_locks();
    vor::stay_serial();
}

} // namespace

void vor::survive_fork() {
    if (__atomic_exchange_n(&registered, 1, __ATOMIC_RELAXED) == 0)
        pthread_atfork(hold_locks, release_locks, start_child);
}
