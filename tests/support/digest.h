// One number for an output that is too long to write down.
#pragma once

class Digest { // FNV-1a of 64 bits, folded
public:
    void Add(unsigned value) {
        for (int shift = 0; shift < 32; shift += 8)
            m_hash = (m_hash ^ (value >> shift & 0xff)) * 0x100000001b3;
    }
    template <class Range>
    void AddAll(const Range& units) {
        for (const auto unit : units)
            Add(unit);
    }
    unsigned Get() const { return static_cast<unsigned>(m_hash ^ m_hash >> 32); }

private:
    unsigned long long m_hash = 0xcbf29ce484222325;
};
