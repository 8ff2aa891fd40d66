#!/usr/bin/env python3
"""Writes evaluator_table.inc: random expressions and their values, calculated with Python's decimal module.
Each holds three operations or more, so that few lines try many.

    tests/unit/evaluator_table.py [count] [places] [seed] > tests/unit/evaluator_table.inc
"""
import random
import re
import sys
from decimal import Decimal, getcontext, ROUND_DOWN, ROUND_HALF_UP, localcontext


class Unsuitable(Exception):
    """The value lies where rounding on the way would show, or out of a sensible range."""


def number(rng):
    kind = rng.random()
    if kind < 0.5:
        return str(rng.randint(0, 10 ** rng.randint(1, 6)))
    if kind < 0.9:
        return f"{rng.randint(0, 10 ** rng.randint(1, 5))}.{rng.randint(0, 10 ** rng.randint(1, 8))}"
    return str(rng.randint(0, 10 ** rng.randint(20, 40)))


def check(value):
    if value != 0 and not Decimal("1e-8") < abs(value) < Decimal("1e120"):
        raise Unsuitable
    return value


def whole(value):
    """Towards zero; refused when the value is so near a whole number that rounding decides."""
    near = value.to_integral_value()
    if value != near and abs(value - near) < Decimal("1e-6"):
        raise Unsuitable
    return value.quantize(Decimal(1), rounding=ROUND_DOWN)


def expression(rng, depth):
    """A text and its value; the text of a compound is in brackets."""
    if depth == 0 or rng.random() < 0.15:
        text = number(rng)
        return text, Decimal(text)
    kind = rng.random()
    if kind < 0.1:
        text, value = expression(rng, depth - 1)
        return f"(-{text})", -value
    if kind < 0.25:
        name = rng.choice(["abs", "floor", "ceil", "exp", "log", "log10", "recip"])
        text, value = expression(rng, depth - 1)
        return f"{name}({text})", check(function(name, value))
    left, a = expression(rng, depth - 1)
    sign = rng.choice(["+", "-", "*", "/", "\\", "%", "**", "+", "-", "*", "/"])
    if sign == "**":
        if rng.random() < 0.2:
            if a <= 0:
                raise Unsuitable
            return f"({left}**0.5)", check(a.sqrt())
        power = rng.randint(-3, 6)
        if a == 0:
            raise Unsuitable
        return f"({left}**{power})", check(a ** power)
    right, b = expression(rng, depth - 1)
    if sign in "/\\%" and b == 0:
        raise Unsuitable
    value = {"+": lambda: a + b, "-": lambda: a - b, "*": lambda: a * b, "/": lambda: a / b,
             "\\": lambda: whole(a / b), "%": lambda: a - b * whole(a / b)}[sign]()
    return f"({left}{rng.choice(['', ' '])}{sign}{right})", check(value)


def function(name, value):
    if name == "abs":
        return abs(value)
    if name in ("floor", "ceil"):
        down = whole(value)
        if name == "floor":
            return down - 1 if value < down else down
        return down + 1 if value > down else down
    if name == "recip":
        if value == 0:
            raise Unsuitable
        return 1 / value
    if name == "exp":
        if abs(value) > 50:
            raise Unsuitable
        return value.exp()
    if value <= 0:
        raise Unsuitable
    return value.ln() if name == "log" else value.log10()


def shown(value, places):
    rounded = value.quantize(Decimal(1).scaleb(-places), rounding=ROUND_HALF_UP)
    shift = value.scaleb(places)
    if abs(abs(shift - shift.to_integral_value(rounding=ROUND_DOWN)) - Decimal("0.5")) < Decimal("1e-6"):
        exact = shift == shift.quantize(Decimal("0.1"))
        if not exact:
            raise Unsuitable
    text = f"{rounded:f}"
    if "." in text:
        text = text.rstrip("0").rstrip(".")
    return "0" if text in ("-0", "") else text


def main():
    print("// clang-format off")
    count, places, seed = (int(a) for a in (sys.argv[1:] + ["110", "10", "1"][len(sys.argv) - 1:])[:3])
    rng = random.Random(seed)
    getcontext().prec = 400 + places
    done = 0
    while done < count:
        try:
            text, value = expression(rng, rng.randint(2, 5))
            if len(re.findall(r"\(", text)) < 3:
                continue
            answer = shown(value, places)
        except (Unsuitable, ArithmeticError):
            continue
        if text.startswith("(") and rng.random() < 0.5:
            text = text + "+0"
        text = text.replace("\\", "\\\\")
        print(f'{{u"{text}", "{answer}"}},')
        done += 1


if __name__ == "__main__":
    main()
