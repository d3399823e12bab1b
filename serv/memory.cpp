// The memory manager: whole blocks kept for reuse by the thread that took them from malloc.
//
// State: the slot table and its totals, all under vor_serv_lock, and the settings read once from the
// environment (env_readed and disable_fast_mm are read without the lock: they change once, before
// the first use of the table by the reading thread).
//
// A slot is empty (no block), cached (block, not in use) or held. Compaction keeps the slots with a
// block in front; all scans stop at mem_banks_used.
#include "serv/memory.h"
#include "serv/entry.h"
#include "serv/fork.h"
#include "serv/threads.h"

#include <stdlib.h>

namespace {

constexpr unsigned kSlots = 512;
constexpr unsigned kLargestCached = 40u << 20; // bytes; larger requests bypass the table
constexpr double kGrowth = 1.2;                // a block is this much larger than asked for
constexpr double kBudget = 39007027.2;         // bytes that may stay cached, for each thread

void* mem[kSlots];              // null: empty slot
signed char mem_in_use[kSlots]; // 1 while a caller holds the block
unsigned mem_size[kSlots];      // bytes asked of malloc
unsigned mem_th[kSlots];        // the thread that took the block; only it reuses the block

unsigned mem_banks_used;        // slots in the table, empty ones included
unsigned mem_banks_really_used; // slots with a block
unsigned mem_total_allocated;   // bytes of all blocks
unsigned mem_total_used;        // bytes of the held ones
unsigned max_mem_nonused = static_cast<unsigned>(4 * kBudget); // surplus that may stay cached

int env_readed = -1;
int disable_fast_mm = -1;
int NUMA = -1;

bool caching() {
    if (__atomic_load_n(&env_readed, __ATOMIC_ACQUIRE) == -1) VOR_read_env();
    return disable_fast_mm != 1;
}

// The product in extended precision, truncated: 1.2 is a little below 6/5, so 1000 gives 1199.
unsigned grow(unsigned size) {
    return static_cast<unsigned>(static_cast<long double>(size) * kGrowth);
}

void hold(unsigned slot) {
    mem_in_use[slot] = 1;
    mem_total_used += mem_size[slot];
}

void fill(unsigned slot, void* block, unsigned size, unsigned thread) {
    mem[slot] = block;
    mem_size[slot] = size;
    mem_th[slot] = thread;
    mem_total_allocated += size;
    hold(slot);
}

void clear(unsigned slot) {
    mem[slot] = nullptr;
    mem_in_use[slot] = 0;
    mem_size[slot] = 0;
    mem_th[slot] = 0;
}

bool cached(unsigned slot) {
    return !mem_in_use[slot] && mem_size[slot] > 0;
}

// Gives the cached block of a slot back to the system; the slot stays in the table, empty.
void drop(unsigned slot) {
    free(mem[slot]);
    mem_total_allocated -= mem_size[slot];
    clear(slot);
    --mem_banks_really_used;
}

// A cached block of this thread: the first of exactly this size, else the first that is large
// enough, else kSlots.
unsigned find_reusable(unsigned size, unsigned thread) {
    unsigned first = kSlots;
    for (unsigned i = 0; i < mem_banks_used; ++i) {
        if (mem_th[i] != thread || mem_in_use[i] || !mem[i] || mem_size[i] < size) continue;
        if (mem_size[i] == size) return i;
        if (first == kSlots) first = i;
    }
    return first;
}

// A slot for a new block: one more, or in a full table the first cached one, of any thread, which
// loses its block; kSlots if all are held.
unsigned free_slot() {
    if (mem_banks_used < kSlots) return mem_banks_used;
    for (unsigned i = 0; i < mem_banks_used; ++i) {
        if (!cached(i)) continue;
        drop(i);
        return i;
    }
    return kSlots;
}

void* allocate_locked(unsigned size, unsigned thread) {
    vor_free_extra_mem();
    const unsigned reused = find_reusable(size, thread);
    if (reused != kSlots) {
        hold(reused);
        return mem[reused];
    }
    const unsigned grown = grow(size);
    void* block = malloc(grown); // before a slot is made free: a failure leaves the table as it is
    if (!block) return nullptr;
    const unsigned slot = free_slot();
    if (slot == kSlots) return block;
    fill(slot, block, grown, thread);
    ++mem_banks_really_used;
    if (slot == mem_banks_used) ++mem_banks_used;
    return block;
}

} // namespace

extern "C" void VOR_read_env() {
    vor::survive_fork();
    vor_serv_lock();
    if (env_readed != 1) {
        disable_fast_mm = secure_getenv("VOR_DISABLE_FAST_MM") || secure_getenv("VOR_MM_DISABLE");
        NUMA = secure_getenv("VOR_MM_NUMA_MODE") != nullptr;
        if (const char* text = secure_getenv("VOR_MM_MAX_THREADS")) {
            const int threads = atoi(text);
            if (threads > 0)
                max_mem_nonused = static_cast<unsigned>(
                    static_cast<unsigned long long>(static_cast<long double>(threads) * kBudget));
        }
        // Last, behind what it vouches for: other threads test it without the lock.
        __atomic_store_n(&env_readed, 1, __ATOMIC_RELEASE);
    }
    vor_serv_unlock();
}

extern "C" void VOR_shrink_mem_slots() {
    unsigned count = mem_banks_used;
    unsigned lowest = 0; // no empty slot below this one
    for (unsigned i = mem_banks_used; i-- > 0 && count != mem_banks_really_used;) {
        if (!mem[i]) {
            --count; // an empty slot at the end goes away by itself
            continue;
        }
        while (lowest < i && mem[lowest]) ++lowest;
        if (lowest >= i) break;
        mem[lowest] = mem[i];
        mem_in_use[lowest] = mem_in_use[i];
        mem_size[lowest] = mem_size[i];
        mem_th[lowest] = mem_th[i];
        clear(i);
        --count;
    }
    mem_banks_used = mem_banks_really_used;
}

extern "C" void vor_free_extra_mem() {
    const auto surplus = [] { return mem_total_allocated - mem_total_used; };
    if (surplus() > max_mem_nonused || mem_banks_used >= kSlots) {
        for (unsigned i = mem_banks_used; i-- > 0;) {
            if (!cached(i)) continue;
            drop(i);
            if (surplus() < max_mem_nonused) break;
        }
    }
    if (mem_banks_really_used != mem_banks_used) VOR_shrink_mem_slots();
}

extern "C" void* vor_serv_allocate(unsigned size) {
    if (!caching() || size > kLargestCached) return malloc(size);
    const unsigned thread = VOR_ThreadID();
    vor_serv_lock();
    void* block = allocate_locked(size, thread);
    vor_serv_unlock();
    return block;
}

extern "C" void vor_serv_deallocate(void* block) {
    if (caching()) {
        vor_serv_lock();
        for (unsigned i = 0; i < mem_banks_used; ++i) {
            if (mem[i] != block) continue;
            mem_in_use[i] = 0;
            mem_total_used -= mem_size[i];
            vor_serv_unlock();
            return;
        }
        vor_serv_unlock();
    }
    free(block);
}

VOR_ENGINE void vor_serv_freebuffers() {
    if (!caching()) return;
    vor_serv_lock();
    // A block of no bytes counts in no total and stays out of this, as it stays out of trimming.
    for (unsigned i = 0; i < mem_banks_used; ++i) {
        if (mem_size[i] == 0 || !mem[i]) continue;
        free(mem[i]);
        clear(i);
    }
    mem_banks_used = 0;
    mem_banks_really_used = 0;
    mem_total_allocated = 0;
    mem_total_used = 0;
    vor_serv_unlock();
}

VOR_MIXED_ENTRY(void, VOR_FreeBuffers, vor_freebuffers, VOR_FREEBUFFERS, vor_serv_freebuffers, (),
                ())
