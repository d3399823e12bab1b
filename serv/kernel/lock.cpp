// Two spin locks on one word each: compare-and-exchange until it succeeds, release by a plain store.
#include "serv/threads.h"

static int MEMLOCK = 0;    // 1 while held
static int MEMDFTLOCK = 0; // 1 while held

static inline void acquire(int* lock) {
    int free = 0;
    while (!__atomic_compare_exchange_n(lock, &free, 1, false, __ATOMIC_ACQUIRE, __ATOMIC_RELAXED))
        free = 0;
}

static inline void release(int* lock) {
    __atomic_store_n(lock, 0, __ATOMIC_RELEASE);
}

extern "C" void vor_serv_lock() {
    acquire(&MEMLOCK);
}

extern "C" void vor_serv_unlock() {
    release(&MEMLOCK);
}

extern "C" void vor_serv_dft_lock() {
    acquire(&MEMDFTLOCK);
}

extern "C" void vor_serv_dft_unlock() {
    release(&MEMDFTLOCK);
}
