#!/usr/bin/env python3
"""Writes framework/character_table.inc: classes and simple case mappings of all 16-bit characters.

Run it as  scripts/make_character_table.py > framework/character_table.inc  and review the difference: a new version of
Python's character data may add characters.
"""
import unicodedata

SPACES = set(range(0x09, 0x0E)) | {0x20, 0x85, 0xA0, 0x1680, 0x2028, 0x2029, 0x202F, 0x205F, 0x3000} | set(
    range(0x2000, 0x200B))
SPACE, LETTER, DIGIT = 1, 2, 4
BLOCK = 64


def one(text, ch):
    """The code of a one-character mapping inside the 16-bit range, else the character itself."""
    return ord(text) if len(text) == 1 and ord(text) < 0x10000 else ch


def properties(ch):
    if 0xD800 <= ch < 0xE000:
        return (0, 0, 0, 0)
    c = chr(ch)
    category = unicodedata.category(c)
    flags = (SPACE if ch in SPACES else 0) | (LETTER if category[0] == "L" else 0) | (DIGIT if category == "Nd" else 0)
    lower = 0x69 if ch == 0x130 else one(c.lower(), ch)
    upper = one(c.upper() if len(c.upper()) == 1 else c.title(), ch)
    fold = one(c.casefold() if len(c.casefold()) == 1 else c.lower(), ch)
    return (flags, (lower - ch) & 0xFFFF, (upper - ch) & 0xFFFF, (fold - ch) & 0xFFFF)


def rows(values, width):
    line = "   "
    for value in values:
        word = f" {value},"
        if len(line) + len(word) > width:
            print(line)
            line = "   "
        line += word
    print(line)


kinds, blocks, index = {}, {}, []
for start in range(0, 0x10000, BLOCK):
    block = tuple(kinds.setdefault(properties(ch), len(kinds)) for ch in range(start, start + BLOCK))
    index.append(blocks.setdefault(block, len(blocks)))
assert len(kinds) < 256 and len(blocks) < 256

print(f"// Made by scripts/make_character_table.py from the character data of Unicode {unicodedata.unidata_version}.")
print("// Flags (1 space, 2 letter, 4 digit) and what is added, modulo 65536, for lower case, upper case and folded case.")
print(f"constexpr CharacterKind kKinds[{len(kinds)}] = {{")
for kind in kinds:
    print("    {%d, %d, %d, %d}," % kind)
print("};")
print(f"constexpr std::uint8_t kBlockOfCharacter[{len(index)}] = {{")
rows(index, 120)
print("};")
print(f"constexpr std::uint8_t kKindInBlock[{len(blocks)}][{BLOCK}] = {{")
for block in blocks:
    print("    {" + ",".join(str(kind) for kind in block) + "},")
print("};")
