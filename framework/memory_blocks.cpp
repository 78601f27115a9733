#include "framework/memory_blocks.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <mutex>
#include <new>
#include <utility>

namespace orv {
namespace {

constexpr std::size_t kGranule = 64 * 1024;
constexpr std::size_t kMostBlocks = 64;

struct Kept {
    void* block;
    std::size_t bytes;
};

/// Kept blocks in the order in which they came, the oldest first.
class BlockCache {
  public:
    /// The smallest block that has `bytes` and is not more than twice too large; null when there is none.
    Kept take(std::size_t bytes) {
        const std::lock_guard lock(mutex_);
        std::size_t best = count_;
        for (std::size_t i = 0; i < count_; ++i) {
            const std::size_t size = kept_[i].bytes;
            if (size >= bytes && size / 2 <= bytes && (best == count_ || size < kept_[best].bytes)) best = i;
        }
        return best == count_ ? Kept{nullptr, 0} : removeAt(best);
    }

    void put(Kept item) {
        std::array<void*, kMostBlocks + 1> surplus;
        std::size_t surplusCount = 0;
        {
            const std::lock_guard lock(mutex_);
            if (closed_ || item.bytes > kKeptBlockBytes) {
                surplus[surplusCount++] = item.block;
            } else {
                while (count_ == kMostBlocks || bytes_ + item.bytes > kKeptBlockBytes) {
                    surplus[surplusCount++] = removeAt(0).block;
                }
                kept_[count_++] = item;
                bytes_ += item.bytes;
            }
        }
        // Freeing outside the lock: it unmaps pages.
        std::for_each_n(surplus.begin(), surplusCount, std::free);
    }

    /// Keeps nothing any more: the library is being unloaded, but texts may still be freed.
    void close() {
        {
            const std::lock_guard lock(mutex_);
            closed_ = true;
        }
        clear();
    }

    void clear() {
        for (;;) {
            void* block = nullptr;
            {
                const std::lock_guard lock(mutex_);
                if (count_ == 0) return;
                block = removeAt(count_ - 1).block;
            }
            std::free(block);
        }
    }

  private:
    Kept removeAt(std::size_t index) {
        const Kept item = kept_[index];
        std::copy(kept_.begin() + static_cast<std::ptrdiff_t>(index) + 1,
                  kept_.begin() + static_cast<std::ptrdiff_t>(count_),
                  kept_.begin() + static_cast<std::ptrdiff_t>(index));
        --count_;
        bytes_ -= item.bytes;
        return item;
    }

    std::mutex mutex_;
    std::array<Kept, kMostBlocks> kept_{};
    std::size_t count_ = 0;
    std::size_t bytes_ = 0;
    bool closed_ = false;
};

struct Closer {
    BlockCache& cache;
    ~Closer() { cache.close(); }
};

/// Itself never destroyed: static texts of the host may be freed after every static object here.
BlockCache& cache() {
    alignas(BlockCache) static unsigned char storage[sizeof(BlockCache)];
    static BlockCache& instance = *new (storage) BlockCache;
    static const Closer closer{instance};
    return instance;
}

}  // namespace

void* allocateLarge(std::size_t& bytes) {
    if (bytes > std::numeric_limits<std::size_t>::max() - kGranule) throw std::bad_alloc();
    const std::size_t wanted = std::max(kLargeBlock, (bytes + kGranule - 1) / kGranule * kGranule);
    Kept item = cache().take(wanted);
    if (item.block == nullptr) {
        item = {std::malloc(wanted), wanted};
        if (item.block == nullptr) {
            cache().clear();
            item.block = std::malloc(wanted);
        }
        if (item.block == nullptr) throw std::bad_alloc();
    }
    bytes = item.bytes;
    return item.block;
}

void freeLarge(void* block, std::size_t bytes) noexcept {
    if (block != nullptr) cache().put({block, bytes});
}

}  // namespace orv
