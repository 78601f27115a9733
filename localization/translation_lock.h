// The lock of all translation: taken for a few nanoseconds a million times, and rarely for the loading of a file.
#pragma once

#include <emmintrin.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace orv {

/// Leaving it is one plain store, which a mutex that lets others sleep cannot do. Who waits spins, then yields, then
/// sleeps, so that a thread of any priority gets to leave it.
class TranslationLock {
  public:
    void lock() {
        for (unsigned round = 0; isTaken_.exchange(true, std::memory_order_acquire); ++round)
            wait(round);
    }
    void unlock() { isTaken_.store(false, std::memory_order_release); }

  private:
    static void wait(unsigned round) {
        constexpr unsigned kSpins = 64;
        constexpr unsigned kYields = 128;
        if (round < kSpins) {
            _mm_pause();
        } else if (round < kYields) {
            std::this_thread::yield();
        } else {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

    std::atomic<bool> isTaken_{false};
};

}  // namespace orv
