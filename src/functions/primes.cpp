// Prime numbers.
#include "functions/families.h"

#include <string>

#include <gmp.h>

#include "functions/answers.h"
#include "functions/arguments.h"
#include "text/encoding.h"

namespace {

// Looking for the next prime takes a tenth of a second there, and grows with the fourth power.
constexpr std::size_t mostDigits = 200;

class WholeNumber {
public:
    WholeNumber() { mpz_init(value); }
    WholeNumber(const WholeNumber&) = delete;
    WholeNumber& operator=(const WholeNumber&) = delete;
    ~WholeNumber() { mpz_clear(value); }

    // 0, or the error for a text that is no whole number.
    int Read(std::u16string_view text)
    {
        CString number(text);
        number.Trim();
        if (number.empty())
            return answer::missingArgument;
        const std::size_t sign = number.front() == u'-' || number.front() == u'+' ? 1 : 0;
        const std::u16string_view digits = number.view().substr(sign);
        if (digits.empty() || digits.size() > mostDigits ||
            digits.find_first_not_of(u"0123456789") != digits.npos)
            return answer::invalidNumber;
        mpz_set_str(value, ToUtf8(digits).c_str(), 10);
        if (number.front() == u'-')
            mpz_neg(value, value);
        return 0;
    }

    mpz_t value;
};

} // namespace

// @isprime[n]. The answer is sure below 2^64, and as good as sure above.
int Isprime_Function(FunctionCall& call)
{
    constexpr int rounds = 30;
    WholeNumber number;
    if (const int code = number.Read(call.arguments))
        return code;
    return answer::Flag(call, mpz_sgn(number.value) > 0 && mpz_probab_prime_p(number.value, rounds) != 0);
}

// @prime[n]: the smallest prime number above n.
int Prime_Function(FunctionCall& call)
{
    WholeNumber number;
    if (const int code = number.Read(call.arguments))
        return code;
    if (mpz_cmp_ui(number.value, 2) < 0)
        mpz_set_ui(number.value, 2);
    else
        mpz_nextprime(number.value, number.value);
    std::string digits(mpz_sizeinbase(number.value, 10) + 1, '\0');
    mpz_get_str(digits.data(), 10, number.value);
    return answer::Text(call, FromAscii(digits.c_str()));
}
