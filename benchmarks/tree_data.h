// One tree in the notations of the library and its peers.
#pragma once

#include <cstdint>
#include <cstdio>
#include <map>
#include <random>
#include <string>
#include <utility>

#include "names.h"
#include "orv/orv.h"

namespace bench {

// ---- The tree: project, buildings, floors, rooms, parts; eight attributes a node ----

struct Texts {
    std::string bracketed, xml, json;
    std::size_t attributes = 0;
};

class TreeGenerator {
  public:
    explicit TreeGenerator(int buildings) : buildings_(buildings) {}

    Texts make() {
        texts_.xml = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n";
        node(0);
        return std::move(texts_);
    }

  private:
    static constexpr int kLevels = 5;

    void node(int level) {
        static constexpr const char* kNames[kLevels] = {"PROJEKT", "Gebaeude", "Geschoss", "Raum", "Bauteil"};
        const std::string tabs(static_cast<std::size_t>(level), '\t');
        texts_.bracketed += tabs + "[" + kNames[level] + "]\r\n";
        texts_.xml += tabs + "<" + kNames[level];
        texts_.json += tabs + "{\"n\":\"" + kNames[level] + "\",\"a\":{";
        isFirst_ = true;
        attribute(level, "Name", name(random_));
        attribute(level, "Bezeichnung", shortened(name(random_), 24));
        attribute(level, "guid", formatted("%08x-%04x", random_(), random_() & 0xFFFFU));
        attribute(level, "Laenge", formatted("%.2f", number()));
        attribute(level, "Breite", formatted("%.2f", number()));
        attribute(level, "Leistung",
                  formatted("%d:%d", static_cast<int>(random_() % 5000), static_cast<int>(random_() % 100)));
        attribute(level, "Temperatur", formatted("%.1f", number() / 50));
        attribute(level, "Nummer", formatted("%d", static_cast<int>(random_() % 100000)));
        const int children[kLevels] = {buildings_, 6, 20, 12, 0};
        texts_.xml += children[level] != 0 ? ">\n" : "/>\n";
        texts_.json += "},\"c\":[\n";
        for (int i = 0; i < children[level]; ++i) {
            if (i != 0) texts_.json += ",\n";
            node(level + 1);
        }
        texts_.bracketed += tabs + "[ENDE_" + kNames[level] + "]\r\n";
        if (children[level] != 0) texts_.xml += tabs + "</" + kNames[level] + ">\n";
        texts_.json += "]}";
    }
    template <class... Values>
    static std::string formatted(const char* format, Values... values) {
        char text[64];
        std::snprintf(text, sizeof text, format, values...);
        return text;
    }
    static std::string shortened(std::string text, std::size_t length) {
        if (length >= text.size()) return text;
        while ((text[length] & 0xC0) == 0x80)  // in the middle of a character
            --length;
        return text.substr(0, length);
    }
    double number() { return static_cast<double>(random_() % 100'000) / 100; }
    void attribute(int level, const char* name, const std::string& value) {
        texts_.bracketed += std::string(static_cast<std::size_t>(level) + 1, '\t') + name + ":" + value + "\r\n";
        texts_.xml += std::string(" ") + name + "=\"" + value + "\"";
        texts_.json += std::string(isFirst_ ? "" : ",") + "\"" + name + "\":\"" + value + "\"";
        isFirst_ = false;
        ++texts_.attributes;
    }

    int buildings_;
    std::mt19937 random_{11};
    bool isFirst_ = true;
    Texts texts_;
};

inline const Texts& texts(std::int64_t mebibytes) {
    static std::map<std::int64_t, Texts> all;
    Texts& made = all[mebibytes];
    if (made.attributes == 0) made = TreeGenerator(static_cast<int>(3 * mebibytes)).make();  // a building is 0.3 MiB
    return made;
}

inline const CString& wideText(std::int64_t mebibytes) {
    static std::map<std::int64_t, CString> all;
    CString& made = all[mebibytes];
    if (made.IsEmpty()) made = orvStdStrUtil::convertUtf8ToUnicode(texts(mebibytes).bracketed);
    return made;
}

}  // namespace bench
