#pragma once

namespace pelrath {

/// Whether the processor has registers of 32 bytes for whole numbers, too (AVX2).
[[nodiscard]] inline bool hasWideRegisters() { return __builtin_cpu_supports("avx2") != 0; }

} // namespace pelrath
