// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <unordered_map>

// Sparse byte memory over the whole 64-bit address range; what was never written reads as zero.
// Addresses wrap around. Owned by a simulated device, which serialises.
class RegisterMemory
{
public:
    void read(std::uint64_t address, void* bytes, std::size_t count) const;
    void write(std::uint64_t address, const void* bytes, std::size_t count);

    // An integer of 1 to 8 bytes; higher bytes of the value are cut off. Reads as unsigned.
    void writeInteger(std::uint64_t address, std::size_t bytes, bool bigEndian, std::int64_t value);
    // An IEEE 754 number of 4 or 8 bytes.
    void writeFloat(std::uint64_t address, std::size_t bytes, bool bigEndian, double value);
    std::int64_t readInteger(std::uint64_t address, std::size_t bytes, bool bigEndian) const;
    double readFloat(std::uint64_t address, std::size_t bytes, bool bigEndian) const;
    // A text, cut or filled with NUL to `bytes`.
    void writeText(std::uint64_t address, std::size_t bytes, const std::string& text);

    // The bytes from `first` to `last` (included) that lie in touched pages, as a memory of their
    // own; and the way back, which leaves all other bytes alone. Both work in whole pages, so
    // `first` must be a multiple of kPageBytes and `last` one less than a multiple.
    RegisterMemory copyOf(std::uint64_t first, std::uint64_t last) const;
    void replace(std::uint64_t first, std::uint64_t last, const RegisterMemory& with);

    static constexpr std::uint64_t kPageBytes = 256;

private:
    using Page = std::array<unsigned char, kPageBytes>;
    std::unordered_map<std::uint64_t, Page> m_pages; // by address / kPageBytes
};
