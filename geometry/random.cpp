#include "orv/random.h"

#include <algorithm>
#include <random>

namespace {

using orvRandom::enRandom;

// The engine for a kind of number, seeded with one value from the device.
std::mt19937 engineFor(int /*kind*/, std::random_device& device) { return std::mt19937(device()); }
std::mt19937_64 engineFor(double /*kind*/, std::random_device& device) { return std::mt19937_64(device()); }

template <class Source>
void fill(std::span<int> values, int low, int high, Source& source) {
    std::uniform_int_distribution<int> distribution(std::min(low, high), std::max(low, high));
    for (int& value : values)
        value = distribution(source);
}

template <class Source>
void fill(std::span<double> values, double low, double high, Source& source) {
    for (double& value : values)
        value = std::generate_canonical<double, 53>(source) * (high - low) + low;
}

template <class Number>
void fillFrom(std::span<Number> values, Number low, Number high, enRandom source) {
    std::random_device device;
    if (source == orvRandom::eMersenneTwister) {
        auto engine = engineFor(Number{}, device);
        fill(values, low, high, engine);
    } else {
        fill(values, low, high, device);
    }
}

bool isSource(enRandom source) { return source == orvRandom::eMersenneTwister || source == orvRandom::eRandomDevice; }

template <class Number>
void fillPointer(Number*& values, int count, Number low, Number high, enRandom source) {
    if (count < 0) return;
    const std::size_t size = static_cast<std::size_t>(count);
    if (values == nullptr) values = new Number[size]();
    if (isSource(source)) fillFrom(std::span<Number>(values, size), low, high, source);
}

}  // namespace

namespace orvRandom {

int generateRndNumber(int min, int max, enRandom source) {
    int value = 0;
    fillFrom(std::span<int>(&value, 1), min, max, source);
    return value;
}

double generateRndNumber(double min, double max, enRandom source) {
    double value = 0.0;
    fillFrom(std::span<double>(&value, 1), min, max, source);
    return value;
}

void generateRndNumbers(int*& values, int count, int min, int max, enRandom source) {
    fillPointer(values, count, min, max, source);
}

void generateRndNumbers(double*& values, int count, double min, double max, enRandom source) {
    fillPointer(values, count, min, max, source);
}

}  // namespace orvRandom

namespace orv {

namespace {

// std::mt19937 with results of exactly 32 bits.
using Twister = std::mersenne_twister_engine<std::uint32_t, 32, 624, 397, 31, 0x9908B0DFU, 11, 0xFFFFFFFFU, 7,
                                             0x9D2C5680U, 15, 0xEFC60000U, 18, 1812433253U>;

}  // namespace

// Written out, because what the standard's distributions make of an engine differs between libraries.
void fillRandom(std::span<int> values, int min, int max, std::uint32_t seed) {
    Twister engine(seed);
    const std::uint32_t low = static_cast<std::uint32_t>(std::min(min, max));
    const std::uint32_t range = static_cast<std::uint32_t>(std::max(min, max)) - low;  // numbers - 1
    for (int& value : values) {
        std::uint32_t draw = engine();
        if (range != UINT32_MAX) {
            // Draws below 2^32 mod (range + 1) are drawn again, so that every number has the same share.
            const std::uint32_t rejected = (0U - (range + 1U)) % (range + 1U);
            while (draw < rejected)
                draw = engine();
            draw %= range + 1U;
        }
        value = static_cast<int>(low + draw);
    }
}

void fillRandom(std::span<double> values, double min, double max, std::uint64_t seed) {
    std::mt19937_64 engine(seed);
    for (double& value : values) {
        const double unit = static_cast<double>(engine() >> 11) * 0x1p-53;
        value = unit * (max - min) + min;
    }
}

}  // namespace orv
