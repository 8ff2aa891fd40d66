#include "expand/decimal.h"

#include <algorithm>
#include <limits>

#include "lang/errors.h"

namespace {

// A whole number that lives for one calculation.
class Whole {
public:
    Whole() { mpz_init(value); }
    ~Whole() { mpz_clear(value); }
    Whole(const Whole&) = delete;
    Whole& operator=(const Whole&) = delete;
    operator mpz_ptr() { return value; }

private:
    mpz_t value;
};

void SetPowerOfTen(mpz_ptr target, std::size_t exponent)
{
    mpz_ui_pow_ui(target, 10, static_cast<unsigned long>(exponent));
}

[[noreturn]] void TooLarge() { throw DecimalError{errors::numberTooLarge}; }

void SetInt64(mpz_ptr target, std::uint64_t magnitude, bool negative)
{
    // A long has 32 bits on Windows.
    mpz_set_ui(target, static_cast<unsigned long>(magnitude >> 32));
    mpz_mul_2exp(target, target, 32);
    mpz_add_ui(target, target, static_cast<unsigned long>(magnitude & 0xFFFFFFFFu));
    if (negative)
        mpz_neg(target, target);
}

std::uint64_t LowBits(mpz_srcptr value)
{
    std::uint64_t bits = 0;
    Whole low;
    mpz_fdiv_r_2exp(low, value, 64);
    mpz_export(&bits, nullptr, -1, sizeof bits, 0, 0, low);
    return bits;
}

// A negative base gives capital letters.
std::string DigitsOf(mpz_srcptr value, int base)
{
    std::string text(mpz_sizeinbase(value, base < 0 ? -base : base) + 2, '\0');
    mpz_get_str(text.data(), base, value);
    text.resize(text.find('\0'));
    return text;
}

// value / 10^drop, rounded half away from zero.
void DivideRounded(mpz_ptr target, mpz_srcptr value, mpz_srcptr divisor)
{
    Whole rest;
    mpz_tdiv_qr(target, rest, value, divisor);
    const int sign = mpz_sgn(static_cast<mpz_srcptr>(rest)) * mpz_sgn(divisor);
    mpz_mul_2exp(rest, rest, 1);
    if (mpz_cmpabs(rest, divisor) < 0)
        return;
    if (sign > 0)
        mpz_add_ui(target, target, 1);
    else
        mpz_sub_ui(target, target, 1);
}

} // namespace

Decimal::Decimal(std::int64_t value)
{
    mpz_init(digits);
    SetInt64(digits, value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value),
             value < 0);
}

Decimal Decimal::FromUnsigned(std::uint64_t value)
{
    Decimal result;
    SetInt64(result.digits, value, false);
    return result;
}

Decimal Decimal::FromWhole(mpz_srcptr value, std::size_t places)
{
    Decimal result;
    mpz_set(result.digits, value);
    result.places = places;
    result.DropZeros();
    return result;
}

Decimal Decimal::FromBase(const std::string& text, int base)
{
    if (text.size() > mostDigits)
        TooLarge();
    Decimal result;
    if (mpz_set_str(result.digits, text.c_str(), base) != 0)
        throw DecimalError{errors::syntax};
    return result;
}

Decimal Decimal::FromDigits(const std::string& text)
{
    const std::size_t point = text.find('.');
    if (point == std::string::npos)
        return FromBase(text, 10);
    Decimal result = FromBase(text.substr(0, point) + text.substr(point + 1), 10);
    result.places = text.size() - point - 1;
    result.DropZeros();
    return result;
}

// Places that hold zeros only would make every later product longer.
void Decimal::DropZeros()
{
    if (places == 0)
        return;
    if (mpz_sgn(digits) == 0) {
        places = 0;
        return;
    }
    // A number that ends in n zeros is divisible by 2^n.
    const std::size_t most = std::min<std::size_t>(places, mpz_scan1(digits, 0));
    if (most == 0)
        return;
    Whole power;
    std::size_t dropped = 0;
    for (std::size_t step = most; step > 0; step /= 2) {
        while (dropped + step <= most) {
            SetPowerOfTen(power, step);
            if (!mpz_divisible_p(digits, power))
                break;
            mpz_divexact(digits, digits, power);
            dropped += step;
        }
    }
    places -= dropped;
}

void Decimal::CheckSize() const
{
    if (mpz_sizeinbase(digits, 2) / 3 > mostDigits || places > mostDigits)
        TooLarge();
}

void Decimal::RaisePlaces(std::size_t wanted)
{
    if (wanted <= places)
        return;
    if (mpz_sizeinbase(digits, 2) * 3 / 10 + (wanted - places) > mostDigits)
        TooLarge();
    Whole power;
    SetPowerOfTen(power, wanted - places);
    mpz_mul(digits, digits, power);
    places = wanted;
}

bool Decimal::IsWhole() const
{
    if (places == 0)
        return true;
    Whole power;
    SetPowerOfTen(power, places);
    return mpz_divisible_p(digits, power) != 0;
}

std::size_t Decimal::WholeDigits() const
{
    const std::size_t all = mpz_sizeinbase(digits, 10);
    return all > places ? all - places : 1;
}

Decimal Decimal::operator-() const
{
    Decimal result(*this);
    mpz_neg(result.digits, result.digits);
    return result;
}

Decimal Decimal::Abs() const
{
    Decimal result(*this);
    mpz_abs(result.digits, result.digits);
    return result;
}

Decimal operator+(const Decimal& a, const Decimal& b)
{
    Decimal result(a);
    if (a.places == b.places) {
        mpz_add(result.digits, result.digits, b.digits);
    } else {
        Decimal other(b);
        result.RaisePlaces(b.places);
        other.RaisePlaces(a.places);
        mpz_add(result.digits, result.digits, other.digits);
    }
    result.CheckSize();
    return result;
}

Decimal operator-(const Decimal& a, const Decimal& b) { return a + -b; }

Decimal operator*(const Decimal& a, const Decimal& b)
{
    if ((mpz_sizeinbase(a.digits, 2) + mpz_sizeinbase(b.digits, 2)) / 4 > Decimal::mostDigits)
        TooLarge();
    Decimal result;
    mpz_mul(result.digits, a.digits, b.digits);
    result.places = a.places + b.places;
    result.CheckSize();
    return result;
}

int Decimal::Compare(const Decimal& a, const Decimal& b)
{
    if (a.places == b.places)
        return mpz_cmp(a.digits, b.digits);
    return (a - b).Sign();
}

Decimal Decimal::Divide(const Decimal& a, const Decimal& b, std::size_t places, bool& exact)
{
    // a.digits / b.digits x 10^(b.places - a.places), to `places` places.
    Decimal dividend(a);
    Decimal divisor(b);
    const std::size_t wanted = places + b.places;
    dividend.places = 0;
    divisor.places = 0;
    if (wanted >= a.places)
        dividend.RaisePlaces(wanted - a.places);
    else
        divisor.RaisePlaces(a.places - wanted);
    Decimal result;
    exact = mpz_divisible_p(dividend.digits, divisor.digits) != 0;
    DivideRounded(result.digits, dividend.digits, divisor.digits);
    result.places = places;
    result.DropZeros();
    return result;
}

Decimal Decimal::Quotient(const Decimal& a, const Decimal& b)
{
    Decimal dividend(a);
    Decimal divisor(b);
    dividend.RaisePlaces(b.places);
    divisor.RaisePlaces(a.places);
    mpz_tdiv_q(dividend.digits, dividend.digits, divisor.digits);
    dividend.places = 0;
    return dividend;
}

Decimal Decimal::Remainder(const Decimal& a, const Decimal& b)
{
    Decimal dividend(a);
    Decimal divisor(b);
    dividend.RaisePlaces(b.places);
    divisor.RaisePlaces(a.places);
    mpz_tdiv_r(dividend.digits, dividend.digits, divisor.digits);
    dividend.DropZeros();
    return dividend;
}

Decimal Decimal::PowerOfWhole(unsigned long exponent) const
{
    const std::size_t bits = mpz_sizeinbase(digits, 2);
    const bool small = mpz_cmpabs_ui(digits, 1) <= 0;
    if (!small && (exponent > mostDigits * 4 || (bits - 1) * exponent / 4 > mostDigits))
        TooLarge();
    if (places != 0 && exponent > mostDigits / places)
        TooLarge();
    Decimal result;
    mpz_pow_ui(result.digits, digits, exponent);
    result.places = places * exponent;
    result.CheckSize();
    return result;
}

Decimal Decimal::TimesPowerOfTwo(unsigned long exponent) const
{
    if (Sign() != 0 && exponent > mostDigits * 4)
        TooLarge();
    Decimal result;
    if (Sign() != 0)
        mpz_mul_2exp(result.digits, digits, exponent);
    result.places = places;
    result.CheckSize();
    return result;
}

Decimal Decimal::DividedByPowerOfTwo(unsigned long exponent) const
{
    Decimal result = Truncated();
    mpz_tdiv_q_2exp(result.digits, result.digits, exponent);
    return result;
}

Decimal Decimal::Factorial(unsigned long n)
{
    constexpr unsigned long most = 205022; // the last one with no more than mostDigits digits
    if (n > most)
        TooLarge();
    Decimal result;
    mpz_fac_ui(result.digits, n);
    return result;
}

Decimal Decimal::Rounded(std::size_t wanted) const
{
    Decimal result(*this);
    if (places <= wanted)
        return result;
    Whole power;
    SetPowerOfTen(power, places - wanted);
    DivideRounded(result.digits, digits, power);
    result.places = wanted;
    return result;
}

Decimal Decimal::Truncated() const
{
    Decimal result(*this);
    if (places == 0)
        return result;
    Whole power;
    SetPowerOfTen(power, places);
    mpz_tdiv_q(result.digits, digits, power);
    result.places = 0;
    return result;
}

Decimal Decimal::Floor() const
{
    Decimal result(*this);
    if (places == 0)
        return result;
    Whole power;
    SetPowerOfTen(power, places);
    mpz_fdiv_q(result.digits, digits, power);
    result.places = 0;
    return result;
}

Decimal Decimal::Shifted(std::int64_t exponent) const
{
    Decimal result(*this);
    if (exponent < 0) {
        result.places += static_cast<std::size_t>(-exponent);
        result.CheckSize();
        result.DropZeros();
        return result;
    }
    const std::size_t up = static_cast<std::size_t>(exponent);
    if (result.Sign() == 0)
        return Decimal();
    if (up <= result.places) {
        result.places -= up;
        return result;
    }
    result.RaisePlaces(up);
    result.places -= up;
    return result;
}

std::int64_t Decimal::ToInt64() const
{
    const Decimal whole = Truncated();
    if (mpz_sizeinbase(whole.digits, 2) > 63) {
        return whole.Sign() < 0 ? std::numeric_limits<std::int64_t>::min()
                                : std::numeric_limits<std::int64_t>::max();
    }
    return static_cast<std::int64_t>(LowBits(whole.digits));
}

std::uint64_t Decimal::ToBits() const
{
    const Decimal whole = Truncated();
    if (whole.Sign() > 0 && mpz_sizeinbase(whole.digits, 2) == 64)
        return LowBits(whole.digits);
    return static_cast<std::uint64_t>(ToInt64());
}

std::string Decimal::Fixed(std::size_t wanted) const
{
    Decimal rounded = Rounded(wanted);
    rounded.RaisePlaces(wanted);
    std::string text = DigitsOf(rounded.digits, 10);
    const std::size_t sign = text[0] == '-' ? 1 : 0;
    if (text.size() - sign <= wanted)
        text.insert(sign, wanted + 1 - (text.size() - sign), '0');
    if (wanted != 0)
        text.insert(text.size() - wanted, 1, '.');
    return text;
}

std::string Decimal::Scientific(std::size_t wanted) const
{
    std::string text = DigitsOf(Abs().digits, 10);
    std::int64_t exponent =
        Sign() == 0 ? 0 : static_cast<std::int64_t>(text.size()) - static_cast<std::int64_t>(places) - 1;
    if (text.size() > wanted + 1) {
        // Round the digits alone: as a number with one digit in front of the point.
        Decimal mantissa = Abs();
        mantissa.places = text.size() - 1;
        text = DigitsOf(mantissa.Rounded(wanted).digits, 10);
        if (text.size() > wanted + 1) {
            text.pop_back();
            ++exponent;
        }
    }
    text.resize(wanted + 1, '0');
    if (wanted != 0)
        text.insert(1, 1, '.');
    text += exponent < 0 ? "E-" : "E+";
    text += std::to_string(exponent < 0 ? -exponent : exponent);
    return Sign() < 0 ? "-" + text : text;
}

std::string Decimal::InBase(int base) const
{
    Whole bits;
    SetInt64(bits, ToBits(), false);
    return DigitsOf(bits, base);
}

std::string Decimal::WholeText(int base) const { return DigitsOf(Truncated().digits, -base); }
