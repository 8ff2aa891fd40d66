// Decimal numbers of any size: a whole number and how many of its digits stand behind the decimal point.
//
// Sums, differences and products are exact; quotients, powers and functions are rounded to a number of
// places. The evaluator is built on this. What would need more than mostDigits digits throws DecimalError,
// so that no expression can run for ever or fill the memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <gmp.h>

// Thrown where a number cannot be given; `code` is one of lang/messages.h.
struct DecimalError {
    unsigned code;
};

class Decimal {
public:
    static constexpr std::size_t mostDigits = 1000000;

    Decimal() { mpz_init(digits); }
    Decimal(std::int64_t value);
    Decimal(const Decimal& other) : places(other.places) { mpz_init_set(digits, other.digits); }
    Decimal(Decimal&& other) noexcept : places(other.places)
    {
        mpz_init(digits);
        mpz_swap(digits, other.digits);
    }
    Decimal& operator=(Decimal other) noexcept
    {
        mpz_swap(digits, other.digits);
        places = other.places;
        return *this;
    }
    ~Decimal() { mpz_clear(digits); }

    // A number of ASCII digits with at most one point among them.
    static Decimal FromDigits(const std::string& text);
    // The whole number that the units of `digits` mean in base 2, 8, 10 or 16.
    static Decimal FromBase(const std::string& text, int base);
    static Decimal FromUnsigned(std::uint64_t value);

    int Sign() const { return mpz_sgn(digits); }
    bool IsWhole() const;
    std::size_t Places() const { return places; }
    std::size_t WholeDigits() const; // an estimate, at most one too many

    Decimal operator-() const;
    Decimal Abs() const;
    friend Decimal operator+(const Decimal& a, const Decimal& b);
    friend Decimal operator-(const Decimal& a, const Decimal& b);
    friend Decimal operator*(const Decimal& a, const Decimal& b);
    static int Compare(const Decimal& a, const Decimal& b);

    // a / b to `places` places, rounded half away from zero. `exact` tells that nothing was lost. The divisor
    // is not zero in these three.
    static Decimal Divide(const Decimal& a, const Decimal& b, std::size_t places, bool& exact);
    static Decimal Quotient(const Decimal& a, const Decimal& b);  // whole, the fraction dropped
    static Decimal Remainder(const Decimal& a, const Decimal& b); // with the sign of a
    Decimal PowerOfWhole(unsigned long exponent) const;           // exact
    Decimal TimesPowerOfTwo(unsigned long exponent) const;        // exact
    Decimal DividedByPowerOfTwo(unsigned long exponent) const;    // of a whole number, the fraction dropped
    static Decimal Factorial(unsigned long n);

    // With `wanted` places or fewer: half away from zero; towards zero; down.
    Decimal Rounded(std::size_t wanted) const;
    Decimal Truncated() const;
    Decimal Floor() const;
    Decimal Shifted(std::int64_t exponent) const; // times a power of ten, exact

    // Whole part as a 64-bit number, at the nearest limit when it is out of range.
    std::int64_t ToInt64() const;
    // The same for bit patterns: 2^63 to 2^64 - 1 keep their bits.
    std::uint64_t ToBits() const;

    // "-12.340" with exactly `wanted` places, rounded half away from zero; never "-0".
    std::string Fixed(std::size_t wanted) const;
    // "-1.2340E+1" with `wanted` places.
    std::string Scientific(std::size_t wanted) const;
    std::string InBase(int base) const;    // the whole part as an unsigned 64-bit pattern; -16 for capitals
    std::string WholeText(int base) const; // all digits of a whole number, capitals beyond 9

    // For the functions of decimal_functions.cpp: the number is AllDigits() / 10^Places().
    mpz_srcptr AllDigits() const { return digits; }
    static Decimal FromWhole(mpz_srcptr value, std::size_t places);

private:
    void RaisePlaces(std::size_t wanted);
    void CheckSize() const;
    void DropZeros();

    mpz_t digits;
    std::size_t places = 0;
};
