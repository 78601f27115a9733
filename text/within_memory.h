// Failure of memory as failure of a call.
#pragma once

#include <new>

namespace orv {

/// The result of work(); false when memory runs out, which for the readers and writers of files is one more reason why
/// a file cannot be read or written: they do not throw.
template <class Work>
bool withinMemory(Work work) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return false;
    }
}

}  // namespace orv
