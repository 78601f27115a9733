// What a system says about one file or folder, in the layout of the product's system (its wide find record), so that a
// record can be handed to that system's calls and back.
#pragma once

#include <cstdint>

namespace orv {

/// 100 ns units since 1601-01-01 UTC, in two halves.
struct FileTimeHalves {
    std::uint32_t low;
    std::uint32_t high;
};

struct FindRecord {
    // Bits of `attributes`.
    static constexpr std::uint32_t kReadOnly = 0x1;
    static constexpr std::uint32_t kFolder = 0x10;
    static constexpr std::uint32_t kNormal = 0x80;
    static constexpr std::uint32_t kReparsePoint = 0x400;
    // Tags of reparse points: this bit means that the entry stands for another one, as a link or a junction does.
    static constexpr std::uint32_t kNameSurrogate = 0x20000000;
    static constexpr std::uint32_t kSymbolicLink = 0xA000000C;

    std::uint32_t attributes;
    FileTimeHalves creation;
    FileTimeHalves lastAccess;
    FileTimeHalves lastWrite;
    std::uint32_t sizeHigh;
    std::uint32_t sizeLow;
    std::uint32_t reparseTag;  // of a reparse point
    std::uint32_t reserved;
    wchar_t name[260];  // without folder
    wchar_t shortName[14];

    bool isFolder() const { return (attributes & kFolder) != 0; }
    bool isLink() const { return (attributes & kReparsePoint) != 0 && (reparseTag & kNameSurrogate) != 0; }
    /// "." or "..".
    bool isSelfOrParent() const { return name[0] == L'.' && (name[1] == 0 || (name[1] == L'.' && name[2] == 0)); }
};

static_assert(sizeof(FindRecord) == 592);

}  // namespace orv
