// Random numbers for test and simulation tables.
//
// An unseeded call starts afresh: no state survives between calls, and any thread may call. The seeded forms give the
// same numbers on every system.
#pragma once

#include <cstdint>
#include <span>

#include "orv/export.h"
#include "orv/framework/arrays.h"

namespace orvRandom {

/// Where the numbers come from. Other values have a meaning too: see the functions.
enum enRandom : int {
    eMersenneTwister = 0,  // a Mersenne Twister made for the call and seeded from the system's random device: the
                           // 32-bit engine for integers, the 64-bit one for doubles
    eRandomDevice = 1      // the system's non-deterministic random device itself
};

/// Uniform in min..max, both included; max..min when min is the larger one. Any source but 0 is the random device.
ORV_API int generateRndNumber(int min, int max, enRandom source);
/// u * (max - min) + min with u uniform in 0..1, 1 excluded. Any source but 0 is the random device.
ORV_API double generateRndNumber(double min, double max, enRandom source);

/// Fills `values` with `count` numbers from one engine. Null: a new array of zeros, which the caller frees with
/// delete[], is made first. A source other than 0 and 1 generates nothing. A count below 0 does nothing at all.
ORV_API void generateRndNumbers(int*& values, int count, int min, int max, enRandom source);
ORV_API void generateRndNumbers(double*& values, int count, double min, double max, enRandom source);

/// The same into an array that is set to that size (a count below 0 raises CInvalidArgException).
template <class ARG_TYPE>
void generateRndNumbers(CArray<int, ARG_TYPE>& values, int count, int min, int max, enRandom source) {
    values.SetSize(count);
    int* first = values.GetData();
    if (first != nullptr) generateRndNumbers(first, count, min, max, source);
}
template <class ARG_TYPE>
void generateRndNumbers(CArray<double, ARG_TYPE>& values, int count, double min, double max, enRandom source) {
    values.SetSize(count);
    double* first = values.GetData();
    if (first != nullptr) generateRndNumbers(first, count, min, max, source);
}

}  // namespace orvRandom

namespace orv {

/// Fill `values` with numbers as above that depend on the seed alone (Mersenne Twister, 32-bit for integers, 64-bit for
/// doubles).
ORV_API void fillRandom(std::span<int> values, int min, int max, std::uint32_t seed);
ORV_API void fillRandom(std::span<double> values, double min, double max, std::uint64_t seed);

}  // namespace orv
