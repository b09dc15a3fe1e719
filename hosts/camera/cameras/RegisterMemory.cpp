// SPDX-License-Identifier: Apache-2.0
#include "cameras/RegisterMemory.h"

#include <algorithm>
#include <cstring>

void RegisterMemory::read(std::uint64_t address, void* bytes, std::size_t count) const
{
    auto* out = static_cast<unsigned char*>(bytes);
    while (count > 0) {
        const std::uint64_t offset = address % kPageBytes;
        const std::size_t part = std::min<std::size_t>(count, kPageBytes - offset);
        const auto page = m_pages.find(address / kPageBytes);
        if (page == m_pages.end())
            std::memset(out, 0, part);
        else
            std::memcpy(out, page->second.data() + offset, part);
        out += part;
        address += part;
        count -= part;
    }
}

void RegisterMemory::write(std::uint64_t address, const void* bytes, std::size_t count)
{
    const auto* in = static_cast<const unsigned char*>(bytes);
    while (count > 0) {
        const std::uint64_t offset = address % kPageBytes;
        const std::size_t part = std::min<std::size_t>(count, kPageBytes - offset);
        Page& page = m_pages.try_emplace(address / kPageBytes, Page{}).first->second;
        std::memcpy(page.data() + offset, in, part);
        in += part;
        address += part;
        count -= part;
    }
}

void RegisterMemory::writeInteger(std::uint64_t address, std::size_t bytes, bool bigEndian,
                                  std::int64_t value)
{
    std::array<unsigned char, 8> raw{};
    bytes = std::min(bytes, raw.size());
    auto bits = static_cast<std::uint64_t>(value);
    for (std::size_t i = 0; i < bytes; ++i) {
        raw[bigEndian ? bytes - 1 - i : i] = static_cast<unsigned char>(bits & 0xFFU);
        bits >>= 8U;
    }
    write(address, raw.data(), bytes);
}

void RegisterMemory::writeFloat(std::uint64_t address, std::size_t bytes, bool bigEndian,
                                double value)
{
    std::int64_t bits = 0;
    if (bytes == sizeof(float)) {
        const auto narrow = static_cast<float>(value);
        std::int32_t raw = 0;
        std::memcpy(&raw, &narrow, sizeof raw);
        bits = raw;
    } else {
        bytes = sizeof value;
        std::memcpy(&bits, &value, sizeof bits);
    }
    writeInteger(address, bytes, bigEndian, bits);
}

std::int64_t RegisterMemory::readInteger(std::uint64_t address, std::size_t bytes,
                                         bool bigEndian) const
{
    std::array<unsigned char, 8> raw{};
    bytes = std::min(bytes, raw.size());
    read(address, raw.data(), bytes);
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < bytes; ++i)
        bits = (bits << 8U) | raw[bigEndian ? i : bytes - 1 - i];
    return static_cast<std::int64_t>(bits);
}

double RegisterMemory::readFloat(std::uint64_t address, std::size_t bytes, bool bigEndian) const
{
    const std::int64_t bits = readInteger(address, bytes, bigEndian);
    if (bytes == sizeof(float)) {
        const auto raw = static_cast<std::uint32_t>(bits);
        float narrow = 0.0F;
        std::memcpy(&narrow, &raw, sizeof narrow);
        return static_cast<double>(narrow);
    }
    double value = 0.0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

void RegisterMemory::writeText(std::uint64_t address, std::size_t bytes, const std::string& text)
{
    std::string padded = text.substr(0, bytes);
    padded.resize(bytes, '\0');
    write(address, padded.data(), padded.size());
}

RegisterMemory RegisterMemory::copyOf(std::uint64_t first, std::uint64_t last) const
{
    RegisterMemory copy;
    for (const auto& [number, page] : m_pages) {
        if (number >= first / kPageBytes && number <= last / kPageBytes)
            copy.m_pages.emplace(number, page);
    }
    return copy;
}

void RegisterMemory::replace(std::uint64_t first, std::uint64_t last, const RegisterMemory& with)
{
    for (auto page = m_pages.begin(); page != m_pages.end();) {
        const bool inside = page->first >= first / kPageBytes && page->first <= last / kPageBytes;
        page = inside ? m_pages.erase(page) : std::next(page);
    }
    for (const auto& [number, page] : with.m_pages)
        m_pages.emplace(number, page);
}
