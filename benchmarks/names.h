// The inputs of the text benchmarks: names as a parts list has them, the same on every run.
#pragma once

#include <malloc.h>

#include <iterator>
#include <random>
#include <string>

namespace bench {

/// The C library keeps what is freed, for the library and its peers alike: on many machines the first touch of a fresh
/// page costs as much as the work on it.
inline const bool kWarmHeap = [] {
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, 0x7fffffff);
    mallopt(M_TOP_PAD, 16 << 20);
    return true;
}();

/// About 25 characters of UTF-8, such as "Rückschlagklappe Süd 1234".
inline std::string name(std::mt19937& random) {
    static const char* const kWords[] = {"Heizkörper",
                                         "Wärmepumpe",
                                         "Lüftungskanal",
                                         "Rückschlagklappe",
                                         "Fußbodenheizung",
                                         "Pufferspeicher",
                                         "Drosselklappe",
                                         "Zirkulationspumpe",
                                         "Ausdehnungsgefäß",
                                         "Schmutzfänger",
                                         "Gaszähler",
                                         "Übergabestation",
                                         "Kälteträger",
                                         "Rohrleitung",
                                         "Thermostatkopf",
                                         "Kugelhahn",
                                         "Vorlauf",
                                         "Rücklauf",
                                         "Dachgeschoss",
                                         "Küche",
                                         "Büro",
                                         "Bad",
                                         "Flur",
                                         "Süd",
                                         "Nord",
                                         "Außenwand",
                                         "Tür",
                                         "Fenster",
                                         "Schacht",
                                         "Zuluft"};
    const auto word = [&] { return std::string(kWords[random() % std::size(kWords)]); };
    const std::string first = word();
    return first + " " + word() + " " + std::to_string(random() % 10000);
}

}  // namespace bench
