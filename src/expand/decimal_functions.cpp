#include "expand/decimal_functions.h"

#include <cmath>
#include <utility>

#include <mpfr.h>

#include "lang/errors.h"

namespace {

constexpr double bitsPerDigit = 3.3219280948873623;

class Float {
public:
    explicit Float(mpfr_prec_t bits) { mpfr_init2(value, bits); }
    ~Float() { mpfr_clear(value); }
    Float(const Float&) = delete;
    Float& operator=(const Float&) = delete;
    operator mpfr_ptr() { return value; }

private:
    mpfr_t value;
};

// More than this takes seconds.
constexpr std::size_t mostFunctionDigits = 100000;

mpfr_prec_t BitsFor(std::size_t decimalDigits)
{
    if (decimalDigits > mostFunctionDigits)
        throw DecimalError{errors::numberTooLarge};
    return static_cast<mpfr_prec_t>(static_cast<double>(decimalDigits) * bitsPerDigit) + 64;
}

void Set(mpfr_ptr target, const Decimal& value)
{
    mpfr_set_z(target, value.AllDigits(), MPFR_RNDN);
    if (value.Places() != 0) {
        Float power(mpfr_get_prec(target));
        mpfr_ui_pow_ui(power, 10, static_cast<unsigned long>(value.Places()), MPFR_RNDN);
        mpfr_div(target, target, power, MPFR_RNDN);
    }
}

Decimal Get(mpfr_ptr value, std::size_t places)
{
    if (mpfr_inf_p(value))
        throw DecimalError{errors::numberTooLarge};
    if (mpfr_nan_p(value))
        throw DecimalError{errors::invalidNumber};
    if (!mpfr_zero_p(value) && mpfr_get_exp(value) > static_cast<mpfr_exp_t>(Decimal::mostDigits * 4))
        throw DecimalError{errors::numberTooLarge};
    Float scaled(mpfr_get_prec(value) + 64);
    mpfr_ui_pow_ui(scaled, 10, static_cast<unsigned long>(places), MPFR_RNDN);
    mpfr_mul(scaled, scaled, value, MPFR_RNDN);
    mpz_t whole;
    mpz_init(whole);
    mpfr_round(scaled, scaled);
    mpfr_get_z(whole, scaled, MPFR_RNDN);
    Decimal result = Decimal::FromWhole(whole, places);
    mpz_clear(whole);
    return result;
}

using Compute = int (*)(mpfr_ptr result, mpfr_srcptr argument, mpfr_rnd_t rounding);

Compute ComputeOf(DecimalFunction function)
{
    switch (function) {
    case DecimalFunction::Log: return mpfr_log;
    case DecimalFunction::Log2: return mpfr_log2;
    case DecimalFunction::Log10: return mpfr_log10;
    case DecimalFunction::Exp: return mpfr_exp;
    case DecimalFunction::Sin: return mpfr_sin;
    case DecimalFunction::Asin: return mpfr_asin;
    case DecimalFunction::Sinh: return mpfr_sinh;
    case DecimalFunction::Cos: return mpfr_cos;
    case DecimalFunction::Acos: return mpfr_acos;
    case DecimalFunction::Cosh: return mpfr_cosh;
    case DecimalFunction::Tan: return mpfr_tan;
    case DecimalFunction::Atan: return mpfr_atan;
    case DecimalFunction::Tanh: break;
    }
    return mpfr_tanh;
}

bool GrowsFast(DecimalFunction function)
{
    return function == DecimalFunction::Exp || function == DecimalFunction::Sinh ||
           function == DecimalFunction::Cosh;
}

// Digits in front of the point that e raised to `exponent` has; refuses what is too long to write down.
std::size_t DigitsOfExp(const Decimal& exponent)
{
    constexpr double digitsPerUnit = 0.4342944819032518;
    constexpr std::int64_t most = static_cast<std::int64_t>(Decimal::mostDigits / digitsPerUnit);
    const std::int64_t whole = exponent.ToInt64();
    if (whole > most)
        throw DecimalError{errors::numberTooLarge};
    return whole <= 0 ? 1 : static_cast<std::size_t>(static_cast<double>(whole) * digitsPerUnit) + 2;
}

} // namespace

Decimal Apply(DecimalFunction function, const Decimal& argument, std::size_t places)
{
    const bool logarithm = function == DecimalFunction::Log || function == DecimalFunction::Log2 ||
                           function == DecimalFunction::Log10;
    const bool arc = function == DecimalFunction::Asin || function == DecimalFunction::Acos;
    if ((logarithm && argument.Sign() <= 0) || (arc && Decimal::Compare(argument.Abs(), Decimal(1)) > 0))
        throw DecimalError{errors::invalidNumber};
    std::size_t digits = places + argument.WholeDigits();
    // Near the ends of their range a small step of the argument is a large one of the value.
    if (arc || function == DecimalFunction::Tan)
        digits += 2 * argument.Places();
    if (GrowsFast(function))
        digits += DigitsOfExp(function == DecimalFunction::Exp ? argument : argument.Abs());
    // Far below zero there is nothing left of it.
    if (function == DecimalFunction::Exp && argument.Sign() < 0 &&
        argument.ToInt64() < -static_cast<std::int64_t>(3 * (places + 10)))
        return Decimal();
    const mpfr_prec_t bits = BitsFor(digits);
    Float value(bits);
    Float result(bits);
    Set(value, argument);
    ComputeOf(function)(result, value, MPFR_RNDN);
    return Get(result, places);
}

Decimal Pi(std::size_t places)
{
    Float value(BitsFor(places + 10));
    mpfr_const_pi(value, MPFR_RNDN);
    return Get(value, places);
}

Decimal Power(const Decimal& base, const Decimal& exponent, std::size_t places)
{
    // The size of the result decides how many digits are needed to get its places right.
    Float rough(64);
    Float roughBase(64);
    Set(roughBase, base.Abs());
    mpfr_log10(roughBase, roughBase, MPFR_RNDN);
    Set(rough, exponent);
    mpfr_mul(rough, rough, roughBase, MPFR_RNDN);
    const double resultDigits = mpfr_get_d(rough, MPFR_RNDN);
    if (resultDigits > static_cast<double>(Decimal::mostDigits))
        throw DecimalError{errors::numberTooLarge};
    if (resultDigits < -static_cast<double>(places) - 2)
        return Decimal();
    const std::size_t digits = places + exponent.WholeDigits() + base.WholeDigits() +
                               static_cast<std::size_t>(std::fabs(resultDigits)) + 10;
    const mpfr_prec_t bits = BitsFor(digits);
    Float value(bits);
    Float power(bits);
    Set(value, base);
    Set(power, exponent);
    mpfr_pow(value, value, power, MPFR_RNDN);
    return Get(value, places);
}
