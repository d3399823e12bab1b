// The service layer under the thread sanitizer, which ends the program where two threads meet without a
// lock: the block cache and the first calls. Compiled with the sources of serv/, in 64 bits, where there
// is a sanitizer.
#include "serv/memory.h"
#include "serv/settings.h"
#include "serv/threads.h"
#include "vor_service.h"

#include <cstring>
#include <thread>
#include <vector>

namespace {

constexpr int kThreads = 4, kRounds = 300;

// Blocks of several sizes, some given back by another thread than the one that took them.
void use_blocks(int thread, std::vector<void*>& left_behind) {
    for (int round = 0; round < kRounds; ++round) {
        const unsigned size = static_cast<unsigned>(1000 + 100 * (round % 7) + thread);
        void* block = vor_serv_allocate(size);
        std::memset(block, thread, size);
        std::this_thread::yield(); // others come in between
        if (round % 10 == 0)
            left_behind.push_back(block);
        else
            vor_serv_deallocate(block);
    }
}

void run_all(void (*work)(int, std::vector<void*>&)) {
    std::vector<std::thread> threads;
    std::vector<std::vector<void*>> left_behind(kThreads);
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([&, i] { work(i, left_behind[static_cast<size_t>(i)]); });
    for (std::thread& thread : threads) thread.join();
    for (const auto& blocks : left_behind)
        for (void* block : blocks) vor_serv_deallocate(block);
}

} // namespace

int main() {
    run_all([](int, std::vector<void*>&) {
        vor::apply_settings();
        vor_in_serial();
        get_cfg_check();
    });
    run_all(use_blocks);
    VOR_FreeBuffers();
}
