// Random 32-bit numbers that are the same everywhere.
#pragma once

#include <cstdint>
#include <random>

class Random {
  public:
    using result_type = std::uint32_t;
    explicit Random(std::uint32_t seed) : engine_(seed) {}
    static constexpr result_type min() { return 0; }
    static constexpr result_type max() { return 0xFFFFFFFFU; }
    result_type operator()() { return static_cast<result_type>(engine_() >> 32U); }

  private:
    std::mt19937_64 engine_;
};
