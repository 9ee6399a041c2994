#pragma once

#include <cstdint>
#include <initializer_list>

namespace vd {

// A set over a small enumeration (at most 64 values), one bit per value: TTokenKinds is
// TVdSet<TTokenKind>.
template <class Enum> class TVdSet
{
public:
    constexpr TVdSet() = default;
    constexpr TVdSet(std::initializer_list<Enum> values)
    {
        for (Enum value : values)
            FBits |= Bit(value);
    }
    static constexpr TVdSet FromBits(std::uint64_t bits)
    {
        TVdSet set;
        set.FBits = bits;
        return set;
    }

    constexpr bool Contains(Enum value) const { return FBits & Bit(value); }
    constexpr TVdSet& Include(Enum value)
    {
        FBits |= Bit(value);
        return *this;
    }
    constexpr TVdSet& Exclude(Enum value)
    {
        FBits &= ~Bit(value);
        return *this;
    }
    constexpr bool Empty() const { return FBits == 0; }
    constexpr std::uint64_t Bits() const { return FBits; }
    constexpr TVdSet operator|(TVdSet other) const { return FromBits(FBits | other.FBits); }
    constexpr TVdSet operator&(TVdSet other) const { return FromBits(FBits & other.FBits); }
    constexpr bool operator==(const TVdSet&) const = default;

private:
    static constexpr std::uint64_t Bit(Enum value) { return std::uint64_t(1) << unsigned(value); }

    std::uint64_t FBits = 0;
};

} // namespace vd
